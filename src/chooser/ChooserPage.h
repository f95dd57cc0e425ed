// The root of the colour chooser's QML file.
#pragma once

#include "HSColorPicker/window/HSBrightnessSlider.h"
#include "HSColorPicker/window/HSColorPickerView.h"
#include "HSColorPicker/window/HSOpacitySlider.h"
#include "platform/UIPage.h"
#include "platform/UITextField.h"

class ChooserPage : public UIPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(HSColorPickerView *colorPicker MEMBER colorPicker FINAL REQUIRED)
    Q_PROPERTY(HSBrightnessSlider *brightnessSlider MEMBER brightnessSlider FINAL REQUIRED)
    Q_PROPERTY(HSOpacitySlider *opacitySlider MEMBER opacitySlider FINAL REQUIRED)
    Q_PROPERTY(UIView *colorPatch MEMBER colorPatch FINAL REQUIRED)
    Q_PROPERTY(UITextField *hexTextField MEMBER hexTextField FINAL REQUIRED)

public:
    using UIPage::UIPage;

    HSColorPickerView *colorPicker = nullptr;
    HSBrightnessSlider *brightnessSlider = nullptr;
    HSOpacitySlider *opacitySlider = nullptr;
    UIView *colorPatch = nullptr; ///< the strip whose ground is the chosen colour
    UITextField *hexTextField = nullptr;
};
