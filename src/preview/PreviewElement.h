// The elements that the scene of the themed phone shows, by the keys under which they are chosen.
#pragma once

#include <QString>

#include <optional>

enum class PreviewElement : quint8 {
    GreenBalloon1,
    GreenBalloon2,
    BlueBalloon1,
    BlueBalloon2,
    GrayBalloon1,
    GrayBalloon2,
    BalloonCorners,
    ComposerBackground,
    ComposerText,
    SendButton,
    ConversationBackground,
    BalloonText,
    MessageTextSize,
    SenderName,
    Timestamp,
    ListBackground,
    ListName,
    ListPreview,
    ListSeparator,
    ListPhotos,
    NavigationBar,
    NavigationTitle,
    UnreadIndicator,
    UnreadName
};
constexpr int previewElementCount = int(PreviewElement::UnreadName) + 1;

QString keyOf(PreviewElement element);
/// Nothing for a key that the scene does not show.
std::optional<PreviewElement> previewElementOf(const QString &key);
