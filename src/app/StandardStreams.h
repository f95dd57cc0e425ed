// What the commands without a display say, and where.
#pragma once

#include <QByteArray>
#include <QString>

/// Prints to standard output. Returns the exit status: a full disk behind a pipe is a failure too.
int print(const QByteArray &text);

/// Prints a line to standard error, after the program's name.
void complain(const QString &problem);
