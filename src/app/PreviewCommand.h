// The command that draws the themed phone. Like the others it needs no display; for the fonts it
// makes an application object that has none. Prints the path of the picture, or the picture itself;
// everything else goes to standard error.
#pragma once

#include "app/CommandLine.h"

/// Writes a PNG file, whole or not at all. Returns the program's exit status: 0 done, 1 something
/// could not be read or written, 2 an unknown theme.
int runPreview(const CommandLine::Options &options);
