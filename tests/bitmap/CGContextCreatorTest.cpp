#include "bitmap/CGContextCreator.h"

#include "bitmap/Pictures.h"

#include <limits>

constexpr const char *noMemory =
    "Malloc failed which is too bad.  I was hoping to use this memory.\n";
constexpr const char *noBitmap = "Failed to create bitmap!\n";

TEST(CGContextCreatorTest, MakesAContextOrSaysWhyNot)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    const struct {
        QSizeF size;
        int width, height;
        const char *message;
    } cases[] = {
        {{3, 2}, 3, 2, ""},
        {{2.5, 1.4}, 3, 1, ""},
        {{0, 10}, 0, 0, noBitmap},
        {{10, 0.4}, 0, 0, noBitmap},
        {{-5, 10}, 0, 0, noMemory},
        {{-5, -5}, 0, 0, noBitmap},        // the byte count is positive, the sides are not
        {{32768, 16384}, 0, 0, noMemory},  // 2^31 bytes read as a negative count
        {{65536, 65537}, 0, 0, noBitmap},  // the count wraps to one row
        {{1073741824, 1}, 0, 0, noBitmap}, // a row wraps to nothing
        {{1, 4294967297.0}, 0, 0, noBitmap},
        {{infinite, 10}, 0, 0, noMemory},
        {{std::numeric_limits<double>::quiet_NaN(), 10}, 0, 0, noBitmap},
    };
    for (const auto &[size, width, height, message] : cases) {
        SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height());
        testing::internal::CaptureStderr();
        const CGContext context = CGContextCreator::newARGBBitmapContextWithSize(size);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), message);
        EXPECT_EQ(bool(context), width > 0);
        EXPECT_EQ(context.width(), width);
        EXPECT_EQ(context.height(), height);
        for (int i = 0; i < width * height * 4; ++i)
            EXPECT_EQ(context.data()[i], 0);
    }
}

TEST(CGContextCreatorTest, CopiesAnImageOfAnyFormatAndScale)
{
    QImage image(2, 2, QImage::Format_RGBA8888);
    image.fill(QColor(255, 0, 0, 128));
    image.setPixelColor(1, 0, Qt::green);
    image.setPixelColor(0, 1, Qt::blue);
    image.setPixelColor(1, 1, Qt::transparent);
    image.setDevicePixelRatio(2.0);
    const CGContext context = CGContextCreator::newARGBBitmapContextWithImage(image);
    ASSERT_EQ(context.width(), 2);
    ASSERT_EQ(context.height(), 2);
    const std::uint8_t expected[] = {128, 128, 0, 0,   255, 0, 255, 0, // alpha, red, green, blue
                                     255, 0,   0, 255, 0,   0, 0,   0};
    EXPECT_TRUE(std::equal(std::begin(expected), std::end(expected), context.data().get()));

    testing::internal::CaptureStderr();
    EXPECT_FALSE(CGContextCreator::newARGBBitmapContextWithImage(QImage()));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), noBitmap);
}
