// Reading archives in memory.
#pragma once

#include "archives/ArchiveModule.h"

ArchiveReading readArchive(const QByteArray &bytes, const ArchiveLimits &limits);
