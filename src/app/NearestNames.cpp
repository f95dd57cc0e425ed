#include "app/NearestNames.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <vector>

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

} // namespace

QStringList nearestNames(const QString &name, const QStringList &names)
{
    constexpr size_t most = 3;
    const QString folded = name.toCaseFolded();
    const int slips = std::max(2, int(folded.size() / 3));
    std::set<std::pair<int, QString>> nearest;
    for (const QString &candidate : names) {
        if (std::abs(candidate.size() - folded.size()) > slips)
            continue;
        if (const int distance = editDistance(folded, candidate.toCaseFolded()); distance <= slips)
            nearest.emplace(distance, candidate);
        if (nearest.size() > most)
            nearest.erase(std::prev(nearest.end()));
    }
    QStringList found;
    for (const auto &[distance, similar] : nearest)
        found.append(similar);
    return found;
}

QString nearestThemes(const QString &name, const QStringList &names)
{
    const QStringList near = nearestNames(name, names);
    return near.isEmpty() ? QString("'tintloom themes' shows the names")
                          : "near it: " + near.join(", ");
}
