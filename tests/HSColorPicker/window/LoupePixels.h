// Pixels of pictures that have a scale.
#pragma once

#include <QImage>
#include <QPointF>

/// The pixel over a point, in points from the picture's top left.
inline QRgb pixelAt(const QImage &picture, QPointF point)
{
    const QPointF pixel = point * picture.devicePixelRatio();
    return picture.pixel(int(pixel.x()), int(pixel.y()));
}

/// The same, in the loupe's coordinates.
inline QRgb pixelAt(const QImage &picture, double x, double y)
{
    return pixelAt(picture, QPointF(48.5 + x, 48.5 + y));
}
