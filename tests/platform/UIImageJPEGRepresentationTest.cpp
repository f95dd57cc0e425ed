#include "platform/UIImageJPEGRepresentation.h"

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
        const QImage decoded = decodedJpeg(UIImageJPEGRepresentation(image, 0.8F));
        EXPECT_EQ(decoded.size(), image.size()) << format;
        expectSolid(decoded, color, format == QImage::Format_RGB16 ? 8 : 2);
    }
}

TEST(UIImageJPEGRepresentationTest, AlphaIsIgnored)
{
    QImage image(16, 16, QImage::Format_ARGB32);
    for (const int alpha : {0, 1, 128, 255}) {
        image.fill(qRgba(10, 200, 30, alpha));
        expectSolid(decodedJpeg(UIImageJPEGRepresentation(image, 0.8F)), QColor(10, 200, 30), 2);
    }
}

TEST(UIImageJPEGRepresentationTest, BetterQualityCostsMoreBytes)
{
    QImage noise(64, 64, QImage::Format_RGB32);
    std::minstd_rand random(1);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            noise.setPixel(x, y, random() | 0xFF000000U);
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
