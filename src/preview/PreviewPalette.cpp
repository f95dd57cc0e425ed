#include "preview/PreviewPalette.h"

#include "theme/ElementPicture.h"
#include "theme/ShownColor.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
PreviewPalette::Corners cornersOf(const QString &style)
{
    return style == "square"_L1 ? PreviewPalette::Corners::Square
           : style == "soft"_L1 ? PreviewPalette::Corners::Soft
                                : PreviewPalette::Corners::Round;
}

/// What is no size at all reads as 0. Beyond the bounds no text would fit a balloon.
int textSizeOf(double size)
{
    return size > 0.0 ? int(std::lround(std::clamp(size, 8.0, 32.0))) : PreviewPalette().textSize;
}
} // namespace

PreviewPalette PreviewPalette::fromElements(const ElementDataSource &elements,
                                            const std::optional<Passing> &passing)
{
    PreviewPalette palette;
    const auto &records = elements.tableSource();
    for (size_t index = 0; index < records.size(); ++index) {
        const ElementRecord &record = records[index];
        const auto element = previewElementOf(record.key);
        if (!element)
            continue;
        const bool passes = passing && passing->index == int(index);
        const QVariant color = passes ? QVariant(passing->colorText) : record.color;
        if (record.isChoice())
            palette.take(*element, record.value.isValid() ? record.value : QVariant(u"0"_s));
        else if (color.isValid())
            palette.take(*element, color);
    }
    const auto listBackground = elements.shownIndexOfKey(keyOf(PreviewElement::ListBackground));
    if (const auto picture = ElementPicture::behindList(elements);
        picture && !(passing && passing->index == listBackground))
        palette.listPicture = picture->shown(listPictureSize);
    return palette;
}

void PreviewPalette::take(PreviewElement element, const QVariant &value)
{
    const QString text = PropertyList::textOf(value);
    switch (element) {
    case PreviewElement::BalloonCorners:
        corners = cornersOf(text);
        break;
    case PreviewElement::MessageTextSize:
        textSize = textSizeOf(value.toDouble());
        break;
    case PreviewElement::ListPhotos:
        showsPhotos = value.toBool();
        break;
    default:
        colors[size_t(element)] =
            text.isEmpty() ? std::nullopt : std::optional(rgbFromHexString(text));
    }
}

bool PreviewPalette::hasLayoutOf(const PreviewPalette &other) const
{
    return corners == other.corners && textSize == other.textSize &&
           showsPhotos == other.showsPhotos;
}
