#include "delivery/SshModules.h"

#include "platform/foundation/ProgramFolder.h"

#include <QLibrary>

using namespace Qt::StringLiterals;

SshModules::Loading SshModules::load()
{
    QLibrary library(besideProgram(QStringLiteral(TINTLOOM_MODULES)) + "/tintloom_ssh.so"_L1);
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    const auto entry = reinterpret_cast<SshModuleEntry *>(library.resolve(sshModuleEntry));
    if (!entry)
        return {nullptr, u"sending needs a part of Tintloom that cannot be loaded: %1"_s.arg(
                             library.errorString())};
    return {entry(), {}};
}
