// Reading a folder that somebody else filled, as an archive is read.
#pragma once

#include "archives/ArchiveModule.h"

/// The files below a folder, by path. Refuses what goes beyond the limits, links, and what is
/// neither file nor folder, as soon as it comes to one.
ArchiveReading readFolder(const QString &folder, const ArchiveLimits &limits);
