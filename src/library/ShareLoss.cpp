#include "library/ShareLoss.h"

#include "library/OpenedTheme.h"
#include "library/PackageLimits.h"
#include "library/ShareText.h"
#include "theme/ColorText.h"
#include "theme/PictureEntry.h"
#include "theme/ThemePictures.h"

#include <QBuffer>
#include <QImageReader>

#include <cmath>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace
{
/// Compared on a small copy, with what JPEG may change.
bool isAllOf(const QByteArray &picture, const UIColor &color)
{
    constexpr int tolerance = 4; // of 255
    QBuffer buffer;
    buffer.setData(picture);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    if (size.isEmpty() || qint64(size.width()) * size.height() > PackageLimits::picture)
        return false;
    reader.setScaledSize((size / 8).expandedTo({1, 1}));
    const QImage small = reader.read().convertToFormat(QImage::Format_ARGB32);
    const auto [red, green, blue, alpha] = color.components();
    const auto isNear = [](int byte, double component) {
        return std::abs(byte - int(std::lround(component * 255.0))) <= tolerance;
    };
    for (int y = 0; y < small.height(); ++y)
        for (int x = 0; x < small.width(); ++x) {
            const QRgb pixel = small.pixel(x, y);
            if (!isNear(qRed(pixel), red) || !isNear(qGreen(pixel), green) ||
                !isNear(qBlue(pixel), blue) || qAlpha(pixel) != 255)
                return false;
        }
    return !small.isNull();
}
} // namespace

QStringList lostInShareText(const PackageContents &contents)
{
    QStringList lost;
    for (const auto &[path, bytes] : contents.files) {
        if (path == PictureEntry::fileIn(contents.info))
            continue;                           // told by what is shown of it
        const QString key = path.contains(u'/') // of the two pictures
                                ? ThemePictures::unreadIndicatorKey()
                                : ThemePictures::listBackgroundKey(ElementDataSource());
        const QVariant *color = isMadePicture(path) ? contents.info.find(key) : nullptr;
        if (!color || !isAllOf(bytes, colorFromHexString(PropertyList::textOf(*color))))
            lost.append(path);
    }
    return lost + ShareText::entriesLeftOut(contents.info);
}
