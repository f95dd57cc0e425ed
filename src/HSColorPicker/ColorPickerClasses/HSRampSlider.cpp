#include "HSColorPicker/ColorPickerClasses/HSRampSlider.h"

#include <QLinearGradient>
#include <QPainter>

HSRampSlider::HSRampSlider(const UIColor &rampStart, QQuickItem *parent)
    : UISlider(parent), _rampStart(rampStart.qColor())
{
    setMinimumValue(0.0f);
    setMaximumValue(1.0f);
    connect(this, &UISlider::moved, this, &HSRampSlider::myValueChanged);
}

void HSRampSlider::setColorPicker(HSColorPickerView *colorPicker)
{
    if (colorPicker)
        setValue(float(colorPicker->brightness()));
    if (colorPicker == _colorPicker)
        return;
    _colorPicker = colorPicker;
    emit colorPickerChanged();
}

void HSRampSlider::drawRect(QPainter &painter, const QRectF &rect)
{
    QLinearGradient ramp(0.0, 0.0, rect.width(), 0.0);
    ramp.setInterpolationMode(QGradient::ComponentInterpolation);
    ramp.setColorAt(0.0, _rampStart);
    ramp.setColorAt(1.0, Qt::white);
    painter.fillRect(rect & QRectF(0.0, rect.y(), rect.width(), rect.height()), ramp);
}
