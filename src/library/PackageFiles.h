// A package as the files that it consists of on a disk.
#pragma once

#include "library/PackageContents.h"

/// Its Info.plist among them, which bears that name, by their paths below the package.
inline std::map<QString, QByteArray> filesOf(PackageContents package, const QString &name)
{
    package.info.setValue(QStringLiteral("name"), name);
    package.files[QStringLiteral("Info.plist")] = PropertyList::writeDictionary(package.info);
    return std::move(package.files);
}
