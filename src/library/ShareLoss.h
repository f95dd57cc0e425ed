// What a theme as a line of text would lose.
#pragma once

#include "library/PackageContents.h"

#include <QStringList>

/// Paths of files and keys of entries that a shared text cannot hold. A picture that is nothing but
/// its element's colour is not among them: whoever keeps the theme makes it anew.
QStringList lostInShareText(const PackageContents &contents);
