// A theme at the size of an icon, where its screens would be illegible: the bar, and a balloon of
// each kind on the conversation's ground, in the colours and with the corners that the scene has.
#pragma once

#include "preview/PreviewPalette.h"

#include <QImage>

constexpr double previewThumbnailSide = 36.0; // points

/// A square picture with transparent corners, at so many pixels per point, though its device pixel
/// ratio is 1; null when there is no memory for it. Any thread.
QImage previewThumbnail(const PreviewPalette &palette, double scale);
