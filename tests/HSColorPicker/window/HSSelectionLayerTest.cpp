#include "HSColorPicker/window/HSSelectionLayer.h"

#include <gtest/gtest.h>

// From the outside: white at 0.4 from radius 11 to 9, black from 9 to 7; nothing within.
TEST(HSSelectionLayerTest, RingsHaveTheirWidthsAndTheirColoursAsAPair)
{
    constexpr QRgb red = 0xFFFF0000, blue = 0xFF0000FF;
    for (const int set : {0, 1, 2, 3}) {
        HSSelectionLayer layer;
        if (set & 1)
            layer.setOuterRingColor(UIColor::colorWithRed(1, 0, 0, 1));
        if (set & 2)
            layer.setInnerRingColor(UIColor::colorWithRed(0, 0, 1, 1));
        const QRgb outer = set == 3 ? red : 0x66FFFFFF, inner = set == 3 ? blue : 0xFF000000;
        QImage picture(220, 220, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        picture.setDevicePixelRatio(10.0);
        QPainter painter(&picture);
        layer.drawInContext(painter, {0, 0, 22, 22});
        painter.end();
        picture.convertTo(QImage::Format_ARGB32);
        const std::pair<double, QRgb> rings[] = {{6.6, 0},     {7.4, inner},  {8.6, inner},
                                                 {9.4, outer}, {10.6, outer}, {12.0, 0}};
        for (const auto &[radius, color] : rings) {
            const double slant = radius * std::sqrt(0.5);
            for (const QPointF point : {QPointF(11 + slant, 11 - slant), {11 - slant, 11 + slant}})
                EXPECT_EQ(picture.pixel((point * 10).toPoint()), color) << set << ", " << radius;
        }
        const QRgb edge = picture.pixel(110 - 90, 110 - 63); // at a radius of 10.99
        EXPECT_TRUE(edge != outer && edge != 0) << "smoothed";
    }
}
