#include "bitmap/CGContext.h"

#include "bitmap/CGContextCreator.h"
#include "bitmap/Pictures.h"

#include <limits>

using namespace Pictures;

TEST(CGContextTest, ShrinksWithoutAliasing)
{
    // Every eighth column is white: sampling would find all or none of it, an average an eighth.
    QImage stripes(800, 80, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < stripes.height(); ++y)
        for (int x = 0; x < stripes.width(); ++x)
            stripes.setPixel(x, y, x % 8 == 0 ? white : 0xFF000000);
    for (const QSizeF size : {QSizeF(100, 10), QSizeF(100, 80), QSizeF(99.5, 9.5)}) {
        SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height());
        CGContext context = CGContextCreator::newARGBBitmapContextWithSize({100, 80});
        context.drawImage(stripes, QRectF(QPointF(), size));
        const QImage image = context.makeImage();
        for (int x = 2; x < 97; ++x)
            EXPECT_NEAR(qRed(image.pixel(x, 75)), 32, 12) << x;
    }
}

TEST(CGContextTest, FirstDrawingIsTheSameWithoutSwaps)
{
    QImage motley(60, 40, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < motley.height(); ++y)
        for (int x = 0; x < motley.width(); ++x)
            motley.setPixel(x, y, qPremultiply(qRgba(4 * x, 6 * y, 255 - 4 * x, 255 - 3 * x)));
    const CGContext picture = CGContextCreator::newARGBBitmapContextWithImage(motley);
    for (const QRectF &rect : {QRectF(0, 0, 60, 40),
                               {-7, 5, 60, 40},
                               {10, 10, 15, 9},
                               {3, 2, 70, 50},
                               {2.25, 3.5, 30.5, 41}}) {
        SCOPED_TRACE(testing::Message() << rect.x() << ", " << rect.y());
        CGContext first = CGContextCreator::newARGBBitmapContextWithSize({80, 60});
        first.drawFirst(picture, rect);
        CGContext swapped = CGContextCreator::newARGBBitmapContextWithSize({80, 60});
        swapped.drawImage(motley, rect);
        int drawn = 0;
        for (int i = 0; i < 80 * 60 * 4; ++i) {
            ASSERT_NEAR(first.data()[i], swapped.data()[i], 1) << "byte " << i;
            drawn += swapped.data()[i] > 0;
        }
        EXPECT_GT(drawn, 300);
    }
}

TEST(CGContextTest, NullContextAndHopelessRectanglesDrawNothing)
{
    CGContext null;
    null.draw([](QPainter &) { FAIL() << "painted on nothing"; });
    null.drawImage(quarters(2, 2), QRectF(0, 0, 2, 2));
    EXPECT_TRUE(null.makeImage().isNull());
    EXPECT_TRUE(null.releaseAsImage().isNull());

    CGContext context = CGContextCreator::newARGBBitmapContextWithSize({2, 2});
    context.drawImage(QImage(), QRectF(0, 0, 2, 2));
    context.drawFirst(null, QRectF(0, 0, 2, 2));
    null.drawFirst(context, QRectF(0, 0, 2, 2));
    for (const double side : {0.0, -2.0, std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity()})
        context.drawImage(quarters(2, 2), QRectF(0, 0, side, 2));
    EXPECT_EQ(corners(context.makeImage()), Corners{});
}

TEST(CGContextTest, ReleasedImageTakesThePixelsOver)
{
    CGContext context = CGContextCreator::newARGBBitmapContextWithSize({8, 6});
    context.drawImage(quarters(8, 6), QRectF(0, 0, 8, 6));
    const std::weak_ptr<std::uint8_t[]> block = context.data();
    const std::uint8_t *address = context.data().get();

    QImage image = context.releaseAsImage();
    EXPECT_FALSE(context);
    EXPECT_EQ(image.constBits(), address) << "copied";
    EXPECT_EQ(corners(image), coloured);
    EXPECT_FALSE(block.expired());
    image = QImage();
    EXPECT_TRUE(block.expired());
}
