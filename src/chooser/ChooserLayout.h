// Where everything on the chooser's page stands, in points.
#pragma once

#include <QObject>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

struct ChooserLayout {
    Q_GADGET
    QML_VALUE_TYPE(chooserLayout)
    Q_PROPERTY(QRectF cancelButton MEMBER cancelButton CONSTANT FINAL)
    Q_PROPERTY(QRectF removeButton MEMBER removeButton CONSTANT FINAL)
    Q_PROPERTY(QRectF saveButton MEMBER saveButton CONSTANT FINAL)
    Q_PROPERTY(QRectF colorPatch MEMBER colorPatch CONSTANT FINAL)
    Q_PROPERTY(QRectF hexTextField MEMBER hexTextField CONSTANT FINAL)
    Q_PROPERTY(QRectF colorPicker MEMBER colorPicker CONSTANT FINAL)
    Q_PROPERTY(QRectF brightnessSlider MEMBER brightnessSlider CONSTANT FINAL)
    Q_PROPERTY(QRectF opacitySlider MEMBER opacitySlider CONSTANT FINAL)
    Q_PROPERTY(QRectF quickButtons MEMBER quickButtons CONSTANT FINAL)
    Q_PROPERTY(double contentHeight MEMBER contentHeight CONSTANT FINAL)

public:
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

    /// Frames for a page of that width on a screen of that height. Only the tall phone's own height
    /// has the large wheel, as on the phone.
    static ChooserLayout make(double width, double screenHeight);
    bool operator==(const ChooserLayout &) const = default;
};
