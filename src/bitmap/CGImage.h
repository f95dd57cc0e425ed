// Images as the bitmap toolkit names them.
//
// QImage plays both parts: the platform image, which has a scale (its device pixel ratio), and the
// plain bitmap image under it, whose readers count pixels and ignore the scale. A QImage is a
// counted reference to its pixels, so none of these copies any, and every result stays valid for as
// long as somebody holds it.
#pragma once

#include <QImage>

/// The bitmap under a platform image.
inline QImage CGImageFromANImage(const QImage &image)
{
    return image;
}

/// A platform image of scale 1. Only an image of another scale is copied for it.
inline QImage ANImageFromCGImage(const QImage &image)
{
    QImage result = image;
    result.setDevicePixelRatio(1.0);
    return result;
}

/// A reference that the caller may drop whenever it likes.
inline QImage CGImageReturnAutoreleased(const QImage &image)
{
    return image;
}
