// Locks on folders, against other Tintlooms. A lock leaves no file and goes with the process.
//
// A folder that cannot be locked, because it is missing, unreadable or on a disk without locks, is
// used without.
#pragma once

#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>
#include <vector>

/// Any thread, one at a time. Holds its locks until it is destroyed.
class FolderLocks
{
public:
    /// Waits for another Tintloom, after a line in the log; false when it is still busy then. A
    /// folder that is locked already, by whatever name, stays so.
    bool lock(const QString &folder);

    /// How long to wait. For tests: set it beforehand.
    static void setPatience(std::chrono::milliseconds patience);

private:
    std::vector<std::shared_ptr<const void>> _holds;
    QStringList _folders;
};
