// The colours in which a screen is painted: a palette's own where it has them, stand-ins where they
// are removed, and what follows from them, such as the arrow on the send button.
//
// Two palettes differ on a screen exactly where a shape's ink differs; that tells what to repaint.
#pragma once

#include "preview/PreviewPalette.h"

#include <QRgb>

#include <array>

enum class PreviewScreen { Conversation, MessageList };

enum class PreviewInk : quint8 {
    Ground, // opaque
    Bar,
    BarEdge,
    BarText,
    BarMarks, // in the status strip
    GreenBalloon,
    BlueBalloon,
    GrayBalloon,
    BalloonEdge,
    GreenText,
    BlueText,
    GrayText,
    SenderName,
    Timestamp,
    Composer,
    ComposerEdge,
    Field,
    FieldEdge,
    ComposerText,
    SendButton,
    SendArrow,
    ListName,
    UnreadName,
    ListPreview,
    Separator,
    UnreadMark,
    Photo1, // and as many more as there are rows in the list
    Photo2,
    Photo3,
    Photo4,
    Photo5,
    Photo6,
    PhotoText
};
constexpr int previewInkCount = int(PreviewInk::PhotoText) + 1;

/// Colours at the top and at the bottom of a shape, straight; a gradient where they differ.
struct PreviewFill {
    QRgb top = 0;
    QRgb bottom = 0;
    bool operator==(const PreviewFill &) const = default;
};

class PreviewInks
{
public:
    PreviewInks(const PreviewPalette &palette, PreviewScreen screen);

    const PreviewFill &operator[](PreviewInk ink) const { return _fills[size_t(ink)]; }

private:
    void set(PreviewInk ink, QRgb color) { _fills[size_t(ink)] = {color, color}; }
    void mixBar(const PreviewPalette &palette);
    void mixBalloon(const PreviewPalette &palette, PreviewElement first, PreviewInk balloon,
                    PreviewInk text);
    void mixConversation(const PreviewPalette &palette);
    void mixComposer(const PreviewPalette &palette);
    void mixList(const PreviewPalette &palette);
    /// The opaque colour that an ink makes on the ground.
    QRgb onGround(PreviewInk ink) const;

    std::array<PreviewFill, previewInkCount> _fills;
};
