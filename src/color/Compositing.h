// What is seen where one colour lies over another.
#pragma once

#include <QRgb>

/// A straight (not premultiplied) colour over an opaque one, whose alpha counts for nothing; the
/// result is opaque. "Over" of Porter and Duff, "Compositing Digital Images" (1984), on the bytes
/// as they are: so do the phone's screen and QPainter mix, which know nothing of linear light.
QRgb composited(QRgb over, QRgb ground);
