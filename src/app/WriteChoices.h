// How commands change the current choices and leave the theme alone.
#pragma once

#include "app/CommandLine.h"
#include "theme/ThemeDocument.h"
#include "theme/WorkingCopyKeeper.h"

/// Writes the working copy; the one before stays as the earlier generation. The keeper has to be
/// held since the choices were loaded. False when that fails, which standard error then says.
bool writeChoices(const CommandLine::Options &options, WorkingCopyKeeper &keeper,
                  const ElementDataSource &elements);

/// A line for each change of a colour; the elements are what they were before.
QString describe(const ThemeDocument::Changes &changes, const ElementDataSource &elements);
