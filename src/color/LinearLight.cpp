#include "color/LinearLight.h"

#include <array>
#include <cmath>

namespace
{
// Fine enough for the dark end, where a byte is 1/3295 of the light: five steps to a byte. Small
// enough to stay in the processor's nearest cache.
constexpr int steps = 1 << 14;

double decoded(double c)
{
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double encoded(double light)
{
    return light <= 0.04045 / 12.92 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

// Apart, so that whoever only asks for light, as the first frame does, waits for nothing else.
using Lights = std::array<float, 256>;
using Bytes = std::array<quint8, steps>; // of the middle of each step

const Lights &lights()
{
    static const Lights made = [] {
        Lights lights;
        for (int byte = 0; byte < 256; ++byte)
            lights[size_t(byte)] = float(decoded(byte / 255.0));
        return lights;
    }();
    return made;
}

const Bytes &bytes()
{
    static const Bytes made = [] {
        Bytes bytes;
        for (int step = 0; step < steps; ++step)
            bytes[size_t(step)] = quint8(std::lround(encoded((step + 0.5) / steps) * 255.0));
        return bytes;
    }();
    return made;
}
} // namespace

float linearFromSrgb(quint8 byte)
{
    return lights()[byte];
}

quint8 srgbFromLinear(float light)
{
    if (!(light > 0.0F)) // not-a-number, too
        return 0;
    return light < 1.0F ? bytes()[size_t(light * steps)] : 255;
}
