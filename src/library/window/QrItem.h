// A QR code, each of its modules as many whole pixels wide as there is room for.
#pragma once

#include <QImage>
#include <QQuickPaintedItem>

class QrItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage image MEMBER _image NOTIFY imageChanged FINAL)

public:
    explicit QrItem(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

signals:
    void imageChanged();

private:
    QImage _image; // a pixel for each module, with the margin that readers need
};
