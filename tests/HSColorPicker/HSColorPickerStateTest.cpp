#include "HSColorPicker/ColorPickerClasses/HSColorPickerState.h"

#include <cmath>
#include <gtest/gtest.h>

TEST(HSColorPickerStateTest, MapsPointsToHueAndSaturation)
{
    const std::tuple<QPointF, double, double> cases[] = {
        {{120, 120}, 0, 0},
        {{170, 120}, 0, 0.5},
        {{120, 20}, 0.25, 1},
        {{70, 120}, 0.5, 0.5},
        {{320, 120}, 0, 1},
        {{120, 145}, 0.75, 0.25},
        {{50, 50}, 0.375, 0.7 * std::sqrt(2)},
        {{220, std::nextafter(120, 121)}, 0, 1}, // nearly a full turn
    };
    for (const auto &[point, hue, saturation] : cases) {
        SCOPED_TRACE(testing::Message() << point.x() << ", " << point.y());
        const auto state = HSColorPickerState::stateForPoint(point, 240, 20); // a radius of 100
        EXPECT_DOUBLE_EQ(state.hue(), hue);
        EXPECT_DOUBLE_EQ(state.saturation(), saturation);
        EXPECT_EQ(std::pair(state.brightness(), state.alpha()), std::pair(1.0, 1.0));
        const QPointF location = state.selectionLocationWithSize(240, 20);
        EXPECT_NEAR(std::hypot(location.x() - point.x(), location.y() - point.y()), 0.0, 1e-12)
            << "not clamped, beyond the rim as well";
    }
}

TEST(HSColorPickerStateTest, ChangesOneValueAndKeepsTheOthers)
{
    const auto at = HSColorPickerState::initWithScaledRelativePoint;
    const auto state = at({0, 3}, 0.25, 0.5);
    EXPECT_EQ(state.stateBySettingBrightness(0.75), at({0, 3}, 0.75, 0.5));
    EXPECT_EQ(state.stateBySettingAlpha(1.5), at({0, 3}, 0.25, 1.5));
    EXPECT_EQ(state.stateBySettingHue(0.0), at({1, 0}, 0.25, 0.5)) << "the saturation as read";
    EXPECT_EQ(at({INFINITY, -INFINITY}, 1, 1).selectionLocationWithSize(40, 20), QPointF(20, 20))
        << "nowhere, on a wheel without a radius";
    EXPECT_NEAR(state.stateBySettingSaturation(2.0).scaledRelativePoint().y(), 2.0, 1e-12);
}
