#include "chooser/ChooserLayout.h"

#include <gtest/gtest.h>

TEST(ChooserLayoutTest, FitsTheTwoPhones)
{
    for (const double height : {480.0, 568.0}) {
        const bool isTall = height == 568.0;
        const ChooserLayout layout = ChooserLayout::make(320.0, height);
        EXPECT_EQ(layout.cancelButton, QRectF(5, 20, 90, 40));
        EXPECT_EQ(layout.removeButton, QRectF(106, 20, 108, 40));
        EXPECT_EQ(layout.saveButton, QRectF(225, 20, 90, 40));
        EXPECT_EQ(layout.colorPatch, QRectF(0, 70, 320, 40));
        EXPECT_EQ(layout.hexTextField, QRectF(0, 0, 320, 40));
        EXPECT_EQ(layout.colorPicker,
                  isTall ? QRectF(5, 120, 310, 310) : QRectF(40, 120, 240, 240));
        EXPECT_EQ(layout.brightnessSlider,
                  isTall ? QRectF(2.5, 440, 315, 30) : QRectF(20, 370, 280, 30));
        EXPECT_EQ(layout.opacitySlider,
                  isTall ? QRectF(2.5, 480, 315, 30) : QRectF(20, 410, 280, 30));
        EXPECT_EQ(layout.quickButtons, QRectF(4, isTall ? 518 : 448, 310, 30));
        EXPECT_EQ(layout.contentHeight, height);
    }
}

TEST(ChooserLayoutTest, OtherScreensHaveTheSmallWheelInTheMiddle)
{
    const ChooserLayout wide = ChooserLayout::make(900.0, 700.0);
    EXPECT_EQ(wide.removeButton, QRectF(396, 20, 108, 40));
    EXPECT_EQ(wide.saveButton, QRectF(805, 20, 90, 40));
    EXPECT_EQ(wide.colorPicker, QRectF(330, 120, 240, 240));
    EXPECT_EQ(wide.brightnessSlider, QRectF(165, 370, 570, 30));
    EXPECT_EQ(wide.quickButtons.left(), 4.0);
    EXPECT_EQ(wide.contentHeight, 700.0);

    EXPECT_EQ(ChooserLayout::make(320.0, 240.0).contentHeight, 478.0); // and scrolls
}
