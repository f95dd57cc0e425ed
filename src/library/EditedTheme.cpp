#include "library/EditedTheme.h"

namespace
{
const QString key = QStringLiteral("editedTheme");
} // namespace

std::optional<QString> EditedTheme::name() const
{
    const QVariant stored = _defaults.objectForKey(key);
    const QString text = stored.typeId() == QMetaType::QString ? stored.toString() : QString();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

std::error_code EditedTheme::set(const std::optional<QString> &newName)
{
    if (newName == name())
        return {};
    _defaults.setObjectForKey(newName ? QVariant(*newName) : QVariant(), key);
    return _defaults.synchronize();
}
