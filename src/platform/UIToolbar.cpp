#include "platform/UIToolbar.h"

#include <QQuickWindow>
#include <QSGRectangleNode>

UIToolbar::UIToolbar(QQuickItem *parent) : UIView(parent)
{
    setFlag(ItemHasContents);
}

void UIToolbar::setBarTintColor(const QColor &color)
{
    if (_barTintColor == color)
        return;
    _barTintColor = color;
    update();
    emit barTintColorChanged();
}

QSGNode *UIToolbar::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    auto *rectangle = static_cast<QSGRectangleNode *>(node);
    if (!rectangle)
        rectangle = window()->createRectangleNode();
    rectangle->setRect(boundingRect());
    rectangle->setColor(_barTintColor);
    return rectangle;
}
