// Makes bitmap contexts.
//
// Both operations compute the byte count in 32-bit signed arithmetic, wrapping on overflow, as on
// the phone. A size whose count turns out negative counts as memory that could not be had ("Malloc
// failed which is too bad.  I was hoping to use this memory." in the log); one whose count is too
// small for its rows, or that has a side of 0, as a bitmap that could not be made ("Failed to
// create bitmap!"). Either way the result is the null context. Colours are the device's own, so no
// colour space can be missing.
#pragma once

#include "bitmap/CGContext.h"

#include <QSizeF>

class CGContextCreator
{
public:
    /// A transparent context of that many pixels, each side rounded half away from zero.
    static CGContext newARGBBitmapContextWithSize(const QSizeF &size);
    /// A context of the image's size in pixels, holding a copy of the image.
    static CGContext newARGBBitmapContextWithImage(const QImage &image);
};
