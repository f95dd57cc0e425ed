// The commands on the user's own themes, which need no display and no application object. They say
// on standard output what they did, and everything else on standard error. They return the
// program's exit status: 0 done, 1 something could not be read or written, 2 a name that cannot be
// one, that is taken, or that no kept theme has; nothing was touched then.
#pragma once

#include "app/CommandLine.h"

/// Keeps the current choices under a name, with what the theme that they were made from has
/// beside its elements.
int runKeep(const CommandLine::Options &options);

int runRename(const CommandLine::Options &options);
int runDuplicate(const CommandLine::Options &options);

/// Removes a kept theme, or puts one back.
int runRemove(const CommandLine::Options &options);
