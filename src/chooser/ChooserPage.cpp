#include "chooser/ChooserPage.h"

void ChooserPage::place(const ChooserLayout &layout)
{
    _cancelButton->setFrame(layout.cancelButton);
    _removeButton->setFrame(layout.removeButton);
    _saveButton->setFrame(layout.saveButton);
    colorPatch->setFrame(layout.colorPatch);
    hexTextField->setFrame(layout.hexTextField);
    colorPicker->setFrame(layout.colorPicker);
    brightnessSlider->setFrame(layout.brightnessSlider);
    opacitySlider->setFrame(layout.opacitySlider);
    _quickButtons->setPosition(layout.quickButtons.topLeft());
    _contentHeight = layout.contentHeight;
    emit contentHeightChanged();
}
