// A row of a table: section and row, both from 0. Negative numbers mean no row.
#pragma once

struct NSIndexPath {
    int section = -1;
    int row = -1;

    bool isValid() const { return section >= 0 && row >= 0; }
    bool operator==(const NSIndexPath &) const = default;
    /// Table order.
    bool operator<(const NSIndexPath &other) const
    {
        return section != other.section ? section < other.section : row < other.row;
    }
};
