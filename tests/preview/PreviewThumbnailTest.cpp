#include "preview/PreviewThumbnail.h"

#include <gtest/gtest.h>

namespace
{
/// A pixel at a point of the picture.
QColor at(const QImage &picture, double x, double y)
{
    const double scale = picture.width() / previewThumbnailSide;
    return picture.pixelColor(int(x * scale), int(y * scale));
}

PreviewPalette palette(QRgb bar, QRgb ground, QRgb gray, QRgb green, QRgb blue)
{
    using enum PreviewElement;
    PreviewPalette palette;
    const std::pair<PreviewElement, QRgb> colors[] = {{NavigationBar, bar},
                                                      {ConversationBackground, ground},
                                                      {GrayBalloon1, gray},
                                                      {GreenBalloon1, green},
                                                      {BlueBalloon1, blue}};
    for (const auto &[element, color] : colors)
        palette.colors[size_t(element)] = color;
    return palette;
}
} // namespace

TEST(PreviewThumbnail, ShowsTheColorsAndCornersOfTheTheme)
{
    PreviewPalette theme = palette(0xFF102030, 0xFFF0E0D0, 0xFFA0A0A0, 0xFF30C040, 0xFF3050E0);
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        const QImage picture = previewThumbnail(theme, scale);
        EXPECT_EQ(picture.size(), QSize(36, 36) * scale);
        EXPECT_EQ(picture.devicePixelRatio(), 1.0);
        EXPECT_EQ(at(picture, 5.0, 3.0), QColor(0x10, 0x20, 0x30));
        EXPECT_EQ(at(picture, 5.0, 21.0), QColor(0xF0, 0xE0, 0xD0));
        EXPECT_EQ(at(picture, 21.0, 12.5), QColor(0xA0, 0xA0, 0xA0));
        EXPECT_EQ(at(picture, 28.0, 21.0), QColor(0x30, 0xC0, 0x40));
        EXPECT_EQ(at(picture, 28.0, 30.0), QColor(0x30, 0x50, 0xE0));
        EXPECT_EQ(at(picture, 0.0, 0.0).alpha(), at(picture, 35.9, 35.9).alpha());
        EXPECT_LT(at(picture, 0.0, 0.0).alpha(), 128);
    }
    const QImage round = previewThumbnail(theme, 2.0);
    theme.corners = PreviewPalette::Corners::Square;
    const QImage square = previewThumbnail(theme, 2.0);
    EXPECT_GT(at(round, 8.0, 18.0).red(), 0xD0); // the ground, beside the green balloon
    EXPECT_LT(at(square, 8.0, 18.0).red(), 0x80);
}

TEST(PreviewThumbnail, KeepsItsShapeWhateverIsRemovedOrTransparent)
{
    // On the phone, too, what is transparent shows what lies behind it.
    const QImage clear =
        previewThumbnail(palette(0x00000000, 0xFFF0E0D0, 0x00000000, 0x80000000, 0xFF3050E0), 2.0);
    EXPECT_EQ(at(clear, 5.0, 3.0), QColor(0xF0, 0xE0, 0xD0));
    EXPECT_NEAR(at(clear, 28.0, 21.0).red(), 0xF0 / 2, 2);
    const QImage removed = previewThumbnail(PreviewPalette(), 2.0);
    for (double y = 8.0; y < 34.0; y += 1.0)
        EXPECT_EQ(at(removed, 18.0, y).alpha(), 255);
    EXPECT_NE(at(removed, 28.0, 21.0), at(removed, 5.0, 21.0));
}
