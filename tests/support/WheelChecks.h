// Holds a drawn colour wheel against its reference, whatever drew it.
#pragma once

#include "HSColorPicker/ColorPickerClasses/HSColorPickerView.h"
#include "HSColorPicker/ColorPickerClasses/HSWheelReference.h"

#include <QQuickWindow>

#include <cmath>
#include <gtest/gtest.h>

namespace WheelChecks
{
inline bool isNear(QRgb a, QRgb b)
{
    const auto near = [](int x, int y) { return std::abs(x - y) <= 1; };
    return near(qRed(a), qRed(b)) && near(qGreen(a), qGreen(b)) && near(qBlue(a), qBlue(b));
}

/// What a full, bright wheel shows at a pixel: its colour or, at brightness 0, black.
inline QRgb expectedPixel(const HSColorPickerView &view, int column, int row)
{
    const double scale = view.scale();
    const BMPixel wheel =
        HSWheelPixel(column, row, view.width() * scale, view.paddingDistance() * scale);
    const auto byte = [&](double channel) {
        return int(std::lround(channel * view.brightness() * 255.0));
    };
    return qRgb(byte(wheel.red), byte(wheel.green), byte(wheel.blue));
}

/// Compares every pixel but the ring's with the wheel's own or, outside a circle, with the ground;
/// on the circle's edge some must be in between. The view is opaque, at brightness 1 or 0, and
/// fills the picture.
inline void expectWheel(const QImage &picture, const HSColorPickerView &view, QRgb ground)
{
    const double radius = view.cropToCircle() ? picture.width() * 0.5 : picture.width();
    const QPointF centre(picture.width() * 0.5, picture.height() * 0.5);
    const QPointF ring = view.selection() * view.scale();
    int smoothed = 0;
    for (int row = 0; row < picture.height(); ++row) {
        for (int column = 0; column < picture.width(); ++column) {
            const QPointF pixel(column + 0.5, row + 0.5);
            const auto distance = [=](QPointF point) {
                return std::hypot(pixel.x() - point.x(), pixel.y() - point.y());
            };
            if (distance(ring) < 13.0 * view.scale())
                continue;
            const double outside = distance(centre) - radius;
            const QRgb inner = expectedPixel(view, column, row);
            const QRgb shown = picture.pixel(column, row);
            if (std::abs(outside) < 1.0)
                smoothed += !isNear(shown, inner) && !isNear(shown, ground);
            else
                ASSERT_TRUE(isNear(shown, outside > 0.0 ? ground : inner))
                    << column << ", " << row << ": " << std::hex << shown;
        }
    }
    if (view.cropToCircle())
        EXPECT_GT(smoothed, picture.width()) << "of about " << 6 * picture.width() / 2;
    else
        EXPECT_EQ(smoothed, 0);
}

/// The same for every shape and brightness, over a coloured ground; `draw` gives the window's
/// picture.
inline void expectWheels(QQuickWindow &window, HSColorPickerView &view, const auto &draw)
{
    constexpr QRgb ground = qRgb(250, 120, 10);
    window.setColor(ground);
    for (const bool circle : {false, true}) {
        view.setCropToCircle(circle);
        for (const double brightness : {1.0, 0.0}) {
            SCOPED_TRACE(testing::Message() << "circle " << circle << ", " << brightness);
            view.setBrightness(brightness);
            expectWheel(draw(), view, ground);
        }
    }
}
} // namespace WheelChecks
