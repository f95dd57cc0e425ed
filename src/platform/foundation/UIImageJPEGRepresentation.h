// JPEG encoding.
#pragma once

#include <QByteArray>
#include <QImage>

/// The image as a JPEG file. Quality runs from 0 (smallest) to 1 (best); values outside are taken
/// as the nearer end. JPEG has no alpha: every pixel is written with its straight red, green and
/// blue, opaque. Empty on failure: a null image, a side above 65,500 pixels, no memory. Any thread.
QByteArray UIImageJPEGRepresentation(const QImage &image, float quality);
