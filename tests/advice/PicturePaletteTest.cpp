#include "advice/PicturePalette.h"

#include "color/OKLab.h"

#include <gtest/gtest.h>
#include <map>

namespace
{
/// A thousand pixels, the rest of them white.
PicturePalette paletteWith(const std::map<QRgb, int> &counts)
{
    std::vector<QRgb> pixels(1000, 0xFFFFFFFF);
    auto next = pixels.begin();
    for (const auto &[color, count] : counts)
        next = std::fill_n(next, count, color);
    return paletteOf(pixels);
}

std::vector<QRgb> colorsOf(const PicturePalette &palette)
{
    std::vector<QRgb> colors;
    for (const auto &candidate : palette.candidates)
        colors.push_back(candidate.color);
    return colors;
}

QRgb ofHue(double degrees, double lightness = 0.65)
{
    return rgbFromOklch({lightness, 0.11, degrees * 3.14159265358979 / 180.0});
}
} // namespace

TEST(PicturePalette, TakesHuesFarApartFirstAndNoTraces)
{
    // By their shares the second is the neighbour of the first; a trace of red is nothing.
    const QRgb green = ofHue(150), leaf = ofHue(130), blue = ofHue(260), trace = ofHue(20);
    const auto palette = paletteWith({{green, 400}, {leaf, 300}, {blue, 50}, {trace, 9}});
    EXPECT_EQ(colorsOf(palette), (std::vector{green, blue, leaf}));
    EXPECT_FALSE(palette.isGrey);
    EXPECT_EQ(palette.candidates[0].share, 0.4);
    EXPECT_EQ(colorsOf(paletteWith({{green, 400}, {trace, 10}})), (std::vector{green, trace}));
    // Of two with the same share the lively one; a hue's share is that of all its tones.
    const QRgb pale = rgbFromOklch({0.9, 0.035, 2.0});
    EXPECT_EQ(colorsOf(paletteWith({{pale, 200}, {blue, 200}})).at(0), blue);
    const QRgb dark = ofHue(262, 0.4);
    const auto tones = paletteWith({{blue, 200}, {dark, 190}, {green, 210}});
    EXPECT_EQ(colorsOf(tones), (std::vector{blue, green, dark}));
    EXPECT_DOUBLE_EQ(tones.candidates[0].share, 0.39);
    // Never more than six.
    std::map<QRgb, int> rainbow;
    for (int degrees = 0; degrees < 360; degrees += 20)
        rainbow[ofHue(degrees)] = 50;
    const auto six = paletteWith(rainbow).candidates;
    ASSERT_EQ(six.size(), 6U);
}

TEST(PicturePalette, OfGreyPicturesAreGreys)
{
    const QRgb sepia = rgbFromOklch({0.6, 0.02, 1.0});
    const auto palette = paletteWith({{0xFF404040, 300}, {0xFF4C4C4C, 200}, {sepia, 100}});
    EXPECT_TRUE(palette.isGrey);
    EXPECT_EQ(colorsOf(palette), (std::vector<QRgb>{0xFFFFFFFF, 0xFF404040, sepia}));
    EXPECT_TRUE(paletteWith({}).isGrey);
    EXPECT_TRUE(paletteOf({}).candidates.empty());
    EXPECT_FALSE(paletteOf({}).isGrey);
    // A speck of colour does not make it a coloured one, a small thing does.
    EXPECT_TRUE(paletteWith({{ofHue(30), 9}}).isGrey);
    EXPECT_FALSE(paletteWith({{ofHue(30), 10}}).isGrey);
}
