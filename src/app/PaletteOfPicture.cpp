#include "app/PaletteOfPicture.h"

#include "app/StandardStreams.h"
#include "pictures/ReducedPicture.h"

using namespace Qt::StringLiterals;

std::optional<PicturePalette> paletteOfPicture(const QString &file)
{
    const ReducedPicture picture = ReducedPicture::read(file);
    if (!picture.problem.isEmpty()) {
        complain(u"cannot read %1"_s.arg(picture.problem));
        return std::nullopt;
    }
    PicturePalette palette = paletteOf(picture.visiblePixels());
    if (palette.candidates.empty()) {
        complain(u"%1: nothing of it can be seen"_s.arg(file));
        return std::nullopt;
    }
    if (palette.isGrey)
        complain(u"%1 has no colours; its theme is grey, with a quiet accent"_s.arg(file));
    return palette;
}
