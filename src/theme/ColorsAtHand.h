// Colours that a person may want again: those in the theme, and those that were used last, which
// are remembered from start to start:
//
//   <documents>/Colors.plist     a dictionary; "recent" is an array of colour texts, the last first
#pragma once

#include "theme/ElementDataSource.h"

#include <system_error>
#include <vector>

namespace ColorsAtHand
{
constexpr int mostRecent = 12;

struct Color {
    QString text;  // as it is written: "#" and eight digits
    QString names; // of the elements that have it, for people; of many, the first ones
};
/// Each once, in document order.
std::vector<Color> inTheme(const ElementDataSource &elements);

/// At most `mostRecent`, the last first; none where the file cannot be read. What in it is no
/// colour is left out.
QStringList recent(const QString &documents);
/// Puts a colour text first.
std::error_code remember(const QString &colorText, const QString &documents);
} // namespace ColorsAtHand
