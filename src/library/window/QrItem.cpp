#include "library/window/QrItem.h"

#include <QPainter>

#include <algorithm>

void QrItem::paint(QPainter *painter)
{
    const QImage image = _controller->code();
    if (image.isNull())
        return;
    // The painter's pixels, in which edges between modules are sharp.
    const double scale = painter->deviceTransform().m11();
    const double room = std::min(width(), height()) * scale;
    const int module = std::max(1, int(room / image.width()));
    const double side = module * image.width() / scale;
    const QPointF corner(std::floor((width() - side) * 0.5 * scale) / scale,
                         std::floor((height() - side) * 0.5 * scale) / scale);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter->drawImage(QRectF(corner, QSizeF(side, side)), image);
}
