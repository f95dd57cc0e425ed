// How other eyes see a picture: those that lack one kind of cone, and those that see no colour.
//
// Pixels are taken to linear light, multiplied by a matrix and taken back. Greys stay grey and
// white stays white for all eyes.
#pragma once

#include <QImage>

enum class Eyes {
    Normal,
    Protan, // without the cones for long waves, "red"
    Deutan, // without those for middle ones, "green"
    Tritan, // without those for short ones, "blue"
    Grey,   // brightness alone
};

/// One colour as those eyes see it. Alpha stays; the colour is straight, not premultiplied.
QRgb seenBy(Eyes eyes, QRgb color);

/// A picture as those eyes see it: RGB32, or ARGB32 where it has an alpha channel, with the same
/// size and device pixel ratio. Normal eyes, and a null picture, return the picture as it is.
QImage seenBy(Eyes eyes, const QImage &picture);
