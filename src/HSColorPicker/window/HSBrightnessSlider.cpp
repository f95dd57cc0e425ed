#include "HSColorPicker/window/HSBrightnessSlider.h"

HSBrightnessSlider::HSBrightnessSlider(QQuickItem *parent)
    : HSRampSlider(UIColor::blackColor(), parent)
{
}

void HSBrightnessSlider::myValueChanged(UISlider &sender)
{
    if (colorPicker())
        colorPicker()->setBrightness(double(sender.value()));
}
