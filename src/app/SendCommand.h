// The command that sends a theme to a phone. It says what happens on standard output, in one line
// that changes where that is a terminal, and what failed on standard error.
#pragma once

#include "app/CommandLine.h"

/// Returns the program's exit status: 0 done, 1 it failed, 2 an unknown theme, 4 the phone's key
/// was not accepted, 5 the phone lets nobody in.
int runSend(const CommandLine::Options &options);
