// A whole theme package as a value: what is kept, opened, passed on and installed.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <QByteArray>
#include <QString>

#include <map>

struct PackageContents {
    PropertyDictionary info; // its Info.plist
    /// Every other file, by its path below the package, with "/" between: pictures, and what
    /// somebody else put there.
    std::map<QString, QByteArray> files;
};
