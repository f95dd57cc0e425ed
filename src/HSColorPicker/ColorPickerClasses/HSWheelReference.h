// The colour wheel's picture, defined pixel by pixel.
//
// This is the plain form of what HSWheelKernel computes fast. It says what is right, serves the
// diameters that the kernel does not take, and the tests hold the kernel against it.
#pragma once

#include "bitmap/BMPixel.h"

/// The colour of one pixel, as a position from the top left. A wheel is `diameter` pixels across
/// and reaches full saturation `padding` pixels inside its edge; further out everything is
/// saturated. With a rim at 0 or less everything is. A pixel takes the colour of its top left
/// corner, as on the phone; angle and distance are rounded to single precision, the rest is double.
BMPixel HSWheelPixel(int column, int row, double diameter, double padding);

/// Writes a square picture of `side` x `side` pixels: alpha, red, green, blue, top row first.
void HSFillWheelScalar(std::uint8_t *pixels, int side, double diameter, double padding);
