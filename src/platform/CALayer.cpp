#include "platform/CALayer.h"

#include <QQuickWindow>
#include <QSGImageNode>

CALayer::CALayer(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void CALayer::setContents(const QImage &contents)
{
    _contents = contents;
    _uploaded = false;
    update();
}

QSGNode *CALayer::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGImageNode *>(oldNode);
    if (_contents.isNull()) {
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
        QImage pixels = _contents;
        pixels.setDevicePixelRatio(1.0); // or the software renderer would divide by it once more
        node->setTexture(window()->createTextureFromImage(pixels));
        node->setSourceRect(QRectF(pixels.rect()));
        node->setRect({QPointF(), _contents.deviceIndependentSize()});
        _uploaded = true;
    }
    return node;
}
