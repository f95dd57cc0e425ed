#include "color/OKLab.h"

#include "color/LinearLight.h"

#include <cmath>

namespace
{
struct Light {
    double red, green, blue;
};

Light lightFromOklab(const OKLab &color)
{
    const auto cubed = [](double root) { return root * root * root; };
    const auto &[lightness, a, b] = color;
    const double l = cubed(lightness + 0.3963377774 * a + 0.2158037573 * b);
    const double m = cubed(lightness - 0.1055613458 * a - 0.0638541728 * b);
    const double s = cubed(lightness - 0.0894841775 * a - 1.2914855480 * b);
    return {4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
            -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
            -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s};
}

QRgb rgbFromLight(const Light &light)
{
    return qRgb(srgbFromLinear(float(light.red)), srgbFromLinear(float(light.green)),
                srgbFromLinear(float(light.blue)));
}

/// Within a tenth of what half a byte is at the dark end.
bool canBeShown(const Light &light)
{
    constexpr double slack = 1.5e-5;
    const auto fits = [](double channel) { return channel >= -slack && channel <= 1.0 + slack; };
    return fits(light.red) && fits(light.green) && fits(light.blue);
}
} // namespace

OKLab oklabFromRgb(QRgb color)
{
    const double red = double(linearFromSrgb(quint8(qRed(color))));
    const double green = double(linearFromSrgb(quint8(qGreen(color))));
    const double blue = double(linearFromSrgb(quint8(qBlue(color))));
    const double l = std::cbrt(0.4122214708 * red + 0.5363325363 * green + 0.0514459929 * blue);
    const double m = std::cbrt(0.2119034982 * red + 0.6806995451 * green + 0.1073969566 * blue);
    const double s = std::cbrt(0.0883024619 * red + 0.2817188376 * green + 0.6299787005 * blue);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

QRgb rgbFromOklab(const OKLab &color)
{
    return rgbFromLight(lightFromOklab(color));
}

OKLCh oklchFromOklab(const OKLab &color)
{
    return {color.lightness, std::hypot(color.a, color.b), std::atan2(color.b, color.a)};
}

OKLab oklabFromOklch(const OKLCh &color)
{
    return {color.lightness, color.chroma * std::cos(color.hue),
            color.chroma * std::sin(color.hue)};
}

QRgb rgbFromOklch(const OKLCh &color)
{
    if (!(color.lightness > 0.0))
        return qRgb(0, 0, 0);
    if (color.lightness >= 1.0)
        return qRgb(255, 255, 255);
    const OKLab whole = oklabFromOklch(color);
    const auto lightAt = [&whole](double share) {
        return lightFromOklab({whole.lightness, whole.a * share, whole.b * share});
    };
    Light light = lightAt(1.0);
    if (canBeShown(light))
        return rgbFromLight(light);
    double shown = 0.0;
    double tooMuch = 1.0;
    light = lightAt(shown);
    for (int bisection = 0; bisection < 14; ++bisection) {
        const double middle = (shown + tooMuch) / 2.0;
        const Light candidate = lightAt(middle);
        if (!canBeShown(candidate)) {
            tooMuch = middle;
            continue;
        }
        shown = middle;
        light = candidate;
    }
    return rgbFromLight(light);
}

double distanceBetween(const OKLab &one, const OKLab &other)
{
    return std::hypot(one.lightness - other.lightness, one.a - other.a, one.b - other.b);
}
