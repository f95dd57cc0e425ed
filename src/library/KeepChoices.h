// Keeping the current choices, or a theme that was opened; and themes as packages to pass on. The
// choices come with what belongs to the kept theme that they were made from.
#pragma once

#include "library/OpenedTheme.h"
#include "library/ThemeLibrary.h"
#include "theme/ElementDataSource.h"
#include "theme/ThemeLocations.h"

#include <optional>
#include <system_error>

/// What is chosen now, by value: it crosses to the thread that keeps it.
struct CurrentChoices {
    ElementDataSource elements;
    QString resources;
    ThemeLocations locations;
    double scale = 2.0; // pixels per point of the pictures
};

struct NamedPackage {
    std::optional<PackageContents> contents;
    QString name;
    QString problem; // why there are none, for people; else empty
};
/// The choices as a package to pass on, under the name of the theme that they were made from, or
/// that of any saved theme.
NamedPackage packageOfChoices(const CurrentChoices &choices, const ThemeLibrary &library);

/// The package in a folder as it is, but that it bears the name; its own where that is empty.
NamedPackage packageInFolder(const QString &folder, const QString &name, const QString &resources);

struct ChoicesKept {
    LibraryResult result;
    std::error_code unnoted; // it was kept, but the preferences could not be written
};
/// Keeps them; from then on they count as made from that theme.
ChoicesKept keepChoices(const CurrentChoices &choices, const QString &name,
                        ThemeLibrary::IfTaken ifTaken, ThemeLibrary &library);

/// Keeps a theme that was opened, with everything it holds; pictures at `scale` pixels per point
/// are made where it has none.
LibraryResult keepOpened(const OpenedTheme &opened, const QString &name,
                         ThemeLibrary::IfTaken ifTaken, const QString &resources, double scale,
                         ThemeLibrary &library);
