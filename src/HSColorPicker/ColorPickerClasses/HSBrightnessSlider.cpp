#include "HSColorPicker/ColorPickerClasses/HSBrightnessSlider.h"

HSBrightnessSlider::HSBrightnessSlider(QQuickItem *parent)
    : HSRampSlider(UIColor::blackColor(), parent)
{
}

void HSBrightnessSlider::myValueChanged()
{
    if (colorPicker())
        colorPicker()->setBrightness(double(value()));
}
