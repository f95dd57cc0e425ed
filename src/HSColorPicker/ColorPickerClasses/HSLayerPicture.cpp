#include "HSColorPicker/ColorPickerClasses/HSLayerPicture.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{
QSize pixelSize(QSizeF points, double scale)
{
    const QSizeF pixels = points * scale;
    return {int(std::ceil(pixels.width())), int(std::ceil(pixels.height()))};
}

bool isOpaque(const QImage &picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        if (!std::all_of(row, row + picture.width(), [](QRgb p) { return qAlpha(p) == 255; }))
            return false;
    }
    return true;
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
    // What is opaque is drawn by copying instead of blending.
    if (cornerRadius == 0.0 && isOpaque(picture))
        picture.reinterpretAsFormat(QImage::Format_RGB32);
    return picture;
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
