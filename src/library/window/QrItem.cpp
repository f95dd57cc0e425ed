#include "library/window/QrItem.h"

#include <QPainter>

#include <algorithm>

QrItem::QrItem(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    connect(this, &QrItem::imageChanged, this, [this] { update(); });
}

void QrItem::paint(QPainter *painter)
{
    if (_image.isNull())
        return;
    // The painter's pixels, in which edges between modules are sharp.
    const double scale = painter->deviceTransform().m11();
    const double room = std::min(width(), height()) * scale;
    const int module = std::max(1, int(room / _image.width()));
    const double side = module * _image.width() / scale;
    const QPointF corner(std::floor((width() - side) * 0.5 * scale) / scale,
                         std::floor((height() - side) * 0.5 * scale) / scale);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter->drawImage(QRectF(corner, QSizeF(side, side)), _image);
}
