// sRGB and linear light: what a byte of colour means in light, and back.
#pragma once

#include <QtGlobal>

/// The light of a channel's byte, 0 to 1. The transfer function of IEC 61966-2-1 (sRGB), with the
/// threshold 0.04045 at which its two pieces meet.
float linearFromSrgb(quint8 byte);

/// The nearest byte for an amount of light; what lies outside 0 to 1 is taken as the nearer end,
/// and not-a-number as 0. Every byte comes back from its own light.
quint8 srgbFromLinear(float light);
