// A text as a QR code.
#pragma once

#include <QImage>
#include <QString>

namespace QrPicture
{
struct Drawn {
    QImage image;    // black on white, with the margin of four modules that readers need
    QString problem; // why there is none, a clause for people; else empty
};
/// Of ASCII text. Each module is as many pixels wide as keeps the picture at or above `size` pixels
/// on a side, at least one.
Drawn of(const QString &text, int size);
} // namespace QrPicture
