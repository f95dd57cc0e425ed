// Colours as small square pictures, for rows of tables.
#pragma once

#include <QImage>
#include <QRgb>

#include <optional>

constexpr double colorSwatchSide = 36.0; // points

/// A colour, what shines through it a chequered ground; and another one that lies on it, if any. At
/// so many pixels per point.
QImage colorSwatch(QRgb color, std::optional<QRgb> on, double scale);
