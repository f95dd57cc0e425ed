// The rows of a table, grouped under their sections' titles.
#pragma once

#include "platform/foundation/NSIndexPath.h"

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

class TableSections
{
public:
    /// Opens a section without rows; nothing where there is one of exactly that title.
    void open(const QString &title);
    /// Appends a row, which stands for an element, to the section of exactly that title.
    void append(const QString &title, int element);
    /// Brings the sections in the order of the table: titles without regard to case, in the user's
    /// locale; those that compare equal by code units. Call it once, when all rows are there.
    void sort();

    int count() const { return int(_sections.size()); }
    /// Indexes must be in range, here and below.
    const QString &title(int section) const { return at(section).title; }
    /// In the order in which they were appended.
    const std::vector<int> &elements(int section) const { return at(section).elements; }
    /// Nothing where there is no such row.
    std::optional<int> elementAt(NSIndexPath indexPath) const;

private:
    struct Section {
        QString title;
        std::vector<int> elements;
    };
    const Section &at(int section) const;

    std::vector<Section> _sections;
    QHash<QString, int> _places; // until sorted
};
