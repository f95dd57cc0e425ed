#include "chooser/ChooserLayout.h"

#include <algorithm>

ChooserLayout ChooserLayout::make(double width, double screenHeight)
{
    constexpr double tallScreen = 568.0;
    constexpr double gap = 10.0;
    const double middle = width * 0.5;

    ChooserLayout layout;
    layout.cancelButton = {5.0, 20.0, 90.0, 40.0};
    layout.removeButton = {middle - 54.0, 20.0, 108.0, 40.0};
    layout.saveButton = {width - 95.0, 20.0, 90.0, 40.0};
    layout.colorPatch = {0.0, layout.saveButton.bottom() + gap, width, 40.0};
    layout.hexTextField = {0.0, 0.0, width, 40.0};

    const double side = screenHeight >= tallScreen ? 310.0 : 240.0;
    layout.colorPicker = {middle - side * 0.5, layout.colorPatch.bottom() + gap, side, side};
    // The sliders are as wide as the wheel's right edge is far from the left, as on the phone.
    const double sliderWidth = layout.colorPicker.right();
    layout.brightnessSlider = {middle - sliderWidth * 0.5, layout.colorPicker.bottom() + gap,
                               sliderWidth, 30.0};
    layout.opacitySlider = layout.brightnessSlider.translated(0.0, 30.0 + gap);
    layout.quickButtons = {4.0, layout.opacitySlider.bottom() + 8.0, 6 * 50.0 + 5 * 2.0, 30.0};
    layout.contentHeight = std::max(screenHeight, layout.quickButtons.bottom());
    return layout;
}
