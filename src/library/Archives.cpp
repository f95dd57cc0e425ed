#include "library/Archives.h"

#include "platform/foundation/ProgramModule.h"

using namespace Qt::StringLiterals;

Archives::Loading Archives::module()
{
    const auto [entry, problem] = ProgramModule::load(u"archives"_s, archiveModuleEntry);
    if (!entry)
        return {nullptr,
                u"archives and QR codes need a part of Tintloom that cannot be loaded: "_s +
                    problem};
    return {reinterpret_cast<ArchiveModuleEntry *>(entry)(), {}};
}
