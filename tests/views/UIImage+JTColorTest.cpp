#include "bitmap/Pictures.h"
#include "views/UIImage+JTColor.h"

#include <cmath>

TEST(UIImageJTColorTest, KeepsTheColorsAlpha)
{
    const UIColor color = UIColor::colorWithRed(1.0, 0.2, 0.4, 2.0 / 255.0);
    const QImage image = imageWithColor(color, 2.0);
    EXPECT_EQ(image.size(), QSize(2, 2));
    EXPECT_EQ(image.deviceIndependentSize(), QSizeF(1.0, 1.0));
    EXPECT_EQ(image.pixel(1, 1),
              qRgba(255, 51, 102, 2)); // straight: premultiplied it would be lost
}

TEST(UIImageJTColorTest, FillsTheRectangleOnACanvasOfItsSize)
{
    const UIColor color = UIColor::blackColor();
    const struct {
        QRectF rect;
        double scale;
        QSize pixels;
        QRect filled;
    } cases[] = {
        {{0, 0, 24, 24}, 2.0, {48, 48}, {0, 0, 48, 48}},
        {{10, 10, 24, 24}, 1.0, {24, 24}, {10, 10, 14, 14}},
        {{10, 0, 24, 24}, 2.0, {48, 48}, {20, 0, 28, 48}},
        {{-4, -4, 24, 24}, 1.0, {24, 24}, {0, 0, 20, 20}},
        {{30, 0, 24, 24}, 1.0, {24, 24}, {}},
        {{-30, 0, 24, 24}, 1.0, {24, 24}, {}},
        {{0, 0, 640, 1136}, 1.1, {704, 1250}, {0, 0, 704, 1250}},
        {{0, 0, 0.25, 0.25}, 1.0, {1, 1}, {}},
    };
    for (const auto &[rect, scale, pixels, filled] : cases) {
        const QImage image = imageWithColorRect(color, rect, scale);
        ASSERT_EQ(image.size(), pixels) << rect.x();
        const double area = filled.width() * filled.height();
        EXPECT_EQ(Pictures::coverage(image), area) << rect.x() << " at scale " << scale;
        EXPECT_EQ(Pictures::coverage(image.copy(filled)), area) << rect.x();
    }
}

TEST(UIImageJTColorTest, ImpossibleSizesGiveNoImage)
{
    for (const QRectF &rect : {QRectF(), QRectF(0, 0, -5, 5), QRectF(0, 0, 1e12, 1),
                               QRectF(0, 0, NAN, 5), QRectF(0, 0, 5, INFINITY)})
        EXPECT_TRUE(imageWithColorRect(UIColor::whiteColor(), rect, 2.0).isNull());
}
