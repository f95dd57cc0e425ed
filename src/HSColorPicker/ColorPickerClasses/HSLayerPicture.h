// Pictures for layers: areas with rounded corners, smoothed when they are made, so that a circle is
// round wherever it is shown.
#pragma once

#include <QBrush>
#include <QImage>
#include <QSizeF>

/// A rectangle of `size` points filled by `paint` at `scale` pixels per point, transparent outside
/// its rounded corners. `cornerRadius` is in points, 0 for square corners; half the size makes a
/// circle. A texture covers one pixel with each of its own, tiling from the top left. A size or
/// scale that leaves no pixels gives a null image. The image itself carries no scale (its device
/// pixel ratio is 1).
QImage HSLayerPicture(const QBrush &paint, QSizeF size, double scale, double cornerRadius);

/// The same filled with an image, stretched to the whole size.
QImage HSLayerPicture(const QImage &image, QSizeF size, double scale, double cornerRadius);
