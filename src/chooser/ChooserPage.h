// The root of the colour chooser's QML file.
#pragma once

#include "HSColorPicker/window/HSBrightnessSlider.h"
#include "HSColorPicker/window/HSColorPickerView.h"
#include "HSColorPicker/window/HSOpacitySlider.h"
#include "chooser/ChooserLayout.h"
#include "platform/UIButton.h"
#include "platform/UIPage.h"
#include "platform/UITextField.h"

class ChooserPage : public UIPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UIButton *cancelButton MEMBER _cancelButton FINAL REQUIRED)
    Q_PROPERTY(UIButton *removeButton MEMBER _removeButton FINAL REQUIRED)
    Q_PROPERTY(UIButton *saveButton MEMBER _saveButton FINAL REQUIRED)
    Q_PROPERTY(UIView *colorPatch MEMBER colorPatch FINAL REQUIRED)
    Q_PROPERTY(UITextField *hexTextField MEMBER hexTextField FINAL REQUIRED)
    Q_PROPERTY(HSColorPickerView *colorPicker MEMBER colorPicker FINAL REQUIRED)
    Q_PROPERTY(HSBrightnessSlider *brightnessSlider MEMBER brightnessSlider FINAL REQUIRED)
    Q_PROPERTY(HSOpacitySlider *opacitySlider MEMBER opacitySlider FINAL REQUIRED)
    Q_PROPERTY(QQuickItem *quickButtons MEMBER _quickButtons FINAL REQUIRED)
    /// Points; more than the page has makes it scroll.
    Q_PROPERTY(double contentHeight MEMBER _contentHeight NOTIFY contentHeightChanged FINAL)

public:
    using UIPage::UIPage;

    void place(const ChooserLayout &layout);

    UIView *colorPatch = nullptr; ///< the strip whose ground is the chosen colour
    UITextField *hexTextField = nullptr;
    HSColorPickerView *colorPicker = nullptr;
    HSBrightnessSlider *brightnessSlider = nullptr;
    HSOpacitySlider *opacitySlider = nullptr;

signals:
    void contentHeightChanged();

private:
    UIButton *_cancelButton = nullptr;
    UIButton *_removeButton = nullptr;
    UIButton *_saveButton = nullptr;
    QQuickItem *_quickButtons = nullptr;
    double _contentHeight = 0.0;
};
