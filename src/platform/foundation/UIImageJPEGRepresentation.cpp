#include "platform/foundation/UIImageJPEGRepresentation.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <turbojpeg.h>

namespace
{
/// TurboJPEG's name for the order in which a format stores its bytes; nothing for formats that it
/// cannot read in place, among them all with premultiplied colours.
std::optional<TJPF> pixelOrder(QImage::Format format)
{
    switch (format) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
        return Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? TJPF_BGRX : TJPF_XRGB;
    case QImage::Format_RGBX8888:
    case QImage::Format_RGBA8888:
        return TJPF_RGBX;
    case QImage::Format_RGB888:
        return TJPF_RGB;
    default:
        return std::nullopt;
    }
}

int percent(float quality)
{
    return std::max(1, int(std::lround(std::clamp(quality, 0.0F, 1.0F) * 100.0F)));
}

struct HandleDeleter {
    void operator()(void *handle) const { tjDestroy(handle); }
};
struct BufferDeleter {
    void operator()(unsigned char *buffer) const { tjFree(buffer); }
};
} // namespace

QByteArray UIImageJPEGRepresentation(const QImage &image, float quality)
{
    const auto order = pixelOrder(image.format());
    if (!order && !image.isNull()) {
        const QImage straight = image.convertToFormat(QImage::Format_ARGB32);
        return straight.isNull() ? QByteArray() : UIImageJPEGRepresentation(straight, quality);
    }
    const std::unique_ptr<void, HandleDeleter> handle(tjInitCompress());
    if (image.isNull() || !handle)
        return {};
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    const int failed =
        tjCompress2(handle.get(), image.constBits(), image.width(), int(image.bytesPerLine()),
                    image.height(), *order, &bytes, &size, TJSAMP_420, percent(quality), 0);
    const std::unique_ptr<unsigned char, BufferDeleter> owner(bytes);
    if (failed != 0)
        return {};
    return {reinterpret_cast<const char *>(bytes), qsizetype(size)};
}
