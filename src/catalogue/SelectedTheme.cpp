#include "catalogue/SelectedTheme.h"

namespace
{
const QString key = QStringLiteral("selectedTheme");
const QString keptKey = QStringLiteral("selectedThemeIsKept");
} // namespace

std::optional<QString> SelectedTheme::name() const
{
    const QVariant stored = _defaults.objectForKey(key);
    if (!stored.isValid())
        return std::nullopt;
    return stored.typeId() == QMetaType::QString ? stored.toString() : QString();
}

bool SelectedTheme::isKept() const
{
    return _defaults.objectForKey(keptKey).toBool();
}

std::error_code SelectedTheme::set(const QString &name, bool isKept)
{
    if (isKept != this->isKept())
        _defaults.setObjectForKey(isKept ? QVariant(true) : QVariant(), keptKey);
    _defaults.setObjectForKey(name, key);
    return _defaults.synchronize();
}
