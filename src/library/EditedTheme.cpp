#include "library/EditedTheme.h"

namespace
{
const QString key = QStringLiteral("editedTheme");
const QString removedKey = QStringLiteral("removedEditedTheme");

QVariant asValue(const std::optional<QString> &name)
{
    return name ? QVariant(*name) : QVariant();
}
} // namespace

std::optional<QString> EditedTheme::textFor(const QString &key) const
{
    const QVariant stored = _defaults.objectForKey(key);
    const QString text = stored.typeId() == QMetaType::QString ? stored.toString() : QString();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

std::optional<QString> EditedTheme::name() const
{
    return textFor(key);
}

std::optional<QString> EditedTheme::removed() const
{
    return textFor(removedKey);
}

std::error_code EditedTheme::set(const std::optional<QString> &newName)
{
    if (newName == name() && !removed())
        return {};
    _defaults.setObjectForKey(asValue(newName), key);
    _defaults.setObjectForKey(QVariant(), removedKey);
    return _defaults.synchronize();
}

std::error_code EditedTheme::setRemoved(const QString &name)
{
    _defaults.setObjectForKey(QVariant(), key);
    _defaults.setObjectForKey(name, removedKey);
    return _defaults.synchronize();
}
