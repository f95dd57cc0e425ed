#include "HSColorPicker/ColorPickerClasses/HSWheelReference.h"

#include "HSColorPicker/ColorPickerClasses/HSColorFunctions.h"

#include <algorithm>
#include <cmath>
#include <numbers>

BMPixel HSWheelPixel(int column, int row, double diameter, double padding)
{
    constexpr double turn = 2.0 * std::numbers::pi;
    const double radius = diameter * 0.5;
    const double rim = radius - padding;
    const auto x = float(column - radius);
    const auto y = float(radius - row);
    const float angle = std::atan2(y, x);
    const float distance = std::sqrt(x * x + y * y);
    const double hue = (angle < 0.0f ? angle + turn : angle) / turn;
    const double saturation = rim > 0.0 ? std::min(double(distance), rim) / rim : 1.0;
    return HSPixelFromHSV(hue, saturation, 1.0);
}

void HSFillWheelScalar(std::uint8_t *pixels, int side, double diameter, double padding)
{
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            std::uint8_t raw[4];
            BMPixelGetRaw(HSWheelPixel(column, row, diameter, padding), raw);
            *pixels++ = raw[3];
            *pixels++ = raw[0];
            *pixels++ = raw[1];
            *pixels++ = raw[2];
        }
    }
}
