#include "bitmap/Pictures.h"
#include "bitmap/UIImage+ANImageBitmapRep.h"

using namespace Pictures;

TEST(UIImageANImageBitmapRepTest, ResizesPixelsInThreeWays)
{
    QImage image = quarters(40, 40);
    image.setDevicePixelRatio(2.0); // which counts for nothing
    const QSizeF size(79.5, 40.4);  // rounds to 80 x 40
    const QImage scaled = imageByScalingToSize(image, size);
    const QImage fitting = imageFittingFrame(image, size);
    const QImage filling = imageFillingFrame(image, size);
    for (const QImage &result : {scaled, fitting, filling}) {
        EXPECT_EQ(result.size(), QSize(80, 40));
        EXPECT_EQ(result.devicePixelRatio(), 1.0);
    }
    EXPECT_EQ(corners(scaled), coloured);
    EXPECT_EQ(corners(fitting), Corners{});
    EXPECT_EQ(fitting.pixel(20, 0), red);
    EXPECT_EQ(corners(filling), coloured);
    EXPECT_EQ(filling.pixel(0, 17), red) << "the picture's middle is the canvas's";
    EXPECT_EQ(filling.pixel(0, 22), blue);
}
