// Which elements are locked, remembered beside the working copy and never in a theme:
//
//   <documents>/Tintloom/Locks.plist     a dictionary; "locked" is an array of the elements' keys
#pragma once

#include "theme/ElementDataSource.h"
#include "theme/ThemeLocations.h"

#include <system_error>
#include <vector>

namespace ElementLocks
{
/// The locked elements; none where nothing is remembered or the file cannot be read.
std::vector<int> load(const ThemeLocations &locations, const ElementDataSource &elements);

/// Remembers whether the elements with the key are locked, beside what others have remembered.
/// Nothing is written where a symbolic link stands for the folder; that is an error like any other.
std::error_code remember(const ThemeLocations &locations, const QString &key, bool isLocked);
} // namespace ElementLocks
