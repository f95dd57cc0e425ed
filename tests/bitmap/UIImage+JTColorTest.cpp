#include "bitmap/Pictures.h"
#include "bitmap/UIImage+JTColor.h"

#include <cmath>

TEST(UIImageJTColorTest, KeepsTheColorsAlpha)
{
    const QImage image = imageWithColor(UIColor::colorWithRed(1.0, 0.2, 0.4, 2.0 / 255.0), 2.0);
    EXPECT_EQ(image.size(), QSize(2, 2));
    EXPECT_EQ(image.deviceIndependentSize(), QSizeF(1.0, 1.0));
    // Straight: premultiplied it would be lost.
    EXPECT_EQ(image.pixel(1, 1), qRgba(255, 51, 102, 2));
}

TEST(UIImageJTColorTest, FillsTheRectangleOnACanvasOfItsSize)
{
    const auto expectFilled = [](QRectF rect, double scale, QSize pixels, QRect filled) {
        const QImage image = imageWithColorRect(UIColor::blackColor(), rect, scale);
        ASSERT_EQ(image.size(), pixels) << rect.x();
        const double area = filled.width() * filled.height();
        EXPECT_EQ(Pictures::coverage(image), area) << rect.x() << " at scale " << scale;
        EXPECT_EQ(Pictures::coverage(image.copy(filled)), area) << rect.x();
    };
    expectFilled({10, 10, 24, 24}, 1.0, {24, 24}, {10, 10, 14, 14});
    expectFilled({10, 0, 24, 24}, 2.0, {48, 48}, {20, 0, 28, 48});
    expectFilled({-4, -4, 24, 24}, 1.0, {24, 24}, {0, 0, 20, 20});
    expectFilled({30, 0, 24, 24}, 1.0, {24, 24}, {});
    expectFilled({-30, 0, 24, 24}, 1.0, {24, 24}, {});
    expectFilled({0, 0, 640, 1136}, 1.1, {704, 1250}, {0, 0, 704, 1250});
    expectFilled({0, 0, 50, 50}, 1.1, {55, 55}, {0, 0, 55, 55});
    expectFilled({0, 0, 0.25, 0.25}, 1.0, {1, 1}, {});
}

TEST(UIImageJTColorTest, ImpossibleSizesGiveNoImage)
{
    for (const QRectF &rect : {QRectF(), QRectF(0, 0, -5, 5), QRectF(0, 0, 1e12, 1),
                               QRectF(0, 0, NAN, 5), QRectF(0, 0, 5, INFINITY)})
        EXPECT_TRUE(imageWithColorRect(UIColor::whiteColor(), rect, 2.0).isNull());
}
