// The tint of a translucent bar: one rectangle of a colour, drawn without a shader, so that it is
// there on every renderer. Takes no touches.
#pragma once

#include "platform/UIView.h"

#include <QColor>

class UIToolbar : public UIView
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor barTintColor READ barTintColor WRITE setBarTintColor NOTIFY
                   barTintColorChanged FINAL)

public:
    explicit UIToolbar(QQuickItem *parent = nullptr);

    QColor barTintColor() const { return _barTintColor; }
    void setBarTintColor(const QColor &color);

signals:
    void barTintColorChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    QColor _barTintColor = Qt::transparent;
};
