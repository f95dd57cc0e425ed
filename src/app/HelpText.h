// What --help prints.
#pragma once

#include <QString>

/// Whole lines. A test compares it with the manual page, and completion reads it.
QString helpText();
