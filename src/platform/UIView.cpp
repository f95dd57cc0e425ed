#include "platform/UIView.h"

void UIView::setFrame(const QRectF &frame)
{
    setPosition(frame.topLeft());
    setSize(frame.size());
}

void UIView::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        layoutSubviews();
    if (newGeometry != oldGeometry)
        emit frameChanged();
}
