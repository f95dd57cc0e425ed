#include "bitmap/BitmapCropManipulator.h"

#include "bitmap/Pictures.h"

using namespace Pictures;

TEST(BitmapCropManipulatorTest, CutsFromTheCornerThatTheOperationNames)
{
    const std::tuple<QRectF, Corners, Corners> cases[] = {
        {{0, 0, 10, 10}, {blue, blue, blue, blue}, {red, red, red, red}},
        {{90, 0, 20, 10}, {white, clear, white, clear}, {green, clear, green, clear}},
        {{-5, -5, 10, 10}, {clear, blue, clear, clear}, {clear, clear, clear, red}},
        {{20, 30, 60, 60}, coloured, coloured},
    };
    for (const auto &[frame, fromBottom, fromTop] : cases) {
        const auto bottom = quartersRep(100, 100), top = quartersRep(100, 100);
        const QImage image = bottom->croppedImageWithFrame(frame);
        EXPECT_EQ(image.size(), frame.size().toSize());
        EXPECT_EQ(corners(image), fromBottom) << frame.x() << ", " << frame.y();
        EXPECT_EQ(bottom->bitmapSize(), (BMPoint{100, 100})) << "only the image is cropped";
        bottom->cropFrame(frame);
        EXPECT_EQ(bottom->CGImage(), image);
        top->cropTopFrame(frame);
        EXPECT_EQ(corners(top->CGImage()), fromTop) << frame.x() << ", " << frame.y();
    }
}

TEST(BitmapCropManipulatorTest, EllipseIsSmoothAndItsFrameRounded)
{
    const auto rep = quartersRep(100, 100);
    rep->cropTopEllipse(QRectF(19.6, 29.5, 60.4, 39.5)); // 20, 30, 60, 40
    const QImage image = rep->CGImage();
    ASSERT_EQ(image.size(), QSize(60, 40));
    EXPECT_EQ(image.pixel(29, 1), red);
    EXPECT_EQ(image.pixel(30, 1), green);
    EXPECT_EQ(image.pixel(1, 20), blue);
    EXPECT_NEAR(coverage(image), M_PI * 30 * 20, 10.0);
    EXPECT_NE(coverage(image), std::round(coverage(image))) << "hard edges cover whole pixels";
}
