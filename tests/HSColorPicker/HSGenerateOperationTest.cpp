#include "HSColorPicker/ColorPickerClasses/HSGenerateOperation.h"

#include <cmath>
#include <gtest/gtest.h>

namespace
{
std::shared_ptr<ANImageBitmapRep> generated(double diameter, double padding)
{
    const auto operation = HSGenerateOperation::initWithDiameter(diameter, padding);
    EXPECT_TRUE(operation->isExecuting()) << "also before the start";
    operation->start();
    operation->waitUntilFinished();
    return operation->bitmap();
}

TEST(HSGenerateOperationTest, DrawsTheWheel)
{
    const QImage image = generated(480, 22)->image();
    const std::pair<QPoint, QRgb> cases[] = {
        {{240, 240}, 0xFFFFFFFF}, // the centre is white
        {{479, 240}, 0xFFFF0000}, // hue 0 to the right
        {{0, 240}, 0xFF00FFFF},   // hue 0.5 to the left
        {{240, 0}, 0xFF80FF00},   // hue 0.25 at the top
        {{240, 479}, 0xFF8000FF}, // hue 0.75 at the bottom
        {{294, 240}, 0xFFFFC0C0}, // a quarter of the way to the rim, 218 pixels out
        {{23, 240}, 0xFF01FFFF},  // the last before it
    };
    for (const auto &[point, colour] : cases)
        EXPECT_EQ(image.pixel(point), colour) << point.x() << ", " << point.y();
}

TEST(HSGenerateOperationTest, OddSizes)
{
    EXPECT_EQ(generated(std::nan(""), 11), nullptr);
    testing::internal::CaptureStderr();
    EXPECT_TRUE(generated(1e9, 11)->CGImage().isNull());
    testing::internal::GetCapturedStderr();
    const QImage fractional = generated(100.5, 11)->image(); // of whole pixels
    ASSERT_EQ(fractional.size(), QSize(100, 100));
    EXPECT_NEAR(qGreen(fractional.pixel(70, 50)), 255 * (1 - 19.75 / 39.25), 2);
}
} // namespace
