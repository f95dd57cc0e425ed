// Keeps the user's choices through everything that replaces the working copy.
//
// A replacement takes the old working copy away before the new one is there. Between the two the
// program may be killed or the disk may fill up; and another Tintloom may be at the same files. So
// the old one is moved aside, in one step, and moved on when the new one stands:
//
//   Info.plist           the working copy: missing, or whole
//   Info.saving.plist    the old one, only while a replacement is going on
//   Info.previous.plist  the earlier generation: the last one that differed
//
//   begin    Info.plist -> Info.saving.plist
//   write    Info.plist, atomically
//   end      Info.saving.plist -> Info.previous.plist, or dropped when nothing has changed
//
// Whoever finds an Info.saving.plist while nobody holds the lock has found an interrupted
// replacement. If a whole Info.plist stands beside it, the end was missing and is made up for;
// otherwise the old one goes back. Each is one rename, so this may be interrupted, too.
//
// The lock is that of the two folders that the user named; it leaves no file and goes with the
// process. A folder that cannot be locked, because it is missing, unreadable or on a disk without
// locks, is used without.
#pragma once

#include "theme/ThemeLocations.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>
#include <system_error>
#include <vector>

/// Any thread, one at a time. Holds the lock from open() until it is destroyed.
class WorkingCopyKeeper
{
public:
    /// Locks the folders, removes temporary files that a killed program left, and recovers an
    /// interrupted replacement; the log says which choices stand. Call it before anything is read
    /// or written. Waits up to patience() for another Tintloom, after a line in the log: not for
    /// the main thread of a window. Creates nothing.
    static std::shared_ptr<WorkingCopyKeeper> open(const ThemeLocations &locations);
    /// A replacement that was begun and not ended is undone.
    ~WorkingCopyKeeper();
    WorkingCopyKeeper(const WorkingCopyKeeper &) = delete;
    WorkingCopyKeeper &operator=(const WorkingCopyKeeper &) = delete;

    /// Why neither package nor working copy may be touched, for people; else empty.
    const QString &refusal() const { return _refusal; }

    /// Locks the folders to change the package alone, making them first. False with a refusal()
    /// when nothing may be touched.
    bool lock();
    /// Begins a replacement: locks the folders likewise, calls `willReplace`, and moves the old
    /// working copy aside. Call it before anything is removed. False with a refusal() when nothing
    /// may be touched. When the old one cannot be kept, it stays where it is, and write() and
    /// copy() fail for that reason.
    bool begin(const std::function<void()> &willReplace = {});
    /// Writes the new working copy, or copies a file; atomically. Only after begin() has agreed.
    std::error_code write(const QByteArray &bytes);
    std::error_code copy(const QString &file);
    /// Ends the replacement. If a write failed and no new working copy stands, the old one goes
    /// back; if none was asked for, there is no working copy then, only the earlier one.
    std::error_code end();

    enum class Restored { Done, NothingToRestore, Failed };
    struct Restoration {
        Restored outcome = Restored::Done;
        QString problem; // for people, unless done
    };
    /// Exchanges the working copy and the earlier generation: a second time undoes the first.
    Restoration restore();

    /// How long open() and begin() wait for another Tintloom. For tests: set it beforehand.
    static void setPatience(std::chrono::milliseconds patience);

private:
    explicit WorkingCopyKeeper(const ThemeLocations &locations) : _locations(locations) {}
    void lockFolder(const QString &folder);
    void recoverAtStart();
    std::error_code recover();
    bool refuseToEmptyTheWorkingCopysFolder();
    bool refuseToFollowALink();
    std::error_code moveAside();
    enum class IfUnreadable { LeaveAside, KeepAsEarlier };
    std::error_code keepAsEarlier(IfUnreadable choice);
    std::error_code replaceWith(const QByteArray &bytes, std::error_code error);

    const ThemeLocations _locations;
    QString _refusal;
    std::vector<std::shared_ptr<const void>> _locks;
    QStringList _lockedFolders;
    std::error_code _notKept; // why the old working copy could not be moved aside
    bool _begun = false;
    bool _failed = false; // a write was asked for, and the last one failed
    bool _isAside = false;
};
