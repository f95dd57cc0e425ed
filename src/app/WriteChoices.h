// How commands change the current choices and leave the theme alone.
#pragma once

#include "app/CommandLine.h"
#include "theme/ElementDataSource.h"
#include "theme/WorkingCopyKeeper.h"

/// Writes the working copy; the one before stays as the earlier generation. The keeper has to be
/// held since the choices were loaded. False when that fails, which standard error then says.
bool writeChoices(const CommandLine::Options &options, WorkingCopyKeeper &keeper,
                  const ElementDataSource &elements);
