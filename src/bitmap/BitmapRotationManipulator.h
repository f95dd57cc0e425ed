// Turns a rep's picture. Positive angles, in degrees, turn it counter-clockwise.
#pragma once

#include "bitmap/BitmapContextManipulator.h"

class BitmapRotationManipulator : public BitmapContextManipulator
{
public:
    static std::unique_ptr<BitmapRotationManipulator> initWithContext(BitmapContextRep *context);

    /// Replaces the picture by the turned one, on a canvas of the turned picture's bounding box,
    /// each side rounded to whole pixels. An angle of 0 does nothing; one that is not finite leaves
    /// the rep with a null context.
    void rotate(double degrees);
    /// The turned picture on a canvas whose sides are rounded up; the rep stays as it is. An angle
    /// of 0 gives the rep's own snapshot, one that is not finite a null image.
    QImage imageByRotating(double degrees);

    bool answer(Invocation &call) override;

private:
    using BitmapContextManipulator::BitmapContextManipulator;
    CGContext newContextRotated(double degrees, const QSizeF &canvas);
};
