#include "theme/ThemePictures.h"

#include "bitmap/UIImage+JTColor.h"
#include "platform/foundation/UIImageJPEGRepresentation.h"
#include "theme/ColorText.h"
#include "theme/ElementPicture.h"

namespace
{
constexpr float jpegQuality = 0.8F;
constexpr QRectF listBackgroundRect(0.0, 0.0, 640.0, 1136.0);
constexpr QRectF unreadIndicatorRect(0.0, 0.0, 24.0, 24.0);

QByteArray solidJpeg(const PropertyDictionary &dictionary, const QString &key, const QRectF &rect,
                     double scale)
{
    const QVariant *value = dictionary.find(key);
    const UIColor color = colorFromHexString(value ? PropertyList::textOf(*value) : QString());
    return UIImageJPEGRepresentation(imageWithColorRect(color, rect, scale), jpegQuality);
}
} // namespace

ThemePictures ThemePictures::of(const ElementDataSource &source,
                                const PropertyDictionary &dictionary, double scale)
{
    QByteArray background;
    if (const auto picture = ElementPicture::behindList(source))
        background = UIImageJPEGRepresentation(
            picture->shown((listBackgroundRect.size() * scale).toSize()), jpegQuality);
    if (background.isEmpty())
        background = solidJpeg(dictionary, listBackgroundKey(source), listBackgroundRect, scale);
    return {background, solidJpeg(dictionary, unreadIndicatorKey(), unreadIndicatorRect, scale)};
}
