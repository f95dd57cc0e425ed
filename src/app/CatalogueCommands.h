// The catalogue's commands, which need no display and no application object. They print to standard
// output what was asked for, and everything else to standard error. They return the program's exit
// status: 0 done, 1 something could not be read or written, 2 a name that cannot be installed.
#pragma once

#include "app/CommandLine.h"

/// Prints the catalogue, with the kept themes, in table order, for people or as one JSON array.
int runThemes(const CommandLine::Options &options);

/// Installs a kept theme or, if there is none of that name, a ready-made one. Nothing is touched
/// when the name is not in the catalogue or not active, when the theme's folder is missing, or when
/// it is the installed one already; a kept one may have been changed since.
int runInstall(const CommandLine::Options &options);

/// Installs a theme, makes it the working copy and selects the user's own theme. Refuses as above.
int runEdit(const CommandLine::Options &options);
