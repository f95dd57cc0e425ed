// The module of archives and QR codes, loaded when first asked for.
#pragma once

#include "archives/ArchiveModule.h"

namespace Archives
{
struct Loading {
    const ArchiveModule *module = nullptr; // for as long as the program runs
    QString problem;                       // why there is none, for people; else empty
};

/// Any thread. A missing module is looked for again each time.
Loading module();
} // namespace Archives
