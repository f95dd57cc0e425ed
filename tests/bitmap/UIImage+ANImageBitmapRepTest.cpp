#include "bitmap/Pictures.h"
#include "bitmap/UIImage+ANImageBitmapRep.h"

#include <gtest/gtest.h>

namespace
{
using namespace Pictures;

TEST(UIImageANImageBitmapRepTest, GoesThroughARepAndBack)
{
    QImage image = quarters(10, 6);
    image.setDevicePixelRatio(2.0);
    const auto rep = imageBitmapRep(image);
    EXPECT_EQ(rep->bitmapSize(), (BMPoint{10, 6})) << "pixels, whatever the scale";
    EXPECT_EQ(imageFromImageBitmapRep(*rep), quarters(10, 6));
    EXPECT_EQ(imageFromImageBitmapRep(*rep).devicePixelRatio(), 1.0);
}

TEST(UIImageANImageBitmapRepTest, ResizesInThreeWays)
{
    const QImage image = quarters(40, 40);
    const QSizeF size(79.5, 40.4); // rounds to 80 x 40
    const QImage scaled = imageByScalingToSize(image, size);
    const QImage fitting = imageFittingFrame(image, size);
    const QImage filling = imageFillingFrame(image, size);
    for (const QImage &result : {scaled, fitting, filling})
        EXPECT_EQ(result.size(), QSize(80, 40));
    EXPECT_EQ(corners(scaled), (std::array<QRgb, 4>{red, green, blue, white}));
    EXPECT_EQ(corners(fitting), (std::array<QRgb, 4>{}));
    EXPECT_EQ(fitting.pixel(20, 0), red);
    EXPECT_EQ(corners(filling), (std::array<QRgb, 4>{red, green, blue, white}));
    EXPECT_EQ(filling.pixel(0, 17), red) << "the picture's middle is the canvas's";
    EXPECT_EQ(filling.pixel(0, 22), blue);

    testing::internal::CaptureStderr();
    EXPECT_TRUE(imageByScalingToSize(image, QSizeF(0.2, 10)).isNull());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed to create bitmap!\n");
}
} // namespace
