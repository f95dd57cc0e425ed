// How well one colour stands out from another, by the Web Content Accessibility Guidelines 2.1 of
// the W3C, and the nearest colour that does.
#pragma once

#include "color/OKLab.h"

#include <QRgb>

#include <functional>
#include <optional>
#include <span>

/// The light of an opaque colour, 0 for black to 1 for white. Alpha counts for nothing.
double relativeLuminance(QRgb color);

/// From 1 (the same light) to 21 (black and white), in either order. Composite alpha first.
double contrastRatio(QRgb one, QRgb other);

enum class Direction { Lighter, Darker };

/// The nearest colour in that direction which is accepted: of the same hue, and of the same chroma
/// as far as the screen can show it at another lightness. Alpha stays. What is asked about, and
/// returned, are the bytes after rounding. The colour itself is not asked about; nothing where no
/// colour up to white, or down to black, is accepted. Of several accepted stretches of lightness
/// one that is narrower than 1/256 may be passed over.
std::optional<QRgb> nearestAccepted(QRgb color, Direction direction,
                                    const std::function<bool(QRgb)> &accepts);

/// The same for a colour that is to have at least that contrast ratio with each of these opaque
/// grounds, over which its alpha is composited.
std::optional<QRgb> nearestReadable(QRgb color, Direction direction, std::span<const QRgb> grounds,
                                    double ratio);
