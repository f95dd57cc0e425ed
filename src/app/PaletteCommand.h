// The command that says which colours of a picture can lead a theme.
#pragma once

#include "app/CommandLine.h"

/// Prints them, the best first, with the share of the pixels that have such a colour. Returns the
/// program's exit status: 0 done, 1 the picture could not be read.
int runPalette(const CommandLine::Options &options);
