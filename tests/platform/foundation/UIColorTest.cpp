#include "platform/foundation/UIColor.h"

#include <cmath>
#include <gtest/gtest.h>

TEST(UIColorTest, HueAndBack)
{
    const std::tuple<UIColor::RGBA, double, double, double> cases[] = {
        {{1, 0, 0, 1}, 0, 1, 1},         {{1, 1, 0, .5}, 1, 1, 1},    {{0, 1, 0, 1}, 2, 1, 1},
        {{0, 1, 1, 1}, 3, 1, 1},         {{0, 0, 1, 1}, 4, 1, 1},     {{1, 0, 1, 1}, 5, 1, 1},
        {{.2, .4, .3, .5}, 2.5, .5, .4}, {{.5, .5, .5, 1}, 0, 0, .5}, {{0, 0, 0, 1}, 0, 0, 0},
    };
    for (const auto &[rgba, sixths, saturation, brightness] : cases) {
        const double hue = sixths / 6.0;
        const auto made = UIColor::colorWithRed(rgba.red, rgba.green, rgba.blue, rgba.alpha);
        EXPECT_EQ(made.getRed(), rgba);
        const auto hsba = made.getHue().value();
        EXPECT_DOUBLE_EQ(hsba.hue, hue);
        EXPECT_DOUBLE_EQ(hsba.saturation, saturation);
        EXPECT_DOUBLE_EQ(hsba.brightness, brightness);
        EXPECT_EQ(hsba.alpha, rgba.alpha);
        const auto back =
            UIColor::colorWithHue(hue, saturation, brightness, rgba.alpha).components();
        EXPECT_NEAR(back.red, rgba.red, 1e-15);
        EXPECT_NEAR(back.green, rgba.green, 1e-15);
        EXPECT_NEAR(back.blue, rgba.blue, 1e-15);
    }
    // The full turn is red again, and no red's hue reads as the full turn.
    EXPECT_EQ(UIColor::colorWithHue(1.0, 1.0, 1.0, 1.0).components(), (UIColor::RGBA{1, 0, 0, 1}));
    EXPECT_LT(UIColor::colorWithRed(1.0, 0.0, 1e-17, 1.0).getHue()->hue, 1.0);
}

TEST(UIColorTest, AColorHasComponentsInRangeWhateverItsModel)
{
    EXPECT_EQ(UIColor::colorWithWhite(0.25, 0.5).components(), (UIColor::RGBA{.25, .25, .25, .5}));
    EXPECT_EQ(UIColor::colorWithRed(-1.0, 2.0, NAN, INFINITY).components(),
              (UIColor::RGBA{0.0, 1.0, 0.0, 1.0}));
    const UIColor pattern = UIColor::colorWithPatternImage(QImage(2, 3, QImage::Format_ARGB32));
    EXPECT_FALSE(pattern.getRed() || pattern.getWhite() || pattern.getHue());
    EXPECT_EQ(pattern.components(), (UIColor::RGBA{0.0, 0.0, 0.0, 0.0}));
}
