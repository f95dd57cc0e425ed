// A package as the files that a phone gets.
#pragma once

#include "library/PackageContents.h"
#include "theme/PictureEntry.h"

/// Its Info.plist among them, which bears that name, by their paths below the package. The whole
/// picture behind its list stays here: the phone shows what is drawn of it.
inline std::map<QString, QByteArray> filesForPhone(PackageContents package, const QString &name)
{
    if (const auto picture = PictureEntry::fileIn(package.info))
        package.files.erase(*picture);
    PropertyDictionary info;
    for (const auto &[key, value] : package.info.entries())
        if (key != PictureEntry::key())
            info.setValue(key, value);
    info.setValue(QStringLiteral("name"), name);
    package.files[QStringLiteral("Info.plist")] = PropertyList::writeDictionary(info);
    return std::move(package.files);
}
