// An item with a frame: position and size in its parent, in points (one point is one
// device-independent pixel).
#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

class UIView : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QRectF frame READ frame WRITE setFrame NOTIFY frameChanged FINAL)
    // Whether a line around the item shows that it has the keyboard.
    Q_PROPERTY(bool focusFrame MEMBER _hasFocusFrame FINAL)

public:
    explicit UIView(QQuickItem *parent = nullptr) : QQuickItem(parent) {}

    QRectF frame() const { return {position(), size()}; }
    virtual void setFrame(const QRectF &frame);

    /// Places the children; called whenever the size has changed.
    virtual void layoutSubviews() {}

signals:
    void frameChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    bool _hasFocusFrame = false;
    QQuickItem *_focusFrame = nullptr; // made when the item first gets the keyboard
};
