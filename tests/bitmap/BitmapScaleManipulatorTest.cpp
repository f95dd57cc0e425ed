#include "bitmap/BitmapScaleManipulator.h"

#include "bitmap/CGContextCreator.h"
#include "bitmap/Pictures.h"

using namespace Pictures;

TEST(BitmapScaleManipulatorTest, FitsOrFillsInProportion)
{
    // Shown is the whole picture, on the canvas.
    const std::tuple<bool, BMPoint, BMPoint, QRect> cases[] = {
        {false, {100, 100}, {200, 100}, {50, 0, 100, 100}},
        {true, {100, 100}, {200, 100}, {0, -50, 200, 200}},
        {false, {100, 50}, {100, 100}, {0, 25, 100, 50}},
        {true, {50, 100}, {100, 100}, {0, -50, 100, 200}},
    };
    for (const auto &[fills, picture, frame, shown] : cases) {
        const auto rep = quartersRep(int(picture.x), int(picture.y));
        fills ? rep->setSizeFillingFrame(frame) : rep->setSizeFittingFrame(frame);
        ASSERT_EQ(rep->bitmapSize(), frame);
        const QImage image = rep->CGImage();
        const QRect visible = shown & image.rect();
        EXPECT_EQ(corners(image.copy(visible)), coloured) << shown.x() << ", " << shown.y();
        EXPECT_EQ(coverage(image), visible.width() * visible.height());
    }
}

TEST(BitmapScaleManipulatorTest, AThirdInSinglePrecisionIsStillSharp)
{
    const auto rep = quartersRep(300, 300);
    rep->setSizeFittingFrame({100, 200});
    CGContext canvas = CGContextCreator::newARGBBitmapContextWithSize({100, 200});
    const double side = 300.0 * double(1.0f / 3.0f);
    canvas.drawFirst(quarters(300, 300), {50 - side / 2, 100 - side / 2, side, side}, {});
    EXPECT_EQ(rep->CGImage(), canvas.makeImage());
    EXPECT_GT(qRed(rep->CGImage().pixel(49, 99)), 250);
    EXPECT_GT(qGreen(rep->CGImage().pixel(50, 99)), 250);
}
