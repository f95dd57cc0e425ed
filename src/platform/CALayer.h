// An item that shows a picture drawn elsewhere, a pixel of it on a pixel of the window.
//
// The picture is uploaded when it is set and never again: moving, scaling or fading the item costs
// no drawing. Both of Qt Quick's renderers show it.
#pragma once

#include <QImage>
#include <QQuickItem>

class CALayer : public QQuickItem
{
    Q_OBJECT

public:
    explicit CALayer(QQuickItem *parent = nullptr);

    /// Lies at the item's top left, at its own scale (the image's device pixel ratio), whatever the
    /// item's size. A null image shows nothing.
    void setContents(const QImage &contents);
    const QImage &contents() const { return _contents; }

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override;

private:
    QImage _contents;
    bool _uploaded = false;
};
