// A file that may be a picture, and what is made of its colours.
#include "advice/PicturePalette.h"
#include "fuzz/FuzzTargets.h"
#include "pictures/ReducedPicture.h"

void Fuzz::picture(const QByteArray &bytes)
{
    const ReducedPicture read = ReducedPicture::parse(bytes);
    require(read.image.isNull() != read.problem.isEmpty(), "a picture or a sentence");
    require(std::max(read.image.width(), read.image.height()) <= ReducedPicture::forPalette,
            "it is small");
    require(read.image.isNull() || read.image.format() == QImage::Format_ARGB32, "in one format");
    const std::vector<QRgb> pixels = read.visiblePixels();
    const PicturePalette palette = paletteOf(pixels);
    require(palette.candidates.empty() == pixels.empty(), "what is seen has a colour");
    require(palette.candidates.size() <= PicturePalette::mostCandidates, "there are six at most");
    for (const auto &[color, share, score] : palette.candidates)
        require(qAlpha(color) == 255 && share > 0.0 && share <= 1.0 + 1e-9 && score >= 0.0 &&
                    score <= 1.0 + 1e-9,
                "shares are parts of one");
}
