// A package as the files that it consists of on a disk.
#pragma once

#include "library/PackageContents.h"

/// Its Info.plist among them, by their paths below the package.
inline std::map<QString, QByteArray> filesOf(PackageContents package)
{
    package.files[QStringLiteral("Info.plist")] = PropertyList::writeDictionary(package.info);
    return std::move(package.files);
}
