#include "platform/CALayer.h"

#include <QQuickWindow>
#include <QSGImageNode>

CALayer::CALayer(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    // Pixel for pixel, which the software renderer copies instead of interpolating; smooth only in
    // the frames in which the layer is scaled.
    setSmooth(false);
    connect(this, &QQuickItem::scaleChanged, this, [this] { setSmooth(scale() != 1.0); });
}

void CALayer::setContents(QImage contents)
{
    const double scale = contents.devicePixelRatio();
    contents.setDevicePixelRatio(1.0);
    setPixels(contents, scale);
}

void CALayer::setPixels(const QImage &pixels, double scale)
{
    _pixels = pixels;
    _scale = scale;
    _uploaded = false;
    update();
}

QSGNode *CALayer::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGImageNode *>(oldNode);
    if (_pixels.isNull()) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        _uploaded = false;
    }
    node->setFiltering(smooth() ? QSGTexture::Linear : QSGTexture::Nearest);
    if (!_uploaded) {
        node->setTexture(window()->createTextureFromImage(_pixels));
        node->setSourceRect(QRectF(_pixels.rect()));
        node->setRect({QPointF(), QSizeF(_pixels.size()) / _scale});
        _uploaded = true;
    }
    return node;
}
