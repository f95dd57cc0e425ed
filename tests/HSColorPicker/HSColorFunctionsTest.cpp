#include "HSColorPicker/ColorPickerClasses/HSColorFunctions.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

// The wheel's kernel computes all six sectors in another way, and is held against them.
TEST(HSColorFunctionsTest, PixelFromHSVTakesAnyBrightnessAndHue)
{
    const struct {
        double hue, saturation, brightness, red, green, blue;
    } cases[] = {
        {1.0, 1, 1, 1, 0, 0},           {1.25 / 6, 0.5, 0.8, 0.8 * 0.875, 0.8, 0.4},
        {-0.25 / 6, 1, 1, 1, -0.25, 0}, // truncated towards zero: still the first sector
        {6.25 / 6, 1, 1, 1, 0, 0.75},   // the last sector, and whatever lies beyond it
        {-2.25 / 6, 1, 1, 1, 0, 1.25},
    };
    for (const auto &[hue, saturation, brightness, red, green, blue] : cases) {
        const auto [r, g, b, alpha] = HSPixelFromHSV(hue, saturation, brightness);
        EXPECT_LT(std::abs(r - red) + std::abs(g - green) + std::abs(b - blue), 1e-12) << hue;
        EXPECT_EQ(alpha, 1.0);
    }
    for (const double hue : {1e300, std::nan("")})
        EXPECT_EQ(HSPixelFromHSV(hue, 1, 1).red, 1.0) << "the last sector";
}

TEST(HSColorFunctionsTest, ComponentsOfEveryKindOfColour)
{
    QImage tile(4, 4, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::transparent);
    const UIColor clear = UIColor::colorWithPatternImage(tile);
    tile.setPixel(0, 3, 0x80008000); // bottom left: green at half alpha
    const std::pair<UIColor, std::array<double, 4>> cases[] = {
        {UIColor::colorWithRed(0.1, 0.2, 0.3, 0.4), {0.1, 0.2, 0.3, 0.4}},
        {UIColor::colorWithWhite(0.7, 0.5), {0.7, 0.7, 0.7, 0.5}},
        {UIColor::colorWithPatternImage(tile), {0, 1, 0, 128 / 255.0}},
        {clear, {0, 0, 0, 0}},
    };
    for (const auto &[colour, expected] : cases) {
        double components[4] = {9, 9, 9, 9};
        HSGetComponentsForColor(components, colour);
        EXPECT_EQ(std::to_array(components), expected);
    }
}

TEST(HSColorFunctionsDeathTest, BackgroundTileNeedsASizeInEveryBuild)
{
    EXPECT_DEATH(HSOpacityBackgroundImage(std::nan(""), 2, UIColor::whiteColor()), "length > 0");
    EXPECT_DEATH(HSOpacityBackgroundImage(20, -1, UIColor::whiteColor()), "scale > 0");
}

TEST(HSColorFunctionsTest, RandomColoursDrawInOrder)
{
    const struct {
        bool opaque;
        std::vector<std::uint32_t> draws;
        UIColor::HSBA expected;
    } cases[] = {
        {true, {64, 0, 127}, {0.25, 0.5, 127 / 256.0 + 0.5, 1.0}},
        {false, {0xFFFFFF00u + 128, 128 + 64, 0, 0xFFFFFFFFu}, {0.5, 0.75, 0.5, 127 / 256.0 + 0.5}},
    };
    for (const auto &[opaque, draws, expected] : cases) {
        std::size_t drawn = 0;
        const UIColor colour = HSRandomColorOpaque(opaque, [&] { return draws.at(drawn++); });
        EXPECT_EQ(drawn, draws.size());
        const UIColor::HSBA actual = *colour.getHue();
        EXPECT_NEAR(actual.hue, expected.hue, 1e-12);
        EXPECT_NEAR(actual.saturation, expected.saturation, 1e-12);
        EXPECT_NEAR(actual.brightness, expected.brightness, 1e-12);
        EXPECT_EQ(actual.alpha, expected.alpha);
    }
    const HSRandomSource random = HSSystemRandomSource();
    EXPECT_TRUE(random() != random() || random() != random());
}
