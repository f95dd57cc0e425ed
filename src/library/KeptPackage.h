// The package of a kept theme as a folder, read and written whole.
#pragma once

#include "library/PackageContents.h"

#include <optional>

namespace KeptPackage
{
struct Reading {
    std::optional<PackageContents> contents;
    QString problem; // why there are none, for people; else empty
};
/// Links and what else is no file are left out, with a log line.
Reading read(const QString &folder);

/// Its property list alone.
std::optional<PropertyDictionary> readInfo(const QString &folder);

/// The name under which a package is listed: its own or, where that cannot be one, its folder's.
QString nameOf(const PropertyDictionary &info, const QString &folderName);

/// Why the contents cannot be a folder's, for people, with the path that is at fault; else empty.
QString problemOf(const PackageContents &contents);

/// Writes into a folder that does not stand yet. The property list comes last: a folder that has
/// one is complete. Returns what could not be written, and why; else empty.
QString write(const PackageContents &contents, const QString &folder);
} // namespace KeptPackage
