#include "platform/foundation/ProgramFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/auxv.h>

/// The kernel tells which file that is, even to a program started by a bare name where no /proc is
/// mounted.
QString besideProgram(const QString &path)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel hands the address out as a number
    const auto *file = reinterpret_cast<const char *>(getauxval(AT_EXECFN));
    const QFileInfo program(QFileInfo(QFile::decodeName(file)).canonicalFilePath());
    return QDir::cleanPath(program.absoluteDir().filePath(path));
}
