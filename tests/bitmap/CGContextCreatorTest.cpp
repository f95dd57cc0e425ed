#include "bitmap/CGContextCreator.h"

#include "bitmap/Pictures.h"

#include <limits>

TEST(CGContextCreatorTest, SaysWhyThereIsNoContext)
{
    const std::string noMemory =
        "Malloc failed which is too bad.  I was hoping to use this memory.\n";
    const std::string noBitmap = "Failed to create bitmap!\n";
    const std::pair<QSizeF, std::string> cases[] = {
        {{10, 0.4}, noBitmap},         {{-5, 10}, noMemory},
        {{-5, -5}, noBitmap},        // the byte count is positive, the sides are not
        {{32768, 16384}, noMemory},  // 2^31 bytes read as a negative count
        {{65536, 65537}, noBitmap},  // the count wraps to one row
        {{1073741824, 1}, noBitmap}, // a row wraps to nothing
        {{1, 4294967297.0}, noBitmap}, {{std::numeric_limits<double>::quiet_NaN(), 10}, noBitmap},
    };
    for (const auto &[size, message] : cases) {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(CGContextCreator::newARGBBitmapContextWithSize(size));
        EXPECT_EQ(testing::internal::GetCapturedStderr(), message)
            << size.width() << " x " << size.height();
    }
}

TEST(CGContextCreatorTest, CopiesAnImageOfAnyFormatAndScale)
{
    QImage image(2, 1, QImage::Format_RGBA8888);
    image.setPixelColor(0, 0, QColor(255, 0, 0, 128));
    image.setPixelColor(1, 0, Qt::green);
    image.setDevicePixelRatio(2.0);
    const CGContext context = CGContextCreator::newARGBBitmapContextWithImage(image);
    ASSERT_EQ(context.width(), 2);
    const std::uint8_t expected[] = {128, 128, 0, 0, 255, 0, 255, 0}; // alpha, red, green, blue
    EXPECT_TRUE(std::equal(std::begin(expected), std::end(expected), context.data().get()));
}
