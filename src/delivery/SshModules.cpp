#include "delivery/SshModules.h"

#include "platform/foundation/ProgramModule.h"

using namespace Qt::StringLiterals;

SshModules::Loading SshModules::load()
{
    const auto [entry, problem] = ProgramModule::load(u"ssh"_s, sshModuleEntry);
    if (!entry)
        return {nullptr, u"sending needs a part of Tintloom that cannot be loaded: "_s + problem};
    return {reinterpret_cast<SshModuleEntry *>(entry)(), {}};
}
