// The owned picture: pixels to read and write, a snapshot to show, operations that change it whole.
//
// The rep does not crop, scale, rotate or draw itself. Those operations go to four manipulators,
// which are made together at the first such call and asked in the order crop, scale, rotation,
// draw; the first that has the operation runs it. The members below are the typed way in; `invoke`
// calls any operation by its name.
#pragma once

#include "bitmap/BitmapContextManipulator.h"
#include "platform/foundation/UIColor.h"

#include <QSizeF>

#include <vector>

class ANImageBitmapRep : public BitmapContextRep
{
public:
    /// As in BitmapContextRep.
    static std::unique_ptr<ANImageBitmapRep> initWithImage(const QImage &image);
    static std::unique_ptr<ANImageBitmapRep> initWithSize(BMPoint size);
    /// initWithSize of the sides, each rounded half away from zero.
    static std::unique_ptr<ANImageBitmapRep> imageBitmapRepWithCGSize(const QSizeF &size);
    static std::unique_ptr<ANImageBitmapRep> imageBitmapRepWithImage(const QImage &image);

    /// Divides the stored colours by alpha: a fully transparent pixel has colours that are not
    /// numbers, as on the phone. Positions and side effects are those of getRawPixel.
    BMPixel getPixelAtPoint(BMPoint point);
    /// Stores the pixel as BMPixelGetRaw says.
    void setPixel(BMPixel pixel, BMPoint point);

    /// The snapshot at scale 1.
    QImage image();

    /// Replaces every colour byte v, as stored, by 255 - v; alpha stays. Where alpha is not full, a
    /// colour byte may end above it, as on the phone.
    void invertColors();
    /// Multiplies the colours, up to full brightness. A negative factor wraps around, as setPixel
    /// does.
    void setBrightness(double factor);
    /// Resamples the picture to `quality` times its size and back, which costs it detail; 1 does
    /// nothing. When that size has no pixels, a transparent picture of the old size remains.
    void setQuality(double quality);

    /// A copy of the picture with a context of its own; nothing when the context is null. Shared,
    /// because the result of a call by name must be one that can be copied.
    std::shared_ptr<ANImageBitmapRep> copyWithZone();

    // Routed to the manipulators, where each is described.
    void cropFrame(QRectF frame);
    void cropTopFrame(QRectF frame);
    void cropTopEllipse(QRectF frame);
    QImage croppedImageWithFrame(QRectF frame);
    void setSize(BMPoint size);
    void setSizeFittingFrame(BMPoint size);
    void setSizeFillingFrame(BMPoint size);
    void rotate(double degrees);
    QImage imageByRotating(double degrees);
    void drawImage(QImage image, QRectF rect);
    void drawEllipseInFrame(QRectF frame, UIColor color);

    using Manipulators = std::vector<std::unique_ptr<BitmapContextManipulator>>;
    /// Empty until the first routed call.
    const Manipulators &baseClasses() const { return _baseClasses; }
    /// Makes the four manipulators anew.
    void generateBaseClasses();

    bool answer(Invocation &call) override;
    /// Offers the call to the manipulators; raises UnrecognisedOperation when none has it.
    void forwardInvocation(Invocation &call) override;

private:
    using BitmapContextRep::BitmapContextRep;
    template <class... Arguments>
    std::any route(const char *operation, Arguments &&...arguments);

    Manipulators _baseClasses;
};
