// A file that may be a picture: what is made of its colours, and it as what stands behind the list.
#include "advice/PicturePalette.h"
#include "fuzz/FuzzTargets.h"
#include "pictures/ReducedPicture.h"
#include "theme/ElementPicture.h"
#include "theme/PictureEntry.h"

#include <algorithm>
#include <cmath>

using Fuzz::require;

namespace
{
void requirePalette(const ReducedPicture &read)
{
    const std::vector<QRgb> pixels = read.visiblePixels();
    const PicturePalette palette = paletteOf(pixels);
    require(palette.candidates.empty() == pixels.empty(), "what is seen has a colour");
    require(palette.candidates.size() <= PicturePalette::mostCandidates, "there are six at most");
    for (const auto &[color, share, score] : palette.candidates)
        require(qAlpha(color) == 255 && share > 0.0 && share <= 1.0 + 1e-9 && score >= 0.0 &&
                    score <= 1.0 + 1e-9,
                "shares are parts of one");
}

/// Through a property list and a file, as a theme keeps it.
std::optional<ElementPicture> kept(const ElementPicture &picture, const ElementChoice &choice)
{
    const QByteArray document =
        R"([{"key":"list-background-image","name":"","description":"","color":"#FFF",)"
        R"("options":null,"value":null,"section":"All"}])";
    PropertyDictionary chosen;
    chosen.setValue(QStringLiteral("list-background-image"), choice.color);
    QVariantMap entry = choice.value.toMap();
    entry.insert(QStringLiteral("file"), PictureEntry::fileName(picture.jpeg));
    chosen.setValue(PictureEntry::key(), entry);
    const auto files = [&](const QString &) { return picture.jpeg; };
    const auto checked = PictureEntry::checked(chosen, files);
    require(checked && !checked->toMap().contains(QStringLiteral("jpeg")), "it leads to a picture");
    chosen.setValue(PictureEntry::key(), *checked);
    auto read = PropertyList::readDictionary(PropertyList::writeDictionary(chosen));
    require(read.has_value(), "it can be written");
    PictureEntry::readFile(*read, files);
    return ElementPicture::behindList(
        ElementDataSource::parse(document, QStringLiteral("document"), &*read));
}

/// The bytes say where it is moved to, too.
void requirePlaceable(ElementPicture picture, const QByteArray &bytes)
{
    const QImage whole = picture.whole(64);
    require(!whole.isNull(), "what was taken can be read");
    for (const char byte : bytes.last(std::min<qsizetype>(bytes.size(), 4)))
        picture = byte & 1 ? picture.closer(whole.size(), std::exp2(byte / 16.0))
                           : picture.moved(whole.size(), byte / 50.0, byte / 70.0);
    require(picture.x >= 0.0 && picture.x <= 1.0 && picture.y >= 0.0 && picture.y <= 1.0 &&
                picture.zoom >= 1.0 && picture.zoom <= ElementPicture::mostZoom,
            "it stays in the frame");
    const QImage shown = picture.shown({16, 28});
    require(shown.size() == QSize(16, 28), "it fills the frame");
    const auto choice = picture.choice();
    require(choice && choice->color.toString().size() == 9, "it has a mean");
    require(kept(picture, *choice) == picture, "it is kept as it is");
}
} // namespace

void Fuzz::picture(const QByteArray &bytes)
{
    const ReducedPicture read = ReducedPicture::parse(bytes);
    require(read.image.isNull() != read.problem.isEmpty(), "a picture or a sentence");
    require(std::max(read.image.width(), read.image.height()) <= ReducedPicture::forPalette,
            "it is small");
    require(read.image.isNull() || read.image.format() == QImage::Format_ARGB32, "in one format");
    requirePalette(read);
    const auto [whole, problem] = ElementPicture::parse(bytes);
    require(whole.has_value() == problem.isEmpty(), "a picture or a sentence for the list, too");
    if (whole)
        requirePlaceable(*whole, bytes);
}
