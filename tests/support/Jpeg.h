// Decoding of written JPEGs, by TurboJPEG itself.
#pragma once

#include <QColor>
#include <QImage>

#include <cstdlib>
#include <gtest/gtest.h>
#include <turbojpeg.h>

/// A null image when the bytes are no JPEG.
inline QImage decodedJpeg(const QByteArray &bytes)
{
    const auto *data = reinterpret_cast<const unsigned char *>(bytes.constData());
    const auto length = static_cast<unsigned long>(bytes.size());
    int width = 0, height = 0, sampling = 0, space = 0;
    tjhandle handle = tjInitDecompress();
    QImage image;
    if (tjDecompressHeader3(handle, data, length, &width, &height, &sampling, &space) == 0) {
        image = QImage(width, height, QImage::Format_RGBX8888);
        if (tjDecompress2(handle, data, length, image.bits(), width, int(image.bytesPerLine()),
                          height, TJPF_RGBX, 0) != 0)
            image = {};
    }
    tjDestroy(handle);
    return image;
}

/// Corners and centre have the colour, within what the encoding may move a channel.
inline void expectSolid(const QImage &image, const QColor &color, int tolerance)
{
    ASSERT_FALSE(image.isNull());
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    for (const QPoint point : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom),
                               QPoint(right, bottom), QPoint(right / 2, bottom / 2)}) {
        const QColor seen = image.pixelColor(point);
        EXPECT_LE(std::abs(seen.red() - color.red()), tolerance);
        EXPECT_LE(std::abs(seen.green() - color.green()), tolerance);
        EXPECT_LE(std::abs(seen.blue() - color.blue()), tolerance);
    }
}
