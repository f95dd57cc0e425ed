// A person's picture, made small while it is read.
//
// Whatever Qt's readers take: the first frame of an animated one, 16 bits a channel and CMYK
// brought to 8 bits of red, green and blue, turned as the file says, in sRGB. A colour profile that
// is broken is left out of account. Its size is looked at before anything is decoded, so that what
// a file claims to be cannot fill the memory.
#pragma once

#include <QImage>
#include <QString>

#include <vector>

struct ReducedPicture {
    static constexpr qint64 mostPixels = 100'000'000;
    static constexpr int forPalette = 128;

    QImage image;    // ARGB32; null when there is a problem
    QString problem; // for people, about "it"; else empty

    /// At most that many pixels on the longer side; never larger than the picture itself. The
    /// problem names the file.
    static ReducedPicture read(const QString &path, int longerSide = forPalette);
    /// The same from a file's bytes.
    static ReducedPicture parse(const QByteArray &bytes, int longerSide = forPalette);

    /// Those of the image that are more seen than seen through, taken as opaque.
    std::vector<QRgb> visiblePixels() const;
};
