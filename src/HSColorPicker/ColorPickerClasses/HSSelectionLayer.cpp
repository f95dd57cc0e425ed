#include "HSColorPicker/ColorPickerClasses/HSSelectionLayer.h"

#include <cmath>

namespace
{
void strokeEllipse(QPainter &painter, const QRectF &bounds, double inset, double width,
                   const UIColor &color)
{
    painter.setPen(QPen(color.qColor(), width));
    painter.drawEllipse(bounds.adjusted(inset, inset, -inset, -inset));
}
} // namespace

void HSSelectionLayer::setContentsScale(double scale)
{
    if (scale == _contentsScale)
        return;
    _contentsScale = scale;
    setNeedsDisplay();
}

void HSSelectionLayer::drawInContext(QPainter &painter, const QRectF &bounds)
{
    if (!_outerRingColor || !_innerRingColor) {
        _outerRingColor = UIColor::colorWithWhite(1.0, 0.4);
        _innerRingColor = UIColor::colorWithWhite(0.0, 1.0);
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    strokeEllipse(painter, bounds, 1.5, 3.0, *_outerRingColor);
    strokeEllipse(painter, bounds, 3.0, 2.0, *_innerRingColor);
    painter.restore();
}

void HSSelectionLayer::updatePolish()
{
    const QSizeF pixels = size() * _contentsScale;
    QImage picture(int(std::ceil(pixels.width())), int(std::ceil(pixels.height())),
                   QImage::Format_ARGB32_Premultiplied);
    if (!picture.isNull()) {
        picture.fill(Qt::transparent);
        picture.setDevicePixelRatio(_contentsScale);
        QPainter painter(&picture);
        drawInContext(painter, boundingRect());
    }
    setContents(std::move(picture));
}
