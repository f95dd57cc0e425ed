#version 440

// One direction of a Gaussian blur: 25 taps, `stride` apart, with a standard deviation of 6 taps.
// A second pass with the stride turned completes it.

layout(location = 0) in vec2 qt_TexCoord0;
layout(location = 0) out vec4 fragColor;
layout(std140, binding = 0) uniform buf {
    mat4 qt_Matrix;
    float qt_Opacity;
    vec2 stride; // texture coordinates
};
layout(binding = 1) uniform sampler2D source;

void main()
{
    vec4 sum = vec4(0.0);
    float weights = 0.0;
    for (int tap = -12; tap <= 12; ++tap) {
        float weight = exp(-float(tap * tap) / 72.0);
        sum += weight * texture(source, qt_TexCoord0 + float(tap) * stride);
        weights += weight;
    }
    fragColor = sum / weights * qt_Opacity;
}
