// Keeps the user's choices through everything that replaces the working copy: locks the two folders
// that the user named against other Tintlooms (FolderLocks), recovers what a killed program left
// and moves the old choices aside and on (WorkingCopyGenerations), and refuses what would lose
// them.
#pragma once

#include "theme/FolderLocks.h"
#include "theme/ThemeLocations.h"
#include "theme/WorkingCopyGenerations.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <system_error>

/// Any thread, one at a time. Holds the lock from open() until it is destroyed; a replacement that
/// was begun and not ended is undone then.
class WorkingCopyKeeper
{
public:
    /// Locks the folders, removes temporary files that a killed program left, and recovers an
    /// interrupted replacement; the log says which choices stand. Call it before anything is read
    /// or written. May wait for another Tintloom: not for the main thread of a window. Creates
    /// nothing.
    static std::shared_ptr<WorkingCopyKeeper> open(const ThemeLocations &locations);

    /// Why neither package nor working copy may be touched, for people; else empty.
    const QString &refusal() const { return _refusal; }

    /// Locks the folders to change the package alone, making them first. False with a refusal()
    /// when nothing may be touched.
    bool lock();
    /// Begins a replacement: locks the folders likewise, calls `willReplace`, and moves the old
    /// working copy aside. Call it before anything is removed. False with a refusal() when nothing
    /// may be touched.
    bool begin(const std::function<void()> &willReplace = {});
    /// As of WorkingCopyGenerations; only after begin() has agreed.
    std::error_code write(const QByteArray &bytes, std::error_code error = {})
    {
        return _generations.write(bytes, error);
    }
    /// Removes the pictures, too, to which nothing leads any more.
    std::error_code end();

    using Restored = WorkingCopyGenerations::Restored;
    using Restoration = WorkingCopyGenerations::Restoration;
    /// As of WorkingCopyGenerations; refused like a replacement.
    Restoration restore();

private:
    explicit WorkingCopyKeeper(const ThemeLocations &locations)
        : _locations(locations), _generations(locations)
    {
    }
    void lockFolders();
    void recoverAtStart();
    bool refuseToEmptyTheWorkingCopysFolder();
    bool refuseToFollowALink();

    const ThemeLocations _locations;
    QString _refusal;
    FolderLocks _locks; // longer than the generations, which may have to undo something
    WorkingCopyGenerations _generations;
};
