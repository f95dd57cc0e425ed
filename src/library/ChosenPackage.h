// The package of what is chosen now: what a save would write, under a name of its own.
#pragma once

#include "library/PackageContents.h"
#include "theme/ElementDataSource.h"
#include "theme/PictureEntry.h"

/// The same entries in the same order and the same pictures, byte for byte, as a save at that scale
/// (pixels per point) writes; but for the name, and for the foreign entries, which it keeps, and
/// the whole picture behind the list with what leads to it. A picture is empty where memory is
/// short.
PackageContents packageContents(const ElementDataSource &source, const QString &name, double scale);

/// Adds what the theme from which the choices were made has beside its elements: its foreign
/// entries, its description, its other files, and its own pictures, as long as the colours that
/// stand for them are still those and no picture was chosen in their place. `originElements` are
/// the elements of that theme.
void addGuestsOf(const PackageContents &origin, const ElementDataSource &originElements,
                 PackageContents &package);

/// What the editor would show of a package. Any thread.
ElementDataSource elementsOf(const PackageContents &package, const QString &resources);
/// Reads the files of a package, which must live as long.
PictureEntry::FileReader filesIn(const PackageContents &package);
