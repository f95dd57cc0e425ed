#include "platform/foundation/UIColor.h"

#include <algorithm>
#include <cmath>

namespace
{
double clamped(double component)
{
    return component > 0.0 ? std::min(component, 1.0) : 0.0; // not-a-number fails the comparison
}
} // namespace

UIColor::UIColor(Model model, std::array<double, 4> components)
    : _model(model), _components(components)
{
    std::ranges::transform(_components, _components.begin(), clamped);
}

UIColor UIColor::colorWithRed(double red, double green, double blue, double alpha)
{
    return {Model::RGB, {red, green, blue, alpha}};
}

UIColor UIColor::colorWithWhite(double white, double alpha)
{
    return {Model::Grey, {white, white, white, alpha}};
}

UIColor UIColor::colorWithHue(double hue, double saturation, double brightness, double alpha)
{
    const double s = clamped(saturation);
    const double v = clamped(brightness);
    // f(n) of the hexcone: each channel is v, dipping by v x s on the far side of its own primary.
    const auto channel = [&](double n) {
        const double k = std::fmod(n + clamped(hue) * 6.0, 6.0);
        return v - v * s * std::max(0.0, std::min({k, 4.0 - k, 1.0}));
    };
    return {Model::RGB, {channel(5.0), channel(3.0), channel(1.0), alpha}};
}

UIColor UIColor::colorWithPatternImage(const QImage &image)
{
    UIColor color(Model::Pattern, {});
    color._pattern = image;
    return color;
}

UIColor UIColor::blackColor()
{
    return colorWithWhite(0.0, 1.0);
}

UIColor UIColor::whiteColor()
{
    return colorWithWhite(1.0, 1.0);
}

UIColor UIColor::clearColor()
{
    return colorWithWhite(0.0, 0.0);
}

std::optional<UIColor::RGBA> UIColor::getRed() const
{
    if (_model != Model::RGB)
        return std::nullopt;
    return components();
}

std::optional<UIColor::WhiteAlpha> UIColor::getWhite() const
{
    if (_model != Model::Grey)
        return std::nullopt;
    return WhiteAlpha{_components[0], _components[3]};
}

std::optional<UIColor::HSBA> UIColor::getHue() const
{
    if (_model == Model::Pattern)
        return std::nullopt;
    const auto [r, g, b, alpha] = components();
    const double high = std::max({r, g, b});
    const double range = high - std::min({r, g, b});
    double hue = 0.0;
    if (range > 0.0) {
        if (high == r)
            hue = (g - b) / range + (g < b ? 6.0 : 0.0);
        else if (high == g)
            hue = (b - r) / range + 2.0;
        else
            hue = (r - g) / range + 4.0;
        hue /= 6.0;
        if (hue >= 1.0) // a red with a trace of blue rounds up to the full turn
            hue = 0.0;
    }
    return HSBA{hue, high > 0.0 ? range / high : 0.0, high, alpha};
}

UIColor::RGBA UIColor::components() const
{
    return {_components[0], _components[1], _components[2], _components[3]};
}

QColor UIColor::qColor() const
{
    const auto [red, green, blue, alpha] = components();
    return QColor::fromRgbF(float(red), float(green), float(blue), float(alpha));
}
