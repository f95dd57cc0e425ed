// The whole package of what a command works on, to pass it on.
#pragma once

#include "app/CommandLine.h"
#include "library/PackageContents.h"

#include <optional>

struct PackageSubject {
    std::optional<PackageContents> contents; // that bear the name
    QString name;
    int status = 1; // the exit status when there are none, told why
};

/// The current choices where no theme is named, with what the kept theme they were made from has
/// beside them; else a kept theme, one of the catalogue, or a package's folder, as it is.
PackageSubject packageSubject(const CommandLine::Options &options);
