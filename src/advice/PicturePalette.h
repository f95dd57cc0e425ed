// Which colours of a picture can lead a theme.
#pragma once

#include <QRgb>

#include <span>
#include <vector>

struct PicturePalette {
    static constexpr int mostCandidates = 6;

    struct Candidate {
        QRgb color;   // opaque
        double share; // of the pixels that are coloured within 15 degrees of its hue, 0 to 1; of a
                      // grey picture those of about that grey
        double score; // 0 to 1
    };
    /// Those that differ most from the ones before them come first, and the best one of all. None
    /// for a picture without pixels.
    std::vector<Candidate> candidates;
    /// Nothing coloured is in it: the candidates are greys, by which a theme becomes grey.
    bool isGrey = false;
};

/// The pixels' alpha counts for nothing. Hues are taken far apart first, at least 90 degrees, then
/// ever nearer ones down to 15; of a picture with fewer hues, other tones of them follow. A hue
/// that less than 1 % of the pixels have is none, and what is nearly grey is no colour.
PicturePalette paletteOf(std::span<const QRgb> pixels);
