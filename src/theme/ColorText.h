// Colour text: "#RRGGBBAA", the form in which colours are stored, shown and typed.
//
// Written: "#" and eight upper-case hexadecimal digits, each component x 255 truncated toward zero.
// Read: leniently. Every "#" is dropped; three digits are doubled (F0A is FF00AA), six get "ff" for
// an opaque alpha; the rest goes to a scanner of 32-bit hexadecimal numbers, so other lengths read
// right-aligned (ABCD is blue AB, alpha CD).
#pragma once

#include "platform/foundation/UIColor.h"

#include <QRgb>
#include <QString>

#include <optional>

/// Colour text of a colour: eight upper-case digits after "#". 0.5 gives 7F, because it truncates.
QString hexStringForColor(const UIColor &color);
/// The same of bytes, straight; exactly.
QString hexStringForRgb(QRgb color);

/// Reads any text; never fails. Text without a hexadecimal digit is transparent black, more than 32
/// bits is opaque white. Each byte is divided by 255 in single precision.
UIColor colorFromHexString(const QString &text);

/// The luma of ITU-R BT.709, or 1.0 below an alpha of 0.2 (single precision): such a colour shows
/// the light background through.
double brightnessFromColor(const UIColor &color);

/// True where text drawn over the colour should be black (brightness above 0.3), else white.
bool prefersBlackText(const UIColor &color);

/// Strict form for typed input: 3, 6 or 8 hexadecimal digits with or without one leading "#",
/// spelled out as "#" and eight upper-case digits, digit for digit. Empty for anything else.
std::optional<QString> normalizedColorText(const QString &text);
