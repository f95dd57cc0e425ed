// Writing a package to pass it on: as an archive, or as a folder, which of them the path's ending
// says.
#pragma once

#include "library/PackageContents.h"

#include <QString>

namespace ThemeExport
{
enum class Form { Zip, TarGzip, Folder };
/// .tintloom and .zip; .tar.gz and .tgz; anything else is a folder. Case does not matter.
Form formOf(const QString &path);

struct Result {
    QString problem;     // why nothing was written, a clause for people; else empty
    bool exists = false; // it is that something stands there
};
enum class IfThere { Refuse, Replace };

/// At every moment either what stood at the path is there or all of the new. Replaced are a file by
/// a file, and the folder of a theme by one; of nothing else. The same package makes the same
/// bytes. Refuses what could not be opened again.
Result write(const PackageContents &contents, const QString &path, IfThere ifThere);
} // namespace ThemeExport
