#include "color/LinearLight.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

TEST(LinearLight, FollowsTheStandardAndBringsEveryByteBack)
{
    for (int byte = 0; byte < 256; ++byte)
        EXPECT_EQ(srgbFromLinear(linearFromSrgb(quint8(byte))), byte);
    // Both pieces, and the bytes on either side of where they meet.
    EXPECT_FLOAT_EQ(linearFromSrgb(10), 10.0F / 255.0F / 12.92F);
    EXPECT_NEAR(linearFromSrgb(11), std::pow((11.0 / 255.0 + 0.055) / 1.055, 2.4), 1e-7);
    EXPECT_EQ(linearFromSrgb(255), 1.0F);
    EXPECT_EQ(srgbFromLinear(0.5F), 188); // half the light is not the middle byte
    EXPECT_EQ(srgbFromLinear(-3.0F), 0);
    EXPECT_EQ(srgbFromLinear(7.0F), 255);
    EXPECT_EQ(srgbFromLinear(std::numeric_limits<float>::quiet_NaN()), 0);
}
