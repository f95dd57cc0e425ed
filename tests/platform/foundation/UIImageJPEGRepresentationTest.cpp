#include "platform/foundation/UIImageJPEGRepresentation.h"

#include "support/Jpeg.h"

#include <random>

TEST(UIImageJPEGRepresentationTest, EveryFormatKeepsItsStraightColor)
{
    const QColor color(200, 100, 50);
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied,
          QImage::Format_RGBA8888, QImage::Format_RGBX8888, QImage::Format_RGB888,
          QImage::Format_RGB16, QImage::Format_RGBA64}) {
        QImage image(37, 21, format); // odd: rows are padded where they can be
        image.fill(color);
        if (format == QImage::Format_ARGB32)
            image.fill(qRgba(200, 100, 50, 0)); // alpha is ignored
        const QImage decoded = decodedJpeg(UIImageJPEGRepresentation(image, 0.8F));
        EXPECT_EQ(decoded.size(), image.size()) << format;
        expectSolid(decoded, color, format == QImage::Format_RGB16 ? 8 : 2);
    }
}

TEST(UIImageJPEGRepresentationTest, BetterQualityCostsMoreBytes)
{
    QImage noise(64, 64, QImage::Format_RGB32);
    std::generate_n(reinterpret_cast<QRgb *>(noise.bits()), 64 * 64, std::minstd_rand(1));
    qsizetype previous = 0;
    for (const float quality : {-1.0F, 0.3F, 0.8F, 0.95F}) {
        const qsizetype size = UIImageJPEGRepresentation(noise, quality).size();
        EXPECT_GT(size, previous) << quality;
        previous = size;
    }
    EXPECT_EQ(UIImageJPEGRepresentation(noise, 7.0F), UIImageJPEGRepresentation(noise, 1.0F));
}

TEST(UIImageJPEGRepresentationTest, WhatCannotBeEncodedIsEmpty)
{
    EXPECT_TRUE(UIImageJPEGRepresentation({}, 0.8F).isEmpty());
    EXPECT_TRUE(UIImageJPEGRepresentation(QImage(70'000, 1, QImage::Format_RGB32), 0.8F).isEmpty());
}
