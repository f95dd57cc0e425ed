#include "HSColorPicker/ColorPickerClasses/HSColorPickerState.h"

#include "HSColorPicker/ColorPickerClasses/HSColorFunctions.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double turn = 2.0 * std::numbers::pi;

double numberOrZero(double value)
{
    return std::isnan(value) ? 0.0 : value;
}

QPointF pointOnDisc(double hue, double saturation)
{
    const double angle = hue * turn;
    return {saturation * std::cos(angle), saturation * std::sin(angle)};
}
} // namespace

HSColorPickerState::HSColorPickerState(QPointF point, double brightness, double alpha)
    : _scaledRelativePoint(numberOrZero(point.x()), numberOrZero(point.y())),
      _brightness(numberOrZero(brightness)),
      _alpha(numberOrZero(alpha))
{
}

HSColorPickerState HSColorPickerState::stateForPoint(QPointF point, double size, double padding)
{
    const double half = size * 0.5;
    const double radius = half - padding;
    // The y term subtracts the other way round, which turns the axis upward.
    return {{(point.x() - half) / radius, (half - point.y()) / radius}, 1.0, 1.0};
}

HSColorPickerState HSColorPickerState::initWithScaledRelativePoint(QPointF point, double brightness,
                                                                   double alpha)
{
    return {point, brightness, alpha};
}

HSColorPickerState HSColorPickerState::initWithHue(double hue, double saturation, double brightness,
                                                   double alpha)
{
    return {pointOnDisc(hue, saturation), brightness, alpha};
}

HSColorPickerState HSColorPickerState::initWithColor(const UIColor &color)
{
    double components[4];
    HSGetComponentsForColor(components, color);
    const auto [red, green, blue, alpha] = components;
    const UIColor::HSBA hsba = *UIColor::colorWithRed(red, green, blue, alpha).getHue();
    return initWithHue(hsba.hue, hsba.saturation, hsba.brightness, hsba.alpha);
}

QPointF HSColorPickerState::selectionLocationWithSize(double size, double padding) const
{
    const double half = size * 0.5;
    const double radius = half - padding;
    return {half + numberOrZero(radius * _scaledRelativePoint.x()),
            half - numberOrZero(radius * _scaledRelativePoint.y())};
}

HSColorPickerState HSColorPickerState::stateBySettingBrightness(double brightness) const
{
    return {_scaledRelativePoint, brightness, _alpha};
}

HSColorPickerState HSColorPickerState::stateBySettingAlpha(double alpha) const
{
    return {_scaledRelativePoint, _brightness, alpha};
}

HSColorPickerState HSColorPickerState::stateBySettingHue(double hue) const
{
    return initWithHue(hue, saturation(), _brightness, _alpha);
}

HSColorPickerState HSColorPickerState::stateBySettingSaturation(double saturation) const
{
    return initWithHue(hue(), saturation, _brightness, _alpha);
}

double HSColorPickerState::hue() const
{
    const double angle = std::atan2(_scaledRelativePoint.y(), _scaledRelativePoint.x());
    const double hue = (angle < 0.0 ? angle + turn : angle) / turn;
    return hue < 1.0 ? hue : 0.0; // a hair below the axis rounds up to the full turn
}

double HSColorPickerState::saturation() const
{
    const double x = _scaledRelativePoint.x();
    const double y = _scaledRelativePoint.y();
    return std::min(std::sqrt(x * x + y * y), 1.0);
}

UIColor HSColorPickerState::color() const
{
    return UIColor::colorWithHue(hue(), saturation(), _brightness, _alpha);
}

bool HSColorPickerState::operator==(const HSColorPickerState &other) const
{
    // QPointF's own comparison is a fuzzy one.
    return _scaledRelativePoint.x() == other._scaledRelativePoint.x() &&
           _scaledRelativePoint.y() == other._scaledRelativePoint.y() &&
           _brightness == other._brightness && _alpha == other._alpha;
}
