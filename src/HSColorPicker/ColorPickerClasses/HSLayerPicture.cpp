#include "HSColorPicker/ColorPickerClasses/HSLayerPicture.h"

#include "HSColorPicker/ColorPickerClasses/HSColorFunctions.h"

#include <QPainter>

#include <cmath>

namespace
{
QSize pixelSize(QSizeF points, double scale)
{
    const QSizeF pixels = points * scale;
    return {int(std::ceil(pixels.width())), int(std::ceil(pixels.height()))};
}
} // namespace

QImage HSLayerPicture(const QBrush &paint, QSizeF size, double scale, double cornerRadius)
{
    QImage picture(pixelSize(size, scale), QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return picture;
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.setBrush(paint);
    painter.drawRoundedRect(QRectF(QPointF(), size * scale), cornerRadius * scale,
                            cornerRadius * scale);
    painter.end();
    return HSUIImageWithScale(picture, scale);
}

QImage HSLayerPicture(const QImage &image, QSizeF size, double scale, double cornerRadius)
{
    if (image.isNull())
        return image;
    const QSize pixels = pixelSize(size, scale);
    QBrush brush(image);
    if (image.size() != pixels)
        brush.setTransform(QTransform::fromScale(double(pixels.width()) / image.width(),
                                                 double(pixels.height()) / image.height()));
    return HSLayerPicture(brush, size, scale, cornerRadius);
}
