// The command that makes a theme of one colour, of a picture's best one, or of a drawn one.
#pragma once

#include "app/CommandLine.h"

/// Changes the colours of the current choices, or of a theme that it makes the current choices; the
/// choices before stay as the earlier generation. Locked elements, and everything that is no
/// colour, stay as they are. Returns the program's exit status: 0 done, 1 something could not be
/// read or written, 2 an unknown theme or element.
int runGenerate(const CommandLine::Options &options);
