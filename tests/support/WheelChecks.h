// Holds a drawn colour wheel against its reference.
#pragma once

#include "HSColorPicker/ColorPickerClasses/HSWheelReference.h"
#include "HSColorPicker/window/HSColorPickerView.h"
#include "support/Canvas.h"

#include <cmath>
#include <gtest/gtest.h>

namespace WheelChecks
{
inline bool isNear(QRgb a, QRgb b)
{
    const auto near = [](int x, int y) { return std::abs(x - y) <= 1; };
    return near(qRed(a), qRed(b)) && near(qGreen(a), qGreen(b)) && near(qBlue(a), qBlue(b));
}

/// Compares every pixel but the ring's with the wheel's own or, outside a circle, with the ground;
/// on the circle's edge some must be in between. The view is opaque, at brightness 1 or 0, and
/// fills the picture.
inline void expectWheel(const QImage &picture, const HSColorPickerView &view, QRgb ground)
{
    const int side = picture.width();
    const double scale = view.scale(), radius = view.cropToCircle() ? side * 0.5 : side;
    const QPointF ring = view.selection() * scale;
    int smoothed = 0;
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const auto distance = [=](QPointF point) {
                return std::hypot(column + 0.5 - point.x(), row + 0.5 - point.y());
            };
            if (distance(ring) < 13.0 * scale)
                continue;
            const auto [red, green, blue, alpha] =
                HSWheelPixel(column, row, side, view.paddingDistance() * scale);
            const double white = 255.0 * view.brightness();
            const QRgb wheel = qRgb(int(std::lround(red * white)), int(std::lround(green * white)),
                                    int(std::lround(blue * white)));
            const double outside = distance({side * 0.5, side * 0.5}) - radius;
            const QRgb shown = picture.pixel(column, row);
            if (std::abs(outside) < 1.0)
                smoothed += !isNear(shown, wheel) && !isNear(shown, ground);
            else
                ASSERT_TRUE(isNear(shown, outside > 0.0 ? ground : wheel))
                    << column << ", " << row << ": " << std::hex << shown;
        }
    }
    EXPECT_EQ(smoothed > side, view.cropToCircle()) << smoothed << " of about " << 3 * side;
}

/// The same for every shape and brightness, over a coloured ground.
inline void expectWheels(Canvas &canvas, HSColorPickerView &view)
{
    constexpr QRgb ground = qRgb(250, 120, 10);
    canvas.window().setColor(ground);
    for (const bool circle : {false, true}) {
        view.setCropToCircle(circle);
        for (const double brightness : {1.0, 0.0}) {
            SCOPED_TRACE(testing::Message() << "circle " << circle << ", " << brightness);
            view.setBrightness(brightness);
            expectWheel(canvas.draw(), view, ground);
        }
    }
}
} // namespace WheelChecks
