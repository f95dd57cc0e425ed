#include "bitmap/CGContextCreator.h"

#include "bitmap/BMPixel.h"
#include "platform/foundation/NSLog.h"

#include <cstdlib>

namespace
{
// Zeroed memory is a transparent picture, and the system hands large blocks out zeroed anyway.
CGContext::PixelBlock newPixelBlock(std::int32_t byteCount)
{
    if (byteCount < 0)
        return nullptr;
    void *memory = std::calloc(std::size_t(byteCount) + 1, 1); // never empty, so null means failure
    if (!memory)
        return nullptr;
    return {static_cast<std::uint8_t *>(memory), [](std::uint8_t *block) { std::free(block); }};
}
} // namespace

CGContext CGContextCreator::newARGBBitmapContextWithSize(const QSizeF &size)
{
    const auto width = std::uint64_t(BMRound(size.width()));
    const auto height = std::uint64_t(BMRound(size.height()));
    const auto byteCount = std::int32_t(std::uint32_t(width) * 4u * std::uint32_t(height));

    CGContext::PixelBlock data = newPixelBlock(byteCount);
    if (!data) {
        NSLog(QStringLiteral("Malloc failed which is too bad.  I was hoping to use this memory."));
        return {};
    }
    CGContext context =
        CGContext::overMemory(std::move(data), std::uint64_t(byteCount), width, height);
    if (!context)
        NSLog(QStringLiteral("Failed to create bitmap!"));
    return context;
}

CGContext CGContextCreator::newARGBBitmapContextWithImage(const QImage &image)
{
    CGContext context = newARGBBitmapContextWithSize(image.size());
    context.drawImage(image, QRectF(QPointF(), QSizeF(image.size())));
    return context;
}
