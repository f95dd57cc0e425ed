#include "HSColorPicker/ColorPickerClasses/HSSelectionLayer.h"

#include <cmath>
#include <gtest/gtest.h>

namespace
{
QImage drawn(HSSelectionLayer &layer, double scale)
{
    QImage picture(QSize(22, 22) * scale, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    picture.setDevicePixelRatio(scale);
    QPainter painter(&picture);
    layer.drawInContext(painter, {0, 0, 22, 22});
    painter.end();
    return picture.convertToFormat(QImage::Format_ARGB32);
}

TEST(HSSelectionLayerTest, ColoursAreKeptOnlyAsAPair)
{
    constexpr QRgb outer = 0x66FFFFFF, inner = 0xFF000000, red = 0xFFFF0000, blue = 0xFF0000FF;
    for (const int set : {0, 1, 2, 3}) {
        HSSelectionLayer layer;
        if (set & 1)
            layer.setOuterRingColor(UIColor::colorWithRed(1, 0, 0, 1));
        if (set & 2)
            layer.setInnerRingColor(UIColor::colorWithRed(0, 0, 1, 1));
        const QImage picture = drawn(layer, 3.0);
        EXPECT_EQ(picture.pixel(33, 1), set == 3 ? red : outer) << set;
        EXPECT_EQ(picture.pixel(33, 9), set == 3 ? blue : inner) << set;
    }
}

// From the outside: white at 0.4 from radius 11 to 9, black from 9 to 7; nothing within.
TEST(HSSelectionLayerTest, RingsAreSharpAtEveryScale)
{
    for (const double scale : {1.0, 2.0, 3.0}) {
        HSSelectionLayer layer;
        const QImage picture = drawn(layer, scale);
        int between = 0;
        for (int row = 0; row < picture.height(); ++row) {
            for (int column = 0; column < picture.width(); ++column) {
                const double radius =
                    std::hypot(column + 0.5 - 11 * scale, row + 0.5 - 11 * scale) / scale;
                const double reach = 0.85 / scale; // of a pixel, and of a painter's rounding
                const auto inside = [=](double from, double to) {
                    return radius > from + reach && radius < to - reach;
                };
                const QRgb pixel = picture.pixel(column, row);
                const bool isBlack = pixel == qRgba(0, 0, 0, 255);
                const bool isWhite = std::abs(qAlpha(pixel) - 102) < 3 && qRed(pixel) == 255;
                ASSERT_TRUE(!inside(7, 9) || isBlack) << scale << ": " << column << ", " << row;
                ASSERT_TRUE(!inside(9, 11) || isWhite) << scale << ": " << column << ", " << row;
                ASSERT_TRUE(!(inside(-1, 7) || inside(11, 99)) || qAlpha(pixel) == 0);
                between += !isBlack && !isWhite && qAlpha(pixel) != 0;
            }
        }
        // Three edges of 170 points in all, each about a pixel wide.
        EXPECT_GT(between, 85 * scale) << "the edges are smoothed";
        EXPECT_LT(between, 340 * scale) << "but no more than that";
    }
}
} // namespace
