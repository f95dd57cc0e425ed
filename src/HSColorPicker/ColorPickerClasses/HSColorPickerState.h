// The value that the colour wheel holds: a place on the hue/saturation disc, a brightness, an
// alpha.
//
// The place is a point in the wheel's own frame: the centre is (0, 0), the rim of the disc lies at
// distance 1, x grows to the right and y upward (a view's y grows downward). Its length may exceed
// 1; who reads a saturation gets 1 then. Hue 0 lies to the right of the centre and grows
// counter-clockwise: 0.25 is straight up.
//
// States are immutable: every change makes a new one. Any doubles are taken, except that a
// component which is not a number is stored as 0.
#pragma once

#include "platform/foundation/UIColor.h"

#include <QPointF>

class HSColorPickerState
{
public:
    /// The state under a point of a square view, both in points, at brightness and alpha 1. `size`
    /// is the view's side, `padding` the distance from its edge to the rim of the disc.
    static HSColorPickerState stateForPoint(QPointF point, double size, double padding);
    /// The values as they are.
    static HSColorPickerState initWithScaledRelativePoint(QPointF point, double brightness,
                                                          double alpha);
    /// Hue in turns; the saturation is not clamped.
    static HSColorPickerState initWithHue(double hue, double saturation, double brightness,
                                          double alpha);
    /// Any colour, through HSGetComponentsForColor.
    static HSColorPickerState initWithColor(const UIColor &color);

    /// Where the state lies in a square view, the inverse of stateForPoint. The centre on an axis
    /// where a wheel without a disc (a radius of 0) has no place for it.
    QPointF selectionLocationWithSize(double size, double padding) const;

    HSColorPickerState stateBySettingBrightness(double brightness) const;
    HSColorPickerState stateBySettingAlpha(double alpha) const;
    /// Keeps the saturation as read, at most 1.
    HSColorPickerState stateBySettingHue(double hue) const;
    HSColorPickerState stateBySettingSaturation(double saturation) const;

    QPointF scaledRelativePoint() const { return _scaledRelativePoint; }
    /// [0, 1); 0 at the centre.
    double hue() const;
    /// [0, 1].
    double saturation() const;
    double brightness() const { return _brightness; }
    double alpha() const { return _alpha; }
    UIColor color() const;

    /// Equal fields: such states are interchangeable.
    bool operator==(const HSColorPickerState &other) const;

private:
    HSColorPickerState(QPointF point, double brightness, double alpha);

    QPointF _scaledRelativePoint;
    double _brightness;
    double _alpha;
};
