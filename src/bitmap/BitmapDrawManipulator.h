// Draws on a rep's picture; its size stays. Rectangles are in pixels, measured from the top left.
#pragma once

#include "bitmap/BitmapContextManipulator.h"
#include "platform/foundation/UIColor.h"

class BitmapDrawManipulator : public BitmapContextManipulator
{
public:
    static std::unique_ptr<BitmapDrawManipulator> initWithContext(BitmapContextRep *context);

    /// Draws the image over the picture, stretched into the rectangle.
    void drawImage(QImage image, QRectF rect);
    /// Fills the ellipse inscribed in the rectangle. A pattern colour tiles its image.
    void drawEllipseInFrame(QRectF frame, UIColor color);

    bool answer(Invocation &call) override;

private:
    using BitmapContextManipulator::BitmapContextManipulator;
};
