// The program's log: standard error, one line per message.
#pragma once

#include <QString>

#include <initializer_list>

/// Writes one line: each "%@" or "%s" of the format is replaced by the next argument, "%%" by "%".
/// A place without an argument stays as it stands; arguments without a place are dropped. Line
/// breaks and other control characters inside an argument are written as escapes, so that a message
/// is always one line. Any thread; lines of two threads do not mix.
void NSLog(const QString &format, std::initializer_list<QString> arguments = {});
