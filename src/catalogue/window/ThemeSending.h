// Sending a theme of the catalogue to a phone, as it is.
#pragma once

#include "library/window/ThemeDesk.h"
#include "views/Action.h"

/// The entry of a theme's sheet. The package is made when it is sent; on the phone the theme bears
/// the name.
Action sendAction(const QString &documents, const QString &name, const ThemeDesk::Package &package);
