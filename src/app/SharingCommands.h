// The commands that open what somebody else made and pass on what is one's own. They need no
// display and no application object, and return the program's exit status: 0 done, 1 something
// could not be read or written or is refused, 2 a theme, a name or a place that cannot be meant.
#pragma once

#include "app/CommandLine.h"

/// Keeps a theme that somebody else made; prints the name it was kept under, and on standard error
/// what a person should know about it. Its own name gets a number where it is taken; one that was
/// asked for is refused.
int runImport(const CommandLine::Options &options);

/// Writes a theme as an archive or a folder; prints the path.
int runExport(const CommandLine::Options &options);

/// Prints a theme as a line of text, after its QR code was written, if one is asked for. What the
/// text cannot hold is said on standard error.
int runShare(const CommandLine::Options &options);
