#include "theme/ElementPicture.h"

#include "bitmap/CGContextCreator.h"
#include "color/LinearLight.h"
#include "pictures/PictureFile.h"
#include "pictures/ReducedPicture.h"
#include "platform/foundation/UIImageJPEGRepresentation.h"
#include "theme/ColorText.h"
#include "theme/ThemePictures.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <deque>

using namespace Qt::StringLiterals;

namespace
{
constexpr float keptQuality = 0.92F;
constexpr QSize meanSize(32, 32);
constexpr QSizeF screen(640.0, 1136.0); // the phone's; its shape alone matters

/// A number that is one, within bounds.
double within(double value, double least, double most, double standard)
{
    return std::isfinite(value) ? std::clamp(value, least, most) : standard;
}

/// In linear light: what the picture looks like from far away.
QRgb meanColor(const QImage &image)
{
    double red = 0.0, green = 0.0, blue = 0.0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            red += linearFromSrgb(quint8(qRed(pixel)));
            green += linearFromSrgb(quint8(qGreen(pixel)));
            blue += linearFromSrgb(quint8(qBlue(pixel)));
        }
    const double count = double(image.width()) * image.height();
    return qRgb(srgbFromLinear(float(red / count)), srgbFromLinear(float(green / count)),
                srgbFromLinear(float(blue / count)));
}
} // namespace

ElementPicture::Reading ElementPicture::read(const QString &path)
{
    return pictureInFile(path, &ElementPicture::parse);
}

ElementPicture::Reading ElementPicture::parse(const QByteArray &bytes)
{
    const ReducedPicture read = ReducedPicture::parse(bytes, longestSide);
    if (!read.problem.isEmpty())
        return {{}, read.problem};
    // A JPEG has no transparency.
    QImage image(read.image.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).drawImage(0, 0, read.image);
    const QByteArray jpeg = UIImageJPEGRepresentation(image, keptQuality);
    if (jpeg.isEmpty())
        return {{}, u"there is no memory for it"_s};
    return {ElementPicture{jpeg}, {}};
}

std::optional<ElementPicture> ElementPicture::fromMap(const QVariantMap &map)
{
    const ElementPicture picture{
        map.value(u"jpeg"_s).toByteArray(),
        within(map.value(u"x"_s, 0.5).toDouble(), 0.0, 1.0, 0.5),
        within(map.value(u"y"_s, 0.5).toDouble(), 0.0, 1.0, 0.5),
        within(map.value(u"zoom"_s, 1.0).toDouble(), 1.0, mostZoom, 1.0),
    };
    return picture.jpeg.isEmpty() ? std::nullopt : std::optional(picture);
}

std::optional<ElementPicture> ElementPicture::of(const ElementRecord &record)
{
    if (record.isChoice() || record.value.typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    const QVariantMap map = record.value.toMap();
    const QVariant color = map.value(u"color"_s);
    return color.isValid() && color == record.color ? fromMap(map) : std::nullopt;
}

std::optional<ElementPicture> ElementPicture::behindList(const ElementDataSource &elements)
{
    const auto index = elements.shownIndexOfKey(ThemePictures::listBackgroundKey(elements));
    return index ? of(elements.tableSource()[size_t(*index)]) : std::nullopt;
}

std::optional<ElementChoice> ElementPicture::choice() const
{
    const QImage seen = shown(meanSize);
    if (seen.isNull())
        return std::nullopt;
    const QString color = hexStringForRgb(meanColor(seen));
    return ElementChoice{
        color,
        QVariantMap{
            {u"jpeg"_s, jpeg}, {u"x"_s, x}, {u"y"_s, y}, {u"zoom"_s, zoom}, {u"color"_s, color}}};
}

QSizeF ElementPicture::partOf(QSizeF picture) const
{
    return screen.scaled(picture, Qt::KeepAspectRatio) / zoom;
}

QRectF ElementPicture::placeIn(QSizeF picture) const
{
    const QSizeF part = partOf(picture);
    const double left =
        std::clamp(x * picture.width() - part.width() / 2.0, 0.0, picture.width() - part.width());
    const double top = std::clamp(y * picture.height() - part.height() / 2.0, 0.0,
                                  picture.height() - part.height());
    return {QPointF(left, top), part};
}

ElementPicture ElementPicture::moved(QSize whole, double across, double down) const
{
    const QSizeF part = partOf(whole);
    ElementPicture picture = *this;
    picture.x -= across * part.width() / whole.width();
    picture.y -= down * part.height() / whole.height();
    // Where it stops, it also starts when the finger comes back.
    const QPointF middle = picture.placeIn(whole).center();
    picture.x = middle.x() / whole.width();
    picture.y = middle.y() / whole.height();
    return picture;
}

ElementPicture ElementPicture::closer(QSize whole, double factor) const
{
    ElementPicture picture = *this;
    picture.zoom = within(zoom * factor, 1.0, mostZoom, zoom);
    return picture.moved(whole, 0.0, 0.0);
}

QImage ElementPicture::whole(int longerSide) const
{
    // Another kind of picture, which only somebody else can have put here, may be transparent.
    return jpeg.startsWith("\xFF\xD8") ? ReducedPicture::parse(jpeg, longerSide).image : QImage();
}

QImage ElementPicture::shownOf(const QImage &whole, QSize pixels) const
{
    // Whole pixels of it, seen through its own memory: it is large, and often only a part is shown.
    const QRect placed = placeIn(whole.size()).toRect();
    const QRect part = QRect(placed.topLeft(), placed.size().expandedTo({1, 1})) & whole.rect();
    const QImage seen(whole.constScanLine(part.y()) + qsizetype(part.x()) * 4, part.width(),
                      part.height(), whole.bytesPerLine(), QImage::Format_ARGB32_Premultiplied);
    CGContext canvas = CGContextCreator::newARGBBitmapContextWithSize(pixels);
    canvas.drawFirst(seen, QRectF(QPointF(), pixels), {});
    QImage shown = canvas.releaseAsImage();
    shown.reinterpretAsFormat(QImage::Format_RGB32); // nothing of it is transparent
    return shown;
}

QImage ElementPicture::shown(QSize pixels) const
{
    struct Shown {
        ElementPicture picture;
        QSize pixels;
        QImage image;
    };
    thread_local std::deque<Shown> latest;
    const auto isThis = [&](const Shown &shown) {
        return shown.pixels == pixels && shown.picture == *this;
    };
    if (const auto known = std::ranges::find_if(latest, isThis); known != latest.end())
        return known->image;
    const QImage all = whole();
    if (all.isNull())
        return {};
    latest.push_front({*this, pixels, shownOf(all, pixels)});
    if (latest.size() > 3) // as many sizes as are asked for
        latest.pop_back();
    return latest.front().image;
}
