#include "platform/foundation/TableSections.h"

#include <QCollator>

#include <algorithm>

void TableSections::open(const QString &title)
{
    if (_places.contains(title))
        return;
    _places.insert(title, count());
    _sections.push_back({title, {}});
}

void TableSections::append(const QString &title, int element)
{
    open(title);
    _sections[size_t(_places.value(title))].elements.push_back(element);
}

void TableSections::sort()
{
    QCollator collator; // the user's locale; plain case folding where there is none
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::sort(_sections, [&](const Section &left, const Section &right) {
        const int order = collator.compare(left.title, right.title);
        return order != 0 ? order < 0 : left.title < right.title;
    });
    _places.clear();
}

std::optional<int> TableSections::elementAt(NSIndexPath indexPath) const
{
    const auto [section, row] = indexPath;
    if (!indexPath.isValid() || section >= count() || row >= int(elements(section).size()))
        return std::nullopt;
    return elements(section)[size_t(row)];
}

const TableSections::Section &TableSections::at(int section) const
{
    Q_ASSERT(section >= 0 && section < count());
    return _sections[size_t(section)];
}
