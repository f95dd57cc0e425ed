#include "bitmap/BitmapScaleManipulator.h"

#include "bitmap/Pictures.h"

#include <gtest/gtest.h>

namespace
{
using namespace Pictures;

TEST(BitmapScaleManipulatorTest, StretchesToAnySize)
{
    for (const BMPoint size :
         {BMPoint{5, 5}, BMPoint{100, 40}, BMPoint{250, 333}, BMPoint{30, 300}}) {
        const auto rep = quartersRep(100, 100);
        rep->setSize(size);
        EXPECT_EQ(rep->bitmapSize(), size);
        EXPECT_EQ(corners(rep->CGImage()), (std::array<QRgb, 4>{red, green, blue, white}));
    }
}

TEST(BitmapScaleManipulatorTest, FitsOrFillsInProportion)
{
    enum Kind { Fitting, Filling };
    const struct {
        Kind kind;
        BMPoint picture, frame;
        QRect shown; // the picture on the canvas, measured from the bottom left
    } cases[] = {
        {Fitting, {100, 100}, {200, 100}, {50, 0, 100, 100}},
        {Filling, {100, 100}, {200, 100}, {0, -50, 200, 200}},
        {Fitting, {100, 50}, {100, 100}, {0, 25, 100, 50}},
        {Filling, {50, 100}, {100, 100}, {0, -50, 100, 200}},
        {Fitting, {100, 100}, {50, 50}, {0, 0, 50, 50}},
    };
    for (const auto &[kind, picture, frame, shown] : cases) {
        SCOPED_TRACE(testing::Message() << picture.x << 'x' << picture.y << " to " << frame.x << 'x'
                                        << frame.y << (kind == Fitting ? " fitting" : " filling"));
        const auto rep = quartersRep(int(picture.x), int(picture.y));
        kind == Fitting ? rep->setSizeFittingFrame(frame) : rep->setSizeFillingFrame(frame);
        ASSERT_EQ(rep->bitmapSize(), frame);
        const QImage image = rep->CGImage();
        const auto at = [&](int x, int fromBottom) {
            return image.pixel(x, image.height() - 1 - fromBottom);
        };
        const QRect visible = shown & image.rect();
        EXPECT_EQ(at(visible.left(), visible.top()), blue);
        EXPECT_EQ(at(visible.right(), visible.top()), white);
        EXPECT_EQ(at(visible.left(), visible.bottom()), red);
        EXPECT_EQ(at(visible.right(), visible.bottom()), green);
        if (shown.left() > 0) {
            EXPECT_EQ(at(shown.left() - 1, 0), clear);
            EXPECT_EQ(at(shown.right() + 1, 0), clear);
        }
        if (shown.top() > 0) {
            EXPECT_EQ(at(0, shown.top() - 1), clear);
            EXPECT_EQ(at(0, shown.bottom() + 1), clear);
        }
    }
}

TEST(BitmapScaleManipulatorTest, ImpossibleSizesLeaveNoPicture)
{
    for (const BMPoint size : {BMPoint{0, 10}, BMPoint{-4, 10}, BMPoint{65536, 65537}}) {
        const auto rep = quartersRep(4, 4);
        testing::internal::CaptureStderr();
        rep->setSize(size);
        EXPECT_NE(testing::internal::GetCapturedStderr(), "");
        EXPECT_FALSE(rep->context());
        EXPECT_TRUE(rep->CGImage().isNull());
        testing::internal::CaptureStderr();
        rep->setSizeFillingFrame({3, 3}); // from nothing: a canvas without a picture
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(rep->CGImage().pixel(1, 1), clear);
    }
}
} // namespace
