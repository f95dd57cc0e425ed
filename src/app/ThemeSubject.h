// What the commands that take a theme work on.
#pragma once

#include "app/CommandLine.h"
#include "theme/ElementDataSource.h"

#include <optional>

struct ThemeSubject {
    std::optional<ElementDataSource> elements; // loaded
    int status = 1;                            // the exit status when there are none, told why
};

/// The current choices; only while the keeper is held.
ThemeSubject currentChoices(const CommandLine::Options &options);

/// The current choices where no theme is named; else a kept theme, one of the catalogue or a
/// package's folder, as the editor would show it.
ThemeSubject themeSubject(const CommandLine::Options &options);

struct ThemeFolder {
    QString folder; // empty: there is none, told why
    QString name;   // empty: a folder was named, no theme
    int status = 1; // the exit status when there is none
};
/// Where the theme that is named lies: a kept one, one of the catalogue, or a package's folder.
ThemeFolder themeFolder(const CommandLine::Options &options);
