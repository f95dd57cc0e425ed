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
    void setContents(QImage contents);
    /// The same for pixels that others hold too, whose scale cannot be taken off without a copy: an
    /// image of device pixel ratio 1, and its pixels per point.
    void setPixels(const QImage &pixels, double scale);
    /// Pixels only: the device pixel ratio is 1.
    const QImage &pixels() const { return _pixels; }

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override;

private:
    QImage _pixels; // without a scale, by which the software renderer would divide once more
    double _scale = 1.0;
    bool _uploaded = false;
};
