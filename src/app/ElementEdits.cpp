#include "app/ElementEdits.h"

#include "app/NearestNames.h"
#include "theme/ColorText.h"

using namespace Qt::StringLiterals;

namespace
{
QStringList similarKeys(const ElementDataSource &source, const QString &key)
{
    QStringList keys;
    for (const auto &record : source.tableSource())
        keys.append(record->key);
    return nearestNames(key, keys);
}

QString unknownKey(const ElementDataSource &source, const QString &key)
{
    const QStringList similar = similarKeys(source, key);
    return u"there is no element with the key '%1'; %2"_s.arg(
        key, similar.isEmpty() ? u"'tintloom list' shows the keys"_s
                               : u"near it: "_s + similar.join(", "_L1));
}

std::optional<QString> setColor(ElementRecord &record, const QString &value)
{
    const auto color = value.isEmpty() ? QString() : normalizedColorText(value);
    if (!color)
        return u"'%1' is no colour for '%2'; give 3, 6 or 8 hexadecimal digits, or nothing to remove the colour"_s
            .arg(value, record.key);
    record.color = *color;
    return std::nullopt;
}

std::optional<QString> setOption(ElementRecord &record, const QString &label)
{
    const auto option = record.options->constFind(label);
    if (option == record.options->cend())
        return u"'%1' is no option of '%2'; its options are: %3"_s.arg(
            label, record.key, record.options->keys().join(", "_L1));
    record.value = *option;
    return std::nullopt;
}

std::optional<QString> applyEdit(const ElementDataSource &source, const QString &edit)
{
    const QString key = edit.section(u'=', 0, 0);
    const QString value = edit.section(u'=', 1);
    bool found = false;
    for (const auto &record : source.tableSource()) {
        if (record->key != key)
            continue;
        found = true;
        if (auto problem =
                record->isChoice() ? setOption(*record, value) : setColor(*record, value))
            return problem;
    }
    return found ? std::nullopt : std::optional(unknownKey(source, key));
}
} // namespace

std::optional<QString> applyEdits(const ElementDataSource &source, const QStringList &edits)
{
    for (const QString &edit : edits) {
        if (auto problem = applyEdit(source, edit))
            return problem;
    }
    return std::nullopt;
}
