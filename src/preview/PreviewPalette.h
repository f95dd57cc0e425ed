// What the scene of the themed phone is drawn from: the choices of one theme, taken apart. A value,
// which may be handed to another thread.
#pragma once

#include "preview/PreviewElement.h"
#include "theme/ElementDataSource.h"

#include <QImage>
#include <QRgb>

#include <array>
#include <optional>

struct PreviewPalette {
    enum class Corners { Round, Soft, Square };

    /// By element, straight and not premultiplied; nothing where the colour is removed, where no
    /// element of the list chooses it, and for the elements that are no colours.
    std::array<std::optional<QRgb>, previewElementCount> colors;
    Corners corners = Corners::Round;
    int textSize = 16; // points
    bool showsPhotos = true;
    static constexpr QSize listPictureSize{640, 1136};
    QImage listPicture; // at most of that size, behind the message list, in place of its colour;
                        // null where there is none

    /// A colour that is being picked for an element and is shown in place of its choice.
    struct Passing {
        int index; // the element's, in the order of the list
        QString colorText;
    };

    /// Shows what a theme would hold that is saved with these choices, and so takes what the
    /// package writer would: of several elements with one key the last whose colour is not null,
    /// and colour text as lenient as it is read everywhere. Keys that the scene does not know
    /// change nothing; option values that it cannot read stand for the usual. A theme package is
    /// shown by laying its dictionary over the list of elements, as editing it does.
    static PreviewPalette fromElements(const ElementDataSource &elements,
                                       const std::optional<Passing> &passing = {});

    const std::optional<QRgb> &color(PreviewElement element) const
    {
        return colors[size_t(element)];
    }
    /// True where scenes are laid out alike; only colours may differ then.
    bool hasLayoutOf(const PreviewPalette &other) const;
    bool operator==(const PreviewPalette &) const = default;

private:
    void take(PreviewElement element, const QVariant &value);
};
