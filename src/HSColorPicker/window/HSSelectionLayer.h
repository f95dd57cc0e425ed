// The double ring around the selected point of the colour wheel: a translucent white one outside,
// which keeps the black one inside it visible on dark colours.
#pragma once

#include "platform/CALayer.h"
#include "platform/foundation/UIColor.h"

#include <QPainter>

#include <optional>

class HSSelectionLayer : public CALayer
{
    Q_OBJECT

public:
    using CALayer::CALayer;

    /// Unset at first. Drawing sets both, to white at alpha 0.4 and to black, unless both are set
    /// already, as on the phone. A new colour shows after setNeedsDisplay.
    const std::optional<UIColor> &outerRingColor() const { return _outerRingColor; }
    void setOuterRingColor(const UIColor &color) { _outerRingColor = color; }
    const std::optional<UIColor> &innerRingColor() const { return _innerRingColor; }
    void setInnerRingColor(const UIColor &color) { _innerRingColor = color; }

    /// Pixels per point of the picture; nothing is drawn while it is not above 0.
    void setContentsScale(double scale);
    /// Draws the picture anew before the next frame.
    void setNeedsDisplay() { polish(); }

    /// Draws the rings, antialiased, along the inner edge of the ellipse in `bounds`: the outer one
    /// 3 wide, the inner one 2 wide and 2 further in, so that they overlap by 1.
    void drawInContext(QPainter &painter, const QRectF &bounds);

protected:
    void updatePolish() override;

private:
    /// Black inside white, where nobody has set others.
    void chooseRingColors();

    std::optional<UIColor> _outerRingColor;
    std::optional<UIColor> _innerRingColor;
    double _contentsScale = 1.0;
};
