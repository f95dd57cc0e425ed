// The package of what is chosen now: what a save would write, under a name of its own.
#pragma once

#include "library/PackageContents.h"
#include "theme/ElementDataSource.h"

/// The same entries in the same order and the same pictures, byte for byte, as a save at that scale
/// (pixels per point) writes; but for the name, and for the foreign entries, which it keeps. A
/// picture is empty where memory is short.
PackageContents packageContents(const ElementDataSource &source, const QString &name, double scale);

/// Adds what the theme from which the choices were made has beside its elements: its foreign
/// entries, its description, its other files, and its own pictures, as long as the colours that
/// stand for them are still those. `originElements` are the elements of that theme.
void addGuestsOf(const PackageContents &origin, const ElementDataSource &originElements,
                 PackageContents &package);
