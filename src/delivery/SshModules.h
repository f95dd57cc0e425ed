// Finding what needs the SSH library.
#pragma once

#include "ssh/SshModule.h"

namespace SshModules
{
struct Loading {
    const SshModule *module = nullptr; // lives as long as the program
    QString problem;                   // why there is none, a clause for people
};
/// Loads it when it is first asked for; any thread.
Loading load();
} // namespace SshModules
