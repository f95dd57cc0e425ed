// How large a theme that somebody else made may be. All of it is checked before anything is
// decoded.
#pragma once

#include "archives/ArchiveModule.h"
#include "library/PackageContents.h"

namespace PackageLimits
{
constexpr ArchiveLimits package{32 << 20, 200, 64 << 20, 8};
/// In an archive a package may lie in a folder of its own.
constexpr ArchiveLimits archive{package.archive, package.entries, package.unpacked,
                                package.levels + 1};
constexpr qsizetype propertyList = 4 << 20; // bytes
constexpr qint64 picture = 40'000'000;      // pixels

/// Why a file cannot be in a package, a clause for people that names it; else empty. A picture's
/// size is read from its beginning, nothing is decoded.
QString problemOfFile(const QString &path, const QByteArray &bytes);
/// Why a package cannot be opened again where it is passed on to; else empty.
QString problemOfPackage(const PackageContents &contents);
} // namespace PackageLimits
