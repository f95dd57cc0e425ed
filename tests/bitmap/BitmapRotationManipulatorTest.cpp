#include "bitmap/BitmapRotationManipulator.h"

#include "bitmap/Pictures.h"

using namespace Pictures;

TEST(BitmapRotationManipulatorTest, TurnsCounterClockwise)
{
    const std::tuple<double, QSize, Corners> cases[] = {
        {90, {50, 100}, {green, white, red, blue}},
        {-90, {50, 100}, {blue, red, white, green}},
        {180, {100, 50}, {white, blue, green, red}},
    };
    for (const auto &[degrees, rotated, expected] : cases) {
        const auto rep = quartersRep(100, 50);
        rep->rotate(degrees);
        EXPECT_EQ(rep->CGImage().size(), rotated) << degrees << " degrees";
        EXPECT_EQ(corners(rep->CGImage(), 1), expected) << degrees << " degrees";
    }
    testing::internal::CaptureStderr();
    EXPECT_TRUE(quartersRep(4, 4)->imageByRotating(std::nan("")).isNull());
    testing::internal::GetCapturedStderr();
}

void expectTurned(const QImage &image, QSize size, QPointF expectedMiddle)
{
    EXPECT_EQ(image.size(), size);
    QPointF middle; // from the bottom left
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            middle += qAlpha(image.pixel(x, y)) * QPointF(x + 0.5, image.height() - y - 0.5);
    middle /= 255.0 * coverage(image);
    EXPECT_NEAR(middle.x(), expectedMiddle.x(), 0.05);
    EXPECT_NEAR(middle.y(), expectedMiddle.y(), 0.05);
}

// The middles that the rounding of canvas, picture and turned origin to whole pixels leads to.
TEST(BitmapRotationManipulatorTest, PlacesTheTurnedPictureOnWholePixels)
{
    const auto rep = quartersRep(100, 40), other = quartersRep(100, 40);
    expectTurned(rep->imageByRotating(33), {106, 89}, {52.941, 44.606}); // of 105.65 x 88.01
    rep->rotate(33);
    expectTurned(rep->CGImage(), {106, 88}, {52.485, 43.767});
    expectTurned(other->imageByRotating(20), {108, 72}, {54.431, 36.298}); // of 107.65 x 71.79
    other->rotate(20);
    expectTurned(other->CGImage(), {108, 72}, {54.431, 36.298});
}
