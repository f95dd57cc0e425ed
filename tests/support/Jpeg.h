// Decoding of written JPEGs.
#pragma once

#include <QColor>
#include <QImage>

#include <cstdlib>
#include <gtest/gtest.h>

/// A null image when the bytes are no JPEG.
inline QImage decodedJpeg(const QByteArray &bytes)
{
    return QImage::fromData(bytes, "JPEG");
}

/// Corners and centre have the colour, within what the encoding may move a channel.
inline void expectSolid(const QImage &image, const QColor &color, int tolerance)
{
    ASSERT_FALSE(image.isNull());
    const QRect all = image.rect();
    for (const QPoint point :
         {all.topLeft(), all.topRight(), all.bottomLeft(), all.bottomRight(), all.center()}) {
        const QColor seen = image.pixelColor(point);
        EXPECT_LE(std::abs(seen.red() - color.red()), tolerance);
        EXPECT_LE(std::abs(seen.green() - color.green()), tolerance);
        EXPECT_LE(std::abs(seen.blue() - color.blue()), tolerance);
    }
}
