#include "platform/foundation/ProgramModule.h"

#include "platform/foundation/ProgramFolder.h"

#include <QLibrary>

using namespace Qt::StringLiterals;

ProgramModule ProgramModule::load(const QString &name, const char *entry)
{
    QLibrary library(besideProgram(QStringLiteral(TINTLOOM_MODULES)) +
                     u"/tintloom_%1.so"_s.arg(name));
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    const QFunctionPointer found = library.resolve(entry);
    return {found, found ? QString() : library.errorString()};
}
