#include "platform/CALayer.h"

#include <QQuickWindow>
#include <QSGImageNode>

CALayer::CALayer(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
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
        node->setFiltering(QSGTexture::Linear); // for the frames in which the item is scaled
        _uploaded = false;
    }
    if (!_uploaded) {
        node->setTexture(window()->createTextureFromImage(_pixels));
        node->setSourceRect(QRectF(_pixels.rect()));
        node->setRect({QPointF(), QSizeF(_pixels.size()) / _scale});
        _uploaded = true;
    }
    return node;
}
