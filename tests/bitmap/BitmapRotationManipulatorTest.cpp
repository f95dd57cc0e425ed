#include "bitmap/BitmapRotationManipulator.h"

#include "bitmap/Pictures.h"

#include <limits>

using namespace Pictures;

TEST(BitmapRotationManipulatorTest, TurnsCounterClockwiseIntoTheBoundingBox)
{
    const struct {
        BMPoint picture;
        double degrees;
        BMPoint rotated, image; // sizes: rounded, and rounded up
        Corners corners;
    } cases[] = {
        {{100, 50}, 90, {50, 100}, {50, 100}, {green, white, red, blue}},
        {{100, 50}, -90, {50, 100}, {50, 100}, {blue, red, white, green}},
        {{100, 50}, 180, {100, 50}, {100, 50}, {white, blue, green, red}},
        {{60, 60}, 360, {60, 60}, {60, 60}, coloured},
        {{100, 100}, 45, {141, 141}, {142, 142}, {}},
        {{100, 40}, 30, {107, 85}, {107, 85}, {}},
    };
    for (const auto &[picture, degrees, rotated, rounded, expected] : cases) {
        SCOPED_TRACE(testing::Message() << degrees << " degrees");
        const auto rep = quartersRep(int(picture.x), int(picture.y));
        const QImage image = rep->imageByRotating(degrees);
        // A right angle in single precision is not quite one, so its box may round up by a pixel.
        EXPECT_NEAR(image.width(), double(rounded.x), degrees == 45 ? 0 : 1);
        EXPECT_NEAR(image.height(), double(rounded.y), degrees == 45 ? 0 : 1);
        EXPECT_EQ(rep->bitmapSize(), picture);
        rep->rotate(degrees);
        EXPECT_EQ(rep->bitmapSize(), rotated);
        EXPECT_EQ(corners(rep->CGImage(), 1), expected);
    }
}

TEST(BitmapRotationManipulatorTest, KeepsTheCentreInPlace)
{
    // Under 45 degrees the four quarters lie above, right of, below and left of the centre.
    const auto rep = quartersRep(100, 100);
    rep->rotate(45);
    const QImage image = rep->CGImage();
    const int centre = image.width() / 2;
    EXPECT_EQ(image.pixel(centre, 10), green);
    EXPECT_EQ(image.pixel(image.width() - 10, centre), white);
    EXPECT_EQ(image.pixel(centre, image.height() - 10), blue);
    EXPECT_EQ(image.pixel(10, centre), red);
    EXPECT_EQ(image.pixel(centre, centre - 4), green);
    EXPECT_EQ(image.pixel(centre + 4, centre), white);
}

TEST(BitmapRotationManipulatorTest, ZeroAndHopelessAngles)
{
    const auto rep = quartersRep(10, 10);
    const QImage before = rep->CGImage();
    rep->rotate(0.0);
    EXPECT_EQ(rep->CGImage().cacheKey(), before.cacheKey());
    EXPECT_EQ(rep->imageByRotating(0.0).cacheKey(), before.cacheKey());
    testing::internal::CaptureStderr();
    EXPECT_TRUE(rep->imageByRotating(std::numeric_limits<double>::quiet_NaN()).isNull());
    rep->rotate(std::numeric_limits<double>::infinity());
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    EXPECT_FALSE(rep->context());
}
