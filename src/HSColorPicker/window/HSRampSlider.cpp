#include "HSColorPicker/window/HSRampSlider.h"

#include <QLinearGradient>
#include <QPainter>

#include <cmath>

HSRampSlider::HSRampSlider(const UIColor &rampStart, QQuickItem *parent)
    : UISlider(parent), _rampStart(rampStart.qColor())
{
    initRoutine();
}

void HSRampSlider::initRoutine()
{
    setMinimumValue(0.0f);
    setMaximumValue(1.0f);
    connect(this, &UISlider::moved, this, [this] { myValueChanged(*this); });
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
    // All rows are the same, and a row of pixels fills several times as fast as a gradient.
    const double scale = painter.device()->devicePixelRatio();
    QPixmap row(int(std::ceil(rect.width() * scale)), 1);
    row.setDevicePixelRatio(scale);
    row.fill(Qt::transparent);
    QPainter(&row).fillRect(QRectF(0.0, 0.0, rect.width(), 1.0), ramp);
    const QRectF shown = rect & QRectF(0.0, rect.y(), rect.width(), rect.height());
    painter.drawTiledPixmap(shown, row, QPointF(shown.x(), 0.0));
}
