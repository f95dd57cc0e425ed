#include "color/ColorOfLuminance.h"

#include "color/Contrast.h"

#include <algorithm>
#include <cmath>

QRgb colorOfLuminance(double luminance, double chroma, double hue, double near)
{
    constexpr int mostSteps = 6;
    constexpr double closeEnough = 0.001; // of the ratio to any other colour
    const double wanted = std::clamp(luminance, 0.0, 1.0);
    double lightness = std::clamp(near, 0.0, 1.0);
    QRgb best = 0xFF000000;
    double leastError = 2.0;
    for (int step = 0; step < mostSteps; ++step) {
        const QRgb color = rgbFromOklch({lightness, chroma, hue});
        const double light = relativeLuminance(color);
        const double error = std::abs(light - wanted);
        if (error < leastError) {
            leastError = error;
            best = color;
        }
        if (error <= closeEnough * (wanted + 0.05))
            break;
        // Of greys the luminance is the cube of the lightness, and of others nearly so.
        lightness = std::clamp(
            std::cbrt(std::max(0.0, lightness * lightness * lightness + wanted - light)), 0.0, 1.0);
    }
    return best;
}
