// The working copy and the generation before it, through a replacement.
//
// A replacement takes the old working copy away before the new one is there. Between the two the
// program may be killed or the disk may fill up. So the old one is moved aside, in one step, and
// moved on when the new one stands:
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
#pragma once

#include "theme/ThemeLocations.h"

#include <QByteArray>
#include <QString>

#include <system_error>

/// Any thread, one at a time, and only while the folders are locked.
class WorkingCopyGenerations
{
public:
    explicit WorkingCopyGenerations(const ThemeLocations &locations) : _locations(locations) {}
    /// A replacement that was begun and not ended is undone.
    ~WorkingCopyGenerations();
    WorkingCopyGenerations(const WorkingCopyGenerations &) = delete;
    WorkingCopyGenerations &operator=(const WorkingCopyGenerations &) = delete;

    /// Does what an interrupted replacement has left to do, and logs which choices stand; nothing
    /// when there was none.
    std::error_code recover();

    /// Moves the old working copy aside. When it cannot be kept, it stays where it is, and write()
    /// fails for that reason.
    void begin();
    /// Writes the new working copy, atomically. Only after begin(). Where the bytes are of a file
    /// that could not be read, that error is the write's.
    std::error_code write(const QByteArray &bytes, std::error_code error = {});
    /// Ends the replacement. If the last write failed and no new working copy stands, the old one
    /// goes back; if none was asked for, there is no working copy then, only the earlier one.
    std::error_code end();

    enum class Restored { Done, NothingToRestore, Failed };
    struct Restoration {
        Restored outcome = Restored::Done;
        QString problem; // for people, unless done
    };
    /// Exchanges the working copy and the earlier generation: a second time undoes the first.
    Restoration restore();

private:
    std::error_code moveAside();
    enum class IfUnreadable { LeaveAside, KeepAsEarlier };
    std::error_code keepAsEarlier(IfUnreadable choice);

    enum class State {
        Standing,   // nothing is being replaced
        Begun,      // no old one stands aside: there was none, or it could not be kept
        Aside,      // the old one stands aside
        WriteFailed // likewise, and the last write asked for has failed
    };
    const ThemeLocations _locations;
    State _state = State::Standing;
    std::error_code _notKept; // why the old working copy could not be moved aside
};
