// Edits of elements in text form, as the command line takes them.
#pragma once

#include "theme/ElementDataSource.h"

#include <QString>
#include <QStringList>

#include <optional>

/// Applies edits "KEY=VALUE" in order, each to every record with that key; the first "=" parts the
/// two. For a colour element VALUE is 3, 6 or 8 hexadecimal digits with or without "#", or empty to
/// remove the colour; for a choice element it is an option's label. Returns what is wrong with the
/// first edit that cannot be applied and what would be accepted; the records are then half edited
/// and must not be saved.
std::optional<QString> applyEdits(const ElementDataSource &source, const QStringList &edits);
