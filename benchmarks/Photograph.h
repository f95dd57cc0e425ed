// A picture for whatever works with a person's pictures.
#pragma once

#include <QImage>

/// 12 megapixels of something like a landscape: soft transitions, a few things in other colours,
/// and the sensor's noise. Always the same.
QImage photograph();
