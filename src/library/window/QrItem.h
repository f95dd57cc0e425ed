// The QR code of a theme that is shared, each of its modules as many whole pixels wide as there is
// room for.
#pragma once

#include "library/window/ShareController.h"

#include <QQuickPaintedItem>

class QrItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ShareController *controller MEMBER _controller FINAL REQUIRED)

public:
    using QQuickPaintedItem::QQuickPaintedItem;

    void paint(QPainter *painter) override;

private:
    ShareController *_controller = nullptr; // outlives the view, of which this is a part
};
