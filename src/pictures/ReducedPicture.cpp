#include "pictures/ReducedPicture.h"

#include "pictures/PictureFile.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>

using namespace Qt::StringLiterals;

namespace
{
// The most that a picture may take while it is read: the largest one that is not refused, at 4
// bytes a pixel, and some more.
constexpr int mostMegabytes = 512;

/// True for a JPEG without its end, or a BMP that is shorter than it says. Their readers are
/// content with what is there, and make up the rest.
bool isCutOff(const QByteArray &bytes)
{
    const auto byteAt = [&bytes](qsizetype place) {
        return place < bytes.size() ? int(uchar(bytes[place])) : 0;
    };
    if (bytes.startsWith("BM"))
        return bytes.size() <
               (byteAt(2) | byteAt(3) << 8 | byteAt(4) << 16 | qint64(byteAt(5)) << 24);
    if (!bytes.startsWith("\xFF\xD8"))
        return false;
    // A small picture in a segment has an end of its own, so those before the scan are passed over.
    constexpr int startOfScan = 0xDA;
    qsizetype segment = 2;
    while (byteAt(segment) == 0xFF && byteAt(segment + 1) != startOfScan)
        segment += byteAt(segment + 1) == 0xFF // a fill byte
                       ? 1
                       : 2 + byteAt(segment + 2) * 256 + byteAt(segment + 3);
    return bytes.lastIndexOf("\xFF\xD9") <= segment;
}

ReducedPicture refused(const QString &problem)
{
    return {{}, problem};
}
} // namespace

ReducedPicture ReducedPicture::read(const QString &path, int longerSide)
{
    return pictureInFile(path, [=](const QByteArray &bytes) { return parse(bytes, longerSide); });
}

ReducedPicture ReducedPicture::parse(const QByteArray &bytes, int longerSide)
{
    QImageReader::setAllocationLimit(mostMegabytes); // the whole program's; its own are small
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    if (!reader.canRead())
        return refused(u"it is no picture, or none of a kind that can be read"_s);
    const QSize size = reader.size();
    if (size.isEmpty())
        return refused(u"its size cannot be told"_s);
    if (qint64(size.width()) * size.height() > mostPixels)
        return refused(
            u"it has %1 x %2 pixels, and more than 100 megapixels are not read"_s.arg(size.width())
                .arg(size.height()));
    if (isCutOff(bytes))
        return refused(u"it is cut off"_s);
    if (std::max(size.width(), size.height()) > longerSide)
        reader.setScaledSize(
            size.scaled(longerSide, longerSide, Qt::KeepAspectRatio).expandedTo({1, 1}));
    reader.setAutoTransform(true);
    QImage image = reader.read().convertToFormat(QImage::Format_ARGB32);
    if (image.isNull())
        return refused(u"it is cut off or damaged: "_s + reader.errorString());
    // The frames of an animated one may be larger than it says.
    if (std::max(image.width(), image.height()) > longerSide)
        image = image.scaled(longerSide, longerSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (image.colorSpace().isValid())
        image.convertToColorSpace(QColorSpace::SRgb);
    return {image.convertToFormat(QImage::Format_ARGB32), {}};
}

std::vector<QRgb> ReducedPicture::visiblePixels() const
{
    std::vector<QRgb> pixels;
    pixels.reserve(size_t(image.width()) * size_t(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        const auto *const line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(line[x]) >= 128)
                pixels.push_back(line[x] | 0xFF000000);
    }
    return pixels;
}
