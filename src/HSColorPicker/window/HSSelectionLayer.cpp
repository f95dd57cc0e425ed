#include "HSColorPicker/window/HSSelectionLayer.h"

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

void HSSelectionLayer::chooseRingColors()
{
    if (_outerRingColor && _innerRingColor)
        return;
    _outerRingColor = UIColor::colorWithWhite(1.0, 0.4);
    _innerRingColor = UIColor::colorWithWhite(0.0, 1.0);
}

void HSSelectionLayer::drawInContext(QPainter &painter, const QRectF &bounds)
{
    chooseRingColors();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    strokeEllipse(painter, bounds, 1.5, 3.0, *_outerRingColor);
    strokeEllipse(painter, bounds, 3.0, 2.0, *_innerRingColor);
    painter.restore();
}

void HSSelectionLayer::updatePolish()
{
    struct Look {
        QSizeF size;
        double scale;
        QColor outer, inner;
        bool operator==(const Look &) const = default;
    };
    static std::optional<Look> lastLook; // the last ring drawn serves the next wheel, too
    static QImage last;
    chooseRingColors();
    const Look look{size(), _contentsScale, _outerRingColor->qColor(), _innerRingColor->qColor()};
    if (lastLook != look) {
        lastLook = look;
        const QSizeF pixels = size() * _contentsScale;
        last = QImage(int(std::ceil(pixels.width())), int(std::ceil(pixels.height())),
                      QImage::Format_ARGB32_Premultiplied);
        last.fill(Qt::transparent);
        if (!last.isNull()) {
            QPainter painter(&last);
            painter.scale(_contentsScale, _contentsScale);
            drawInContext(painter, boundingRect());
        }
    }
    setPixels(last, _contentsScale);
}
