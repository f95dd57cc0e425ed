#include "color/ColorVision.h"

#include <gtest/gtest.h>

namespace
{
constexpr Eyes others[] = {Eyes::Protan, Eyes::Deutan, Eyes::Tritan, Eyes::Grey};

void expectNear(QRgb one, QRgb other, int tolerance)
{
    EXPECT_TRUE(std::abs(qRed(one) - qRed(other)) <= tolerance &&
                std::abs(qGreen(one) - qGreen(other)) <= tolerance &&
                std::abs(qBlue(one) - qBlue(other)) <= tolerance)
        << std::hex << one << " and " << other;
}
} // namespace

TEST(ColorVision, GreysStayAndWhatWasSeenOnceLooksTheSameAgain)
{
    for (const Eyes eyes : others) {
        SCOPED_TRACE(int(eyes));
        for (int grey = 0; grey < 256; ++grey)
            EXPECT_EQ(seenBy(eyes, qRgba(grey, grey, grey, grey)), qRgba(grey, grey, grey, grey));
        // Each is a projection: that ties the numbers of a matrix to one another. The colours keep
        // away from the ends, where what cannot be shown is cut off.
        for (int red = 100; red <= 180; red += 20)
            for (int green = 100; green <= 180; green += 20)
                for (int blue = 100; blue <= 180; blue += 20) {
                    const QRgb once = seenBy(eyes, qRgb(red, green, blue));
                    expectNear(seenBy(eyes, once), once, 1);
                }
    }
}

TEST(ColorVision, SeesThePublishedColors)
{
    const struct {
        Eyes eyes;
        QRgb red, green, blue;
    } published[] = {
        // The columns of the matrices, cut off at the ends and encoded.
        {Eyes::Normal, 0xFFFF0000, 0xFF00FF00, 0xFF0000FF},
        {Eyes::Protan, 0xFF5E5E0D, 0xFFF2F200, 0xFF0000FF},
        {Eyes::Deutan, 0xFF939300, 0xFFDBDB29, 0xFF0000FF},
        {Eyes::Tritan, 0xFFFF004E, 0xFF79E9FF, 0xFF006288},
        {Eyes::Grey, 0xFF7F7F7F, 0xFFDCDCDC, 0xFF4C4C4C},
    };
    for (const auto &[eyes, red, green, blue] : published) {
        SCOPED_TRACE(int(eyes));
        expectNear(seenBy(eyes, 0xFFFF0000), red, 1);
        expectNear(seenBy(eyes, 0xFF00FF00), green, 1);
        expectNear(seenBy(eyes, 0xFF0000FF), blue, 1);
    }
}

TEST(ColorVision, APictureIsSeenPixelByPixel)
{
    QImage picture(3, 2, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(2.0);
    picture.fill(0xFFFF8A2B);
    picture.setPixelColor(1, 0, QColor::fromRgba(0x80FF0000));
    picture.setPixelColor(2, 1, QColor::fromRgba(0x00000000));
    const QImage straight = picture.convertToFormat(QImage::Format_ARGB32);
    for (const Eyes eyes : others) {
        const QImage seen = seenBy(eyes, picture);
        ASSERT_EQ(seen.size(), picture.size());
        EXPECT_EQ(seen.devicePixelRatio(), 2.0);
        for (int x = 0; x < 3; ++x)
            for (int y = 0; y < 2; ++y)
                EXPECT_EQ(seen.pixel(x, y), seenBy(eyes, straight.pixel(x, y))) << x << "," << y;
    }
    EXPECT_EQ(seenBy(Eyes::Normal, picture), picture);
    EXPECT_FALSE(
        seenBy(Eyes::Grey, picture.convertToFormat(QImage::Format_RGB888)).hasAlphaChannel());
    EXPECT_TRUE(seenBy(Eyes::Grey, QImage()).isNull());
}
