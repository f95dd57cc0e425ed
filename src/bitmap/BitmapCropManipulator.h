// Cuts a part out of a rep's picture. What lies outside the picture becomes transparent.
#pragma once

#include "bitmap/BitmapContextManipulator.h"

/// Rectangles are in pixels. A size that no context can have leaves the rep with a null context.
class BitmapCropManipulator : public BitmapContextManipulator
{
public:
    static std::unique_ptr<BitmapCropManipulator> initWithContext(BitmapContextRep *context);

    /// The rectangle's origin is the picture's bottom left corner, y upward.
    void cropFrame(QRectF frame);
    /// The rectangle's origin is the picture's top left corner, y downward.
    void cropTopFrame(QRectF frame);
    /// Keeps only the ellipse inscribed in the rectangle, whose four values are rounded first.
    void cropTopEllipse(QRectF frame);
    /// What cropFrame would leave, as an image; the rep stays as it is.
    QImage croppedImageWithFrame(QRectF frame);

    bool answer(Invocation &call) override;

private:
    using BitmapContextManipulator::BitmapContextManipulator;
    CGContext newContextWithFrame(const QRectF &frame);
    CGContext newContextWithTopFrame(const QRectF &frame);
};
