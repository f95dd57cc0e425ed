#include "bitmap/BitmapScaleManipulator.h"

#include "bitmap/Pictures.h"

using namespace Pictures;

TEST(BitmapScaleManipulatorTest, StretchesToAnySize)
{
    for (const BMPoint size : {BMPoint{5, 5}, {100, 40}, {250, 333}, {30, 300}}) {
        const auto rep = quartersRep(100, 100);
        rep->setSize(size);
        EXPECT_EQ(rep->bitmapSize(), size);
        EXPECT_EQ(corners(rep->CGImage()), coloured);
    }
}

TEST(BitmapScaleManipulatorTest, FitsOrFillsInProportion)
{
    enum Kind { Fitting, Filling };
    const struct {
        Kind kind;
        BMPoint picture, frame;
        QRect shown; // the whole picture, on the canvas
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
        const QRect visible = shown & image.rect();
        EXPECT_EQ(corners(image.copy(visible)), coloured);
        EXPECT_EQ(coverage(image), visible.width() * visible.height());
    }
}

TEST(BitmapScaleManipulatorTest, AnImpossibleSizeLeavesNoPicture)
{
    const auto rep = quartersRep(4, 4);
    testing::internal::CaptureStderr();
    rep->setSize({65536, 65537});
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(rep->CGImage().isNull());
    testing::internal::CaptureStderr();
    rep->setSizeFillingFrame({3, 3}); // from nothing: a canvas without a picture
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(rep->CGImage().pixel(1, 1), clear);
}
