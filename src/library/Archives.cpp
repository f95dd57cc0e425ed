#include "library/Archives.h"

#include "platform/foundation/ProgramFolder.h"

#include <QLibrary>

using namespace Qt::StringLiterals;

Archives::Loading Archives::module()
{
    QLibrary library(besideProgram(QStringLiteral(TINTLOOM_MODULES)) + "/tintloom_archives.so"_L1);
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    const auto entry = reinterpret_cast<ArchiveModuleEntry *>(library.resolve(archiveModuleEntry));
    if (!entry)
        return {nullptr,
                u"archives and QR codes need a part of Tintloom that cannot be loaded: %1"_s.arg(
                    library.errorString())};
    return {entry(), {}};
}
