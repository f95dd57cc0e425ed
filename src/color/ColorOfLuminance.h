// Another colour of the same light: contrast depends on the light alone, so whoever moves hue and
// chroma this way leaves every contrast ratio as it was.
#pragma once

#include <QRgb>

/// The colour with that hue (radians) and relative luminance (0 to 1), and with the chroma of OKLCh
/// as far as the screen can show it at that light. Opaque; the luminance is met within what the
/// rounding to bytes moves it. `near` is a lightness of OKLab to begin the search from.
QRgb colorOfLuminance(double luminance, double chroma, double hue, double near);
