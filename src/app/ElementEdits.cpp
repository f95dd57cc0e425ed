#include "app/ElementEdits.h"

#include "theme/ColorText.h"

#include <algorithm>
#include <numeric>
#include <set>

using namespace Qt::StringLiterals;

namespace
{
/// How many characters must be put in, left out or replaced to turn one text into the other
/// (Levenshtein), row by row of the usual table.
int editDistance(const QString &from, const QString &to)
{
    std::vector<int> row(size_t(to.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < from.size(); ++i) {
        int diagonal = std::exchange(row[0], int(i) + 1);
        for (qsizetype j = 0; j < to.size(); ++j) {
            int &left = row[size_t(j)];
            int &cell = row[size_t(j) + 1];
            const int replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = cell;
            cell = std::min({replaced, left + 1, cell + 1});
        }
    }
    return row.back();
}

/// Keys that may have been meant: those a few slips away, nearest first, at most three.
QStringList similarKeys(const ElementDataSource &source, const QString &key)
{
    constexpr size_t most = 3;
    const int slips = std::max(2, int(key.size() / 3));
    std::set<std::pair<int, QString>> nearest;
    for (const auto &record : source.tableSource()) {
        if (std::abs(record->key.size() - key.size()) > slips)
            continue;
        if (const int distance = editDistance(key, record->key); distance <= slips)
            nearest.emplace(distance, record->key);
        if (nearest.size() > most)
            nearest.erase(std::prev(nearest.end()));
    }
    QStringList keys;
    for (const auto &[distance, similar] : nearest)
        keys.append(similar);
    return keys;
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
