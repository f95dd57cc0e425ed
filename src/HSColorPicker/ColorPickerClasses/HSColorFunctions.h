// The colour functions of the wheel.
#pragma once

#include "bitmap/BMPixel.h"
#include "platform/foundation/UIColor.h"

#include <QImage>

#include <cstdint>
#include <functional>

/// The hexcone model of A. R. Smith, "Color Gamut Transform Pairs" (1978). Hue in turns, 1 counting
/// as 0; saturation and brightness 0-1. Channels are not rounded, alpha is 1. A hue outside 0-1
/// falls into the last of the six sectors, without being wrapped, as on the phone.
BMPixel HSPixelFromHSV(double hue, double saturation, double brightness);

/// Writes red, green, blue and alpha, 0-1. A grey is spread over the three colours. A pattern gives
/// the pixel that it draws at the bottom left of a canvas of scale 1.
void HSGetComponentsForColor(double (&components)[4], const UIColor &color);

/// The same pixels at another scale (pixels per point). A scale that is not above 0 counts as 1.
QImage HSUIImageWithScale(QImage image, double scale);

/// A tile of four squares, the colour at the top left and bottom right, white in the other two: the
/// ground under translucent colours. `length` is the tile's side in points, `scale` in pixels per
/// point. A length or scale that is not above 0 ends the program.
QImage HSOpacityBackgroundImage(double length, double scale, const UIColor &color);

/// 32 random bits per call.
using HSRandomSource = std::function<std::uint32_t()>;
/// The system's generator.
HSRandomSource HSSystemRandomSource();
/// A random colour: hue 0-255/256, saturation and brightness 128/256-255/256 and, unless it is to
/// be opaque, alpha likewise. Draws in that order, one number per random component.
UIColor HSRandomColorOpaque(bool isOpaque, const HSRandomSource &random = HSSystemRandomSource());
