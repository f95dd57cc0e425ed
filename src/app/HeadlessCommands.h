// The commands that need no display. They print to standard output what was asked for, and
// everything else to standard error; none needs an application object. They return the program's
// exit status: 0 done, 1 something could not be read or written, 2 an edit that cannot be applied.
// Each first recovers a save that was interrupted.
#pragma once

#include "app/CommandLine.h"
#include "theme/ElementDataSource.h"

/// Prints every element in table order, as a table for people or as one JSON array. A malformed
/// data source is an empty table, here as in the window, with a warning.
int runList(const CommandLine::Options &options);

/// What `list --json` prints.
QByteArray jsonList(const ElementDataSource &source);

/// Applies the edits to the current choices and writes the working copy alone; the one before stays
/// as the earlier generation. Refused as a save is.
int runSet(const CommandLine::Options &options);

/// Applies the edits to the current choices and saves the theme; prints the paths written. Nothing
/// on the disk is touched unless data source and edits are all right.
int runSave(const CommandLine::Options &options);

/// Exchanges the working copy and the earlier one; says what it did. Nothing to restore is a
/// failure.
int runRestore(const CommandLine::Options &options);
