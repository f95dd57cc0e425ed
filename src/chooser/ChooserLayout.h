// Where everything on the chooser's page stands, in points.
#pragma once

#include <QRectF>

struct ChooserLayout {
    QRectF cancelButton;
    QRectF removeButton;
    QRectF saveButton;
    QRectF colorPatch;
    QRectF hexTextField; // inside colorPatch
    QRectF colorPicker;
    QRectF brightnessSlider;
    QRectF opacitySlider;
    QRectF quickButtons; // six of 50 x 30, 2 apart
    /// What the page needs; more than the screen has makes it scroll.
    double contentHeight = 0.0;

    /// Frames for a page of that width on a screen of that height. The large wheel comes with the
    /// tall phone's height, as on the phone, and with any window that is taller.
    static ChooserLayout make(double width, double screenHeight);
    bool operator==(const ChooserLayout &) const = default;
};
