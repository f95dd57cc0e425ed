// The command that tells what is hard to see in a theme, and mends it in the current choices. Like
// the others it needs no display and no application object.
#pragma once

#include "app/CommandLine.h"

/// Prints the findings, or with --fix the changes and what is left. Returns the program's exit
/// status: 0 nothing found, or nothing left; 1 something could not be read or written; 2 an unknown
/// theme; 3 something found, or left.
int runCheck(const CommandLine::Options &options);
