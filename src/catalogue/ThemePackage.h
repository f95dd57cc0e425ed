// Reading a theme's package to show it. Ready-made themes and the user's own are read alike.
#pragma once

#include "theme/ElementDataSource.h"

#include <optional>

struct ThemePackage {
    /// What the editor would show of it, the list's own choices where the package has none;
    /// whether the list of elements could be read, its status tells. Nothing without a package.
    std::optional<ElementDataSource> elements;
    /// Why there is none, for people; else empty.
    QString problem;
    /// There is nothing at the place, which need not be a fault.
    bool isMissing = false;

    /// From the Info.plist in that folder, and the picture to which it leads. Any thread.
    static ThemePackage read(const QString &resources, const QString &folder);
};
