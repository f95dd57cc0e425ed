#include "color/OKLab.h"

#include <cmath>
#include <gtest/gtest.h>

TEST(OKLab, HasThePublishedPlacesAndReturnsEveryColor)
{
    const struct {
        QRgb color;
        OKLab place;
    } published[] = {
        {0xFFFFFFFF, {1.0, 0.0, 0.0}},         {0xFF000000, {0.0, 0.0, 0.0}},
        {0xFFFF0000, {0.628, 0.225, 0.126}},   {0xFF00FF00, {0.866, -0.234, 0.179}},
        {0xFF0000FF, {0.452, -0.032, -0.312}},
    };
    for (const auto &[color, place] : published)
        EXPECT_LT(distanceBetween(oklabFromRgb(color), place), 0.001) << std::hex << color;
    for (int grey = 0; grey < 256; ++grey)
        EXPECT_LT(oklchFromOklab(oklabFromRgb(qRgb(grey, grey, grey))).chroma, 1e-6) << grey;
    for (int red = 0; red < 256; red += 3)
        for (int green = 0; green < 256; green += 3)
            for (int blue = 0; blue < 256; blue += 3) {
                const QRgb color = qRgb(red, green, blue);
                const OKLab place = oklabFromRgb(color);
                ASSERT_EQ(rgbFromOklab(place), color);
                ASSERT_EQ(rgbFromOklch(oklchFromOklab(place)), color);
            }
}

TEST(OKLab, FitsIntoWhatAScreenShowsByLessChromaAlone)
{
    for (double lightness = 0.1; lightness < 0.95; lightness += 0.05)
        for (double hue = -3.1; hue < 3.1; hue += 0.1) {
            const OKLCh fitted = oklchFromOklab(oklabFromRgb(rgbFromOklch({lightness, 0.4, hue})));
            EXPECT_NEAR(fitted.lightness, lightness, 0.005) << hue;
            EXPECT_NEAR(std::remainder(fitted.hue - hue, 2.0 * M_PI) * fitted.chroma, 0.0, 0.006)
                << lightness << ", " << hue;
            // There is no more: a little beyond, a channel is cut off and the colour another one.
            const OKLab beyond = oklabFromOklch({lightness, fitted.chroma + 0.01, hue});
            EXPECT_GT(distanceBetween(oklabFromRgb(rgbFromOklab(beyond)), beyond), 1e-3)
                << lightness << ", " << hue;
        }
    EXPECT_EQ(rgbFromOklch({0.0, 0.3, 1.0}), 0xFF000000);
    EXPECT_EQ(rgbFromOklch({1.0, 0.3, 1.0}), 0xFFFFFFFF);
}
