// What the wheel's two sliders have in common: a grey ramp behind the track, and the wheel that a
// movement is told to.
#pragma once

#include "HSColorPicker/window/HSColorPickerView.h"
#include "platform/UISlider.h"

#include <QPointer>

class HSRampSlider : public UISlider
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(HSColorPickerView *colorPicker READ colorPicker WRITE setColorPicker NOTIFY
                   colorPickerChanged FINAL)

public:
    /// The wheel that the slider drives; null without one, or once it is gone.
    HSColorPickerView *colorPicker() const { return _colorPicker; }
    /// Takes over the wheel's brightness as the value, whatever the slider sets, as on the phone;
    /// null leaves the value alone. The opacity slider shows the wheel's opacity once its screen
    /// tells it to.
    void setColorPicker(HSColorPickerView *colorPicker);

    /// A horizontal ramp over the full height, from the start colour at x = 0 to opaque white at x
    /// = the rectangle's width, wherever the rectangle lies, as on the phone; nothing beyond.
    /// Colour and alpha run side by side, unmultiplied.
    void drawRect(QPainter &painter, const QRectF &rect) override;

signals:
    void colorPickerChanged();

protected:
    HSRampSlider(const UIColor &rampStart, QQuickItem *parent);

    /// Hands the sender's value to the wheel; called with the slider itself at every change of its
    /// value by a person.
    virtual void myValueChanged(UISlider &sender) = 0;

private:
    void initRoutine();

    const QColor _rampStart;
    QPointer<HSColorPickerView> _colorPicker;
};
