#include "HSColorPicker/ColorPickerClasses/HSColorPickerState.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

TEST(HSColorPickerStateTest, MapsPointsToHueAndSaturation)
{
    // A view of 240 points with a padding of 20: the disc's radius is 100.
    const struct {
        QPointF point, relative;
        double hue, saturation;
    } cases[] = {
        {{120, 120}, {0, 0}, 0, 0},
        {{170, 120}, {0.5, 0}, 0, 0.5},
        {{120, 20}, {0, 1}, 0.25, 1},
        {{70, 120}, {-0.5, 0}, 0.5, 0.5},
        {{120, 145}, {0, -0.25}, 0.75, 0.25},
        {{320, 120}, {2, 0}, 0, 1},
        {{180, 40}, {0.6, 0.8}, std::atan2(0.8, 0.6) / (2 * M_PI), 1},
    };
    for (const auto &[point, relative, hue, saturation] : cases) {
        SCOPED_TRACE(testing::Message() << point.x() << ", " << point.y());
        const auto state = HSColorPickerState::stateForPoint(point, 240, 20);
        EXPECT_DOUBLE_EQ(state.scaledRelativePoint().x(), relative.x());
        EXPECT_DOUBLE_EQ(state.scaledRelativePoint().y(), relative.y());
        EXPECT_DOUBLE_EQ(state.hue(), hue);
        EXPECT_DOUBLE_EQ(state.saturation(), saturation);
        EXPECT_EQ(state.brightness(), 1.0);
        EXPECT_EQ(state.alpha(), 1.0);
        const QPointF location = state.selectionLocationWithSize(240, 20);
        EXPECT_DOUBLE_EQ(location.x(), point.x()); // not clamped, beyond the rim as well
        EXPECT_DOUBLE_EQ(location.y(), point.y());
    }
}

TEST(HSColorPickerStateTest, ChangesOneValueAndKeepsTheOthers)
{
    const auto at = HSColorPickerState::initWithScaledRelativePoint;
    const auto state = at({0, 3}, 0.25, 0.5);
    EXPECT_EQ(state.stateBySettingBrightness(0.75), at({0, 3}, 0.75, 0.5));
    EXPECT_EQ(state.stateBySettingAlpha(1.5), at({0, 3}, 0.25, 1.5));

    const auto turned = state.stateBySettingHue(0.5);
    EXPECT_NEAR(turned.scaledRelativePoint().x(), -1.0, 1e-12) << "the saturation as read";
    EXPECT_EQ(turned.brightness(), 0.25);
    EXPECT_EQ(turned.alpha(), 0.5);

    const auto stretched = state.stateBySettingSaturation(2.0);
    EXPECT_NEAR(stretched.scaledRelativePoint().y(), 2.0, 1e-12);
    EXPECT_EQ(stretched.saturation(), 1.0);
}

TEST(HSColorPickerStateTest, TakesAnyNumbersAndKeepsTheHueBelowOne)
{
    const HSColorPickerState states[] = {
        HSColorPickerState::stateForPoint({notANumber, infinite}, 240, 11),
        HSColorPickerState::stateForPoint({5, 7}, 22, 11), // no disc at all
        HSColorPickerState::stateForPoint({11, 11}, 22, 11),
        HSColorPickerState::initWithHue(infinite, 1, notANumber, notANumber),
        HSColorPickerState::initWithHue(notANumber, 1, 1, 1),
        HSColorPickerState::initWithScaledRelativePoint({notANumber, notANumber}, 1, 1),
        HSColorPickerState::initWithScaledRelativePoint({1e308, -1e308}, 1, 1),
        HSColorPickerState::initWithScaledRelativePoint({1, -1e-17}, 1, 1), // nearly a full turn
        HSColorPickerState::initWithScaledRelativePoint({1, -5e-324}, 1, 1),
    };
    for (const HSColorPickerState &state : states) {
        EXPECT_TRUE(state.hue() >= 0.0 && state.hue() < 1.0);
        EXPECT_TRUE(state.saturation() >= 0.0 && state.saturation() <= 1.0);
        EXPECT_FALSE(std::isnan(state.brightness()) || std::isnan(state.alpha()));
        const QPointF location = state.selectionLocationWithSize(22, 11);
        EXPECT_FALSE(std::isnan(location.x()) || std::isnan(location.y()));
        EXPECT_EQ(state, state.stateBySettingAlpha(state.alpha()));
    }
}
