#pragma once

#include "HSColorPicker/window/HSRampSlider.h"

/// Sets a wheel's brightness, over a ramp from black to white.
class HSBrightnessSlider : public HSRampSlider
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit HSBrightnessSlider(QQuickItem *parent = nullptr);

protected:
    void myValueChanged(UISlider &sender) override;
};
