// A horizontal slider: a thin track and a round knob that a finger or the mouse moves.
//
// A press on the knob takes hold of it where it is; a press beside it brings the knob there first.
// One finger at a time: the slider follows the one that pressed first until it lifts. A press takes
// no keyboard focus, as it ends no editing elsewhere; Tab reaches the slider.
#pragma once

#include "platform/CALayer.h"
#include "platform/UIView.h"
#include "platform/foundation/UIColor.h"

#include <optional>

class UISlider : public UIView
{
    Q_OBJECT
    QML_ELEMENT
    // Assistive technology writes the value and reads the rest.
    Q_PROPERTY(float minimumValue READ minimumValue WRITE setMinimumValue FINAL)
    Q_PROPERTY(float maximumValue READ maximumValue WRITE setMaximumValue FINAL)
    Q_PROPERTY(float value READ value WRITE moveTo NOTIFY valueChanged FINAL)

public:
    explicit UISlider(QQuickItem *parent = nullptr);

    /// The range, 0-1 unless set. The value follows into it; in a range turned over, the maximum
    /// rules.
    float minimumValue() const { return _minimumValue; }
    void setMinimumValue(float value);
    float maximumValue() const { return _maximumValue; }
    void setMaximumValue(float value);

    /// Single precision, as the platform keeps it. Set from code, it is clamped to the range (not
    /// a number is the minimum) and not reported by `moved`.
    float value() const { return _value; }
    void setValue(float value);
    /// The one way in for a person's input: setValue, reported by `moved` if that has changed it.
    void moveTo(float value);
    /// Moves by that many hundredths of the range, as an arrow key does.
    Q_INVOKABLE void step(int hundredths);

    /// Whether a finger or the mouse holds it.
    bool isTracking() const { return _holder.has_value(); }
    /// The knob's square in the slider's coordinates, in points.
    QRectF knobRect() const;

    /// What lies below all else, a colour or a pattern tiled from the top left; clear unless set.
    const UIColor &backgroundColor() const { return _backgroundColor; }
    void setBackgroundColor(const UIColor &color);

    /// What shows behind the track, drawn anew when the size or the window's scale has changed.
    /// `rect` is the slider's bounds, in points.
    virtual void drawRect(QPainter &painter, const QRectF &rect);
    /// A white disc in `rect` with a soft shadow around it, which reaches 2 points further.
    static void drawKnob(QPainter &painter, const QRectF &rect);

    void layoutSubviews() override;

signals:
    void valueChanged();
    /// Sent at every step of a movement by a person that changes the value.
    void moved();

protected:
    /// The window's pixels per point, 1 without a window.
    double contentScale() const;

    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void touchEvent(QTouchEvent *event) override;
    void touchUngrabEvent() override;
    /// Arrows by a hundredth of the range, with Shift and the Page keys by a tenth; Home and End.
    void keyPressEvent(QKeyEvent *event) override;

private:
    float valueAt(double knobMiddle) const;
    void placeKnob();
    void beginTracking(int holder, QPointF point);
    void continueTracking(QPointF point);

    float _minimumValue = 0.0f;
    float _maximumValue = 1.0f;
    float _value = 0.0f;
    UIColor _backgroundColor = UIColor::clearColor();
    CALayer _backing; // the background and what drawRect draws
    CALayer _knob;
    std::optional<int> _holder; // the touch point's id, or the mouse
    double _grip = 0.0;         // where the finger holds the knob, right of its middle
};
