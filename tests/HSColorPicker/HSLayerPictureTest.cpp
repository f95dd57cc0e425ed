#include "HSColorPicker/ColorPickerClasses/HSLayerPicture.h"

#include <gtest/gtest.h>

TEST(HSLayerPictureTest, HasRoomForPartsOfPixels)
{
    const QImage picture = HSLayerPicture(QBrush(Qt::red), {10.125, 4.75}, 2.0, 0.0);
    ASSERT_EQ(picture.size(), QSize(21, 10));
    EXPECT_EQ(picture.pixel(19, 8), qRgb(255, 0, 0));
    EXPECT_NEAR(qAlpha(picture.pixel(20, 8)), 64, 2) << "a quarter of a pixel";
    EXPECT_NEAR(qAlpha(picture.pixel(19, 9)), 128, 2);
}
