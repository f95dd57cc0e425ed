#pragma once

#include "HSColorPicker/window/HSRampSlider.h"

/// Sets a wheel's opacity, over a ramp from transparent to white on a checkerboard.
class HSOpacitySlider : public HSRampSlider
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit HSOpacitySlider(QQuickItem *parent = nullptr);

protected:
    void myValueChanged(UISlider &sender) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    /// Makes the checkerboard at the window's scale; without a window it stays as it is.
    void didMoveToWindow();
};
