#include "bitmap/CGContext.h"

#include "bitmap/CGContextCreator.h"
#include "bitmap/Pictures.h"

using namespace Pictures;

TEST(CGContextTest, ShrinksWithoutAliasing)
{
    // Every eighth column is white: sampling would find all or none of it, an average an eighth.
    QImage stripes(800, 80, QImage::Format_ARGB32_Premultiplied);
    for (int i = 0; i < 800 * 80; ++i)
        stripes.setPixel(i % 800, i / 800, i % 8 == 0 ? white : 0xFF000000);
    for (const QSizeF size : {QSizeF(100, 80), QSizeF(99.5, 9.5)}) {
        CGContext context = CGContextCreator::newARGBBitmapContextWithSize({100, 80});
        context.drawImage(stripes, QRectF(QPointF(), size));
        const QImage image = context.makeImage();
        for (int x = 2; x < 97; ++x)
            EXPECT_NEAR(qRed(image.pixel(x, 75)), 32, 12) << x << " of " << size.width();
    }
}

TEST(CGContextTest, FirstDrawingIsTheSameWithoutSwaps)
{
    QImage motley(60, 40, QImage::Format_ARGB32_Premultiplied);
    for (int i = 0; i < 60 * 40; ++i)
        motley.setPixel(i % 60, i / 60, qPremultiply(qRgba(i / 10, i % 256, 77, 255 - i % 60)));
    const CGContext picture = CGContextCreator::newARGBBitmapContextWithImage(motley);
    for (const QRectF &rect : {QRectF(-7, 5, 60, 40), {2.25, 3.5, 30.5, 41}}) {
        CGContext first = CGContextCreator::newARGBBitmapContextWithSize({80, 60});
        CGContext ofImage = CGContextCreator::newARGBBitmapContextWithSize({80, 60});
        CGContext swapped = CGContextCreator::newARGBBitmapContextWithSize({80, 60});
        first.drawFirst(picture, rect, {});
        ofImage.drawFirst(motley, rect, {});
        swapped.drawImage(motley, rect);
        EXPECT_GT(coverage(swapped.makeImage()), 300.0);
        for (int i = 0; i < 80 * 60 * 4; ++i) {
            ASSERT_NEAR(first.data()[i], swapped.data()[i], 1) << "byte " << i;
            ASSERT_EQ(first.data()[i], ofImage.data()[i]) << "byte " << i;
        }
    }
}
