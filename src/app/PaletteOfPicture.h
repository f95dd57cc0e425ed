// How commands come to the colours of a picture.
#pragma once

#include "advice/PicturePalette.h"

#include <QString>

#include <optional>

/// With one candidate at least; of a grey picture standard error says that it is one. Nothing where
/// there is none to be had, which standard error then says.
std::optional<PicturePalette> paletteOfPicture(const QString &file);
