// Where the program's own file lies: what is installed beside it is found from there, so that an
// installation can be moved as a whole.
#pragma once

#include <QString>

/// A path relative to the folder of the program's file, made absolute. Needs no application object.
QString besideProgram(const QString &path);
