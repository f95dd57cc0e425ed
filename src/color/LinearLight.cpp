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

struct Tables {
    std::array<float, 256> light;
    std::array<quint8, steps> bytes; // of the middle of each step

    Tables()
    {
        for (int byte = 0; byte < 256; ++byte)
            light[size_t(byte)] = float(decoded(byte / 255.0));
        for (int step = 0; step < steps; ++step)
            bytes[size_t(step)] = quint8(std::lround(encoded((step + 0.5) / steps) * 255.0));
    }
};

const Tables &tables()
{
    static const Tables made;
    return made;
}
} // namespace

float linearFromSrgb(quint8 byte)
{
    return tables().light[byte];
}

quint8 srgbFromLinear(float light)
{
    if (!(light > 0.0F)) // not-a-number, too
        return 0;
    return light < 1.0F ? tables().bytes[size_t(light * steps)] : 255;
}
