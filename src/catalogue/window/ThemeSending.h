// Sending a theme of the catalogue to a phone, as it is.
#pragma once

#include "views/Action.h"

/// The entry of a theme's sheet. The folder holds the package and is read when it is sent; on the
/// phone the theme bears the name.
Action sendAction(const QString &documents, const QString &name, const QString &folder);
/// The same of a kept theme, as it is when it is sent.
Action sendKeptAction(const QString &documents, const QString &name);
