// OKLab: a space in which equal distances look about equally far apart, and OKLCh, the same by hue
// and chroma. Bjorn Ottosson, "A perceptual color space for image processing" (2020).
//
// Black is (0, 0, 0), white (1, 0, 0), and greys have neither a nor b.
#pragma once

#include <QRgb>

struct OKLab {
    double lightness; // 0 to 1 for what a screen can show
    double a;         // green to red, about -0.24 to 0.28
    double b;         // blue to yellow, about -0.32 to 0.20
};

struct OKLCh {
    double lightness;
    double chroma; // 0 for greys, up to about 0.32
    double hue;    // radians
};

/// Alpha counts for nothing.
OKLab oklabFromRgb(QRgb color);
/// The nearest bytes, opaque. Every 8-bit colour comes back from its own place; what no screen can
/// show is cut off channel by channel.
QRgb rgbFromOklab(const OKLab &color);

OKLCh oklchFromOklab(const OKLab &color);
OKLab oklabFromOklch(const OKLCh &color);
/// The same lightness and hue, with the greatest chroma up to the given one that sRGB can show;
/// black from a lightness of 0 on downwards and white from 1 on upwards.
QRgb rgbFromOklch(const OKLCh &color);

/// Euclidean; 1 from black to white.
double distanceBetween(const OKLab &one, const OKLab &other);
