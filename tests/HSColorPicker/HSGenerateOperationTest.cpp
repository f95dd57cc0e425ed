#include "HSColorPicker/ColorPickerClasses/HSGenerateOperation.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{
std::shared_ptr<ANImageBitmapRep> generated(double diameter, double padding)
{
    const auto operation = HSGenerateOperation::initWithDiameter(diameter, padding);
    operation->start();
    operation->waitUntilFinished();
    return operation->bitmap();
}

TEST(HSGenerateOperationTest, ReportsItsProgress)
{
    const auto operation = HSGenerateOperation::initWithDiameter(8, 1);
    EXPECT_TRUE(operation->isExecuting()) << "also before the start";
    operation->main();
    EXPECT_TRUE(operation->isFinished());
}

TEST(HSGenerateOperationTest, DrawsTheWheel)
{
    const auto rep = generated(480, 22);
    ASSERT_EQ(rep->bitmapSize(), (BMPoint{480, 480}));
    const QImage image = rep->image();
    const struct {
        int x, y;
        QRgb colour;
    } cases[] = {
        {240, 240, 0xFFFFFFFF}, // the centre is white
        {479, 240, 0xFFFF0000}, // hue 0 to the right
        {0, 240, 0xFF00FFFF},   // hue 0.5 to the left
        {240, 0, 0xFF80FF00},   // hue 0.25 at the top
        {240, 479, 0xFF8000FF}, // hue 0.75 at the bottom
        {294, 240, 0xFFFFC0C0}, // a quarter of the way to the rim, 218 pixels out
        {21, 240, 0xFF00FFFF},  // beyond the rim nothing changes
        {23, 240, 0xFF01FFFF},
    };
    for (const auto &[x, y, colour] : cases)
        EXPECT_EQ(image.pixel(x, y), colour)
            << x << ", " << y << ": " << std::hex << image.pixel(x, y);
}

TEST(HSGenerateOperationTest, OddSizesEndWithoutABitmapOrWithAnEmptyOne)
{
    for (const double diameter : {0.0, 0.9, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(generated(diameter, 11), nullptr) << diameter;
    testing::internal::CaptureStderr();
    for (const double diameter : {-5.0, 1e9, std::numeric_limits<double>::infinity()}) {
        const auto rep = generated(diameter, 11);
        ASSERT_NE(rep, nullptr) << diameter;
        EXPECT_TRUE(rep->CGImage().isNull()) << diameter;
    }
    testing::internal::GetCapturedStderr();
}

TEST(HSGenerateOperationTest, WithoutARimEverythingIsSaturated)
{
    for (const int diameter : {1, 21, 22}) {
        const QImage image = generated(diameter, 11)->image();
        EXPECT_EQ(image.pixelColor(diameter / 2, diameter / 2).saturation(), 255) << diameter;
    }
    EXPECT_EQ(generated(22, 11)->image().pixel(11, 11), 0xFFFF0000) << "the centre has hue 0";
}

TEST(HSGenerateOperationTest, FractionalDiametersFillWholePixels)
{
    const auto rep = generated(100.5, 11);
    ASSERT_EQ(rep->bitmapSize(), (BMPoint{100, 100}));
    const QImage image = rep->image();
    EXPECT_EQ(image.pixel(99, 99) >> 24, 0xFFu);
    EXPECT_NEAR(qGreen(image.pixel(70, 50)), 255 * (1 - 19.75 / 39.25), 2);
}
} // namespace
