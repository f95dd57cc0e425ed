#include "platform/UIView.h"

#include "platform/QMLViews.h"

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

void UIView::focusInEvent(QFocusEvent *event)
{
    QQuickItem::focusInEvent(event);
    if (!_hasFocusFrame || _focusFrame)
        return;
    _focusFrame = QMLViews::create(*qmlEngine(this), "platform/FocusFrame.qml",
                                   {{"parent", QVariant::fromValue<QQuickItem *>(this)}});
    _focusFrame->setParent(this);
}
