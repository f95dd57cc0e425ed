#include "preview/PreviewElement.h"

#include <QHash>

#include <array>

namespace
{
// In the order of the enumeration.
constexpr std::array<const char *, previewElementCount> keys = {
    "green-balloon-colors_1",
    "green-balloon-colors_2",
    "blue-balloon-colors_1",
    "blue-balloon-colors_2",
    "gray-balloon-colors_1",
    "gray-balloon-colors_2",
    "balloon-corner-style",
    "composer-background-color",
    "composer-text-color",
    "send-button-color",
    "conversation-background-color",
    "balloon-text-color",
    "message-text-size",
    "sender-name-color",
    "timestamp-color",
    "list-background-image",
    "list-name-color",
    "list-preview-color",
    "list-separator-color",
    "list-shows-photos",
    "navigation-bar-color",
    "navigation-title-color",
    "unread-indicator-image",
    "unread-name-color",
};
} // namespace

QString keyOf(PreviewElement element)
{
    return QString::fromLatin1(keys[size_t(element)]);
}

std::optional<PreviewElement> previewElementOf(const QString &key)
{
    static const auto elements = [] {
        QHash<QString, PreviewElement> made;
        for (int index = 0; index < previewElementCount; ++index)
            made.insert(keyOf(PreviewElement(index)), PreviewElement(index));
        return made;
    }();
    const auto found = elements.constFind(key);
    return found == elements.cend() ? std::nullopt : std::optional(*found);
}
