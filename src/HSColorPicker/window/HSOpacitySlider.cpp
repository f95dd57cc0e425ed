#include "HSColorPicker/window/HSOpacitySlider.h"

#include "HSColorPicker/ColorPickerClasses/HSColorFunctions.h"

namespace
{
constexpr double tileLength = 16.0; // points: four squares of 8
}

HSOpacitySlider::HSOpacitySlider(QQuickItem *parent) : HSRampSlider(UIColor::clearColor(), parent)
{
    didMoveToWindow(); // made on a parent that has one, it hears of no change
}

void HSOpacitySlider::myValueChanged(UISlider &sender)
{
    if (colorPicker())
        colorPicker()->setOpacity(double(sender.value()));
}

void HSOpacitySlider::didMoveToWindow()
{
    if (!window())
        return;
    setBackgroundColor(UIColor::colorWithPatternImage(
        HSOpacityBackgroundImage(tileLength, contentScale(), UIColor::colorWithWhite(0.5, 1.0))));
}

void HSOpacitySlider::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        didMoveToWindow();
    HSRampSlider::itemChange(change, data);
}
