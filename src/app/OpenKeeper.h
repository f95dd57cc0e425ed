// How every command comes to its folders.
#pragma once

#include "app/CommandLine.h"
#include "theme/WorkingCopyKeeper.h"

#include <memory>

ThemeLocations locationsOf(const CommandLine::Options &options);

/// Locks the folders and recovers an interrupted save. Null when the keeper refuses, which standard
/// error then says.
std::shared_ptr<WorkingCopyKeeper> openKeeper(const CommandLine::Options &options);
