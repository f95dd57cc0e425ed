// Images to and from bitmap reps, and images at other sizes. Results have scale 1; sizes are in
// pixels and rounded half away from zero. A size without pixels gives a null image.
#pragma once

#include "bitmap/ANImageBitmapRep.h"

/// The rep's picture.
QImage imageFromImageBitmapRep(ANImageBitmapRep &rep);
/// A rep with a copy of the image's pixels.
std::unique_ptr<ANImageBitmapRep> imageBitmapRep(const QImage &image);

/// The image stretched to the size.
QImage imageByScalingToSize(const QImage &image, const QSizeF &size);
/// All of the image in its proportions, centred on a transparent canvas of the size.
QImage imageFittingFrame(const QImage &image, const QSizeF &size);
/// The image in its proportions, covering the size; what overhangs is cut off.
QImage imageFillingFrame(const QImage &image, const QSizeF &size);
