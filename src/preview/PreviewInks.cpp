#include "preview/PreviewInks.h"

#include "color/Compositing.h"
#include "theme/ColorText.h"
#include "theme/ShownColor.h"

namespace
{
constexpr QRgb white = 0xFFFFFFFF;
constexpr QRgb black = 0xFF000000;

/// The colour for an element on an opaque ground.
QRgb shown(const PreviewPalette &palette, PreviewElement element, QRgb ground)
{
    const auto &chosen = palette.color(element);
    return chosen ? *chosen : standInColor(keyOf(element), ground).value_or(black);
}

QRgb withAlpha(QRgb color, int alpha)
{
    return qRgba(qRed(color), qGreen(color), qBlue(color), alpha);
}

QRgb opaque(QRgb color)
{
    return withAlpha(color, 255);
}

QRgb middleOf(const PreviewFill &fill)
{
    const auto mean = [](int one, int other) { return (one + other) / 2; };
    return qRgba(
        mean(qRed(fill.top), qRed(fill.bottom)), mean(qGreen(fill.top), qGreen(fill.bottom)),
        mean(qBlue(fill.top), qBlue(fill.bottom)), mean(qAlpha(fill.top), qAlpha(fill.bottom)));
}
} // namespace

PreviewInks::PreviewInks(const PreviewPalette &palette, PreviewScreen screen)
{
    using enum PreviewElement;
    if (screen == PreviewScreen::Conversation)
        set(PreviewInk::Ground, composited(shown(palette, ConversationBackground, white), white));
    else
        set(PreviewInk::Ground, opaque(shown(palette, ListBackground, white)));
    mixBar(palette);
    if (screen == PreviewScreen::Conversation) {
        mixConversation(palette);
        mixComposer(palette);
    } else {
        mixList(palette);
    }
}

QRgb PreviewInks::onGround(PreviewInk ink) const
{
    return composited(middleOf((*this)[ink]), (*this)[PreviewInk::Ground].top);
}

void PreviewInks::mixBar(const PreviewPalette &palette)
{
    const QRgb ground = (*this)[PreviewInk::Ground].top;
    set(PreviewInk::Bar, shown(palette, PreviewElement::NavigationBar, ground));
    const QRgb title = shown(palette, PreviewElement::NavigationTitle, onGround(PreviewInk::Bar));
    set(PreviewInk::BarText, title);
    set(PreviewInk::BarMarks, withAlpha(title, qAlpha(title) * 4 / 5));
    set(PreviewInk::BarEdge, withAlpha(title, qAlpha(title) / 6));
}

void PreviewInks::mixBalloon(const PreviewPalette &palette, PreviewElement first,
                             PreviewInk balloon, PreviewInk text)
{
    const QRgb ground = (*this)[PreviewInk::Ground].top;
    const auto second = PreviewElement(int(first) + 1);
    const bool isSecondAlone = !palette.color(first) && palette.color(second);
    const QRgb top = shown(palette, isSecondAlone ? second : first, ground);
    _fills[size_t(balloon)] = {top, palette.color(second).value_or(top)};
    set(text, shown(palette, PreviewElement::BalloonText, onGround(balloon)));
}

void PreviewInks::mixConversation(const PreviewPalette &palette)
{
    using enum PreviewElement;
    const QRgb ground = (*this)[PreviewInk::Ground].top;
    mixBalloon(palette, GreenBalloon1, PreviewInk::GreenBalloon, PreviewInk::GreenText);
    mixBalloon(palette, BlueBalloon1, PreviewInk::BlueBalloon, PreviewInk::BlueText);
    mixBalloon(palette, GrayBalloon1, PreviewInk::GrayBalloon, PreviewInk::GrayText);
    // A balloon of nearly the ground's colour still has a shape.
    set(PreviewInk::BalloonEdge, withAlpha(isLight(ground) ? black : white, 26));
    set(PreviewInk::SenderName, shown(palette, SenderName, ground));
    set(PreviewInk::Timestamp, shown(palette, Timestamp, ground));
}

void PreviewInks::mixComposer(const PreviewPalette &palette)
{
    using enum PreviewElement;
    set(PreviewInk::Composer, shown(palette, ComposerBackground, (*this)[PreviewInk::Ground].top));
    const QRgb composer = onGround(PreviewInk::Composer);
    const QRgb text = shown(palette, ComposerText, composer);
    set(PreviewInk::ComposerText, text);
    set(PreviewInk::ComposerEdge, withAlpha(isLight(composer) ? black : white, 26));
    // The field has no colour of its own: it lifts the composer's away from its text.
    const bool darkText = !isLight(composited(text, composer));
    set(PreviewInk::Field, withAlpha(darkText ? white : black, darkText ? 140 : 70));
    set(PreviewInk::FieldEdge, withAlpha(isLight(composer) ? black : white, 40));
    const QRgb button = shown(palette, SendButton, composer);
    set(PreviewInk::SendButton, button);
    // An arrow this thick is seen in white on any but the bright colours, and looks calmer so.
    const QRgb face = composited(button, composer);
    set(PreviewInk::SendArrow,
        brightnessFromColor(UIColor::colorWithRed(qRed(face) / 255.0, qGreen(face) / 255.0,
                                                  qBlue(face) / 255.0, 1.0)) > 0.6
            ? black
            : white);
}

void PreviewInks::mixList(const PreviewPalette &palette)
{
    using enum PreviewElement;
    const QRgb ground = (*this)[PreviewInk::Ground].top;
    const QRgb name = shown(palette, ListName, ground);
    set(PreviewInk::ListName, name);
    set(PreviewInk::UnreadName, palette.color(UnreadName).value_or(name));
    set(PreviewInk::ListPreview, shown(palette, ListPreview, ground));
    set(PreviewInk::Separator, shown(palette, ListSeparator, ground));
    set(PreviewInk::UnreadMark, opaque(shown(palette, UnreadIndicator, ground)));
    // Photos belong to the people, not to the theme: middle tones, for light lists and dark ones.
    constexpr QRgb photos[] = {0xFF5E9C76, 0xFFC77B58, 0xFF5B88B8,
                               0xFFB0739B, 0xFF8A7BC0, 0xFF4F9AA3};
    for (size_t index = 0; index < std::size(photos); ++index)
        set(PreviewInk(size_t(PreviewInk::Photo1) + index), photos[index]);
    set(PreviewInk::PhotoText, white);
}
