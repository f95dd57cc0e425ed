#include "catalogue/SelectedTheme.h"

namespace
{
const QString key = QStringLiteral("selectedTheme");
} // namespace

std::optional<QString> SelectedTheme::name() const
{
    const QVariant stored = _defaults.objectForKey(key);
    if (!stored.isValid())
        return std::nullopt;
    return stored.typeId() == QMetaType::QString ? stored.toString() : QString();
}

std::error_code SelectedTheme::set(const QString &name)
{
    _defaults.setObjectForKey(name, key);
    return _defaults.synchronize();
}
