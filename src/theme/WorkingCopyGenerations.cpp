#include "theme/WorkingCopyGenerations.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/PropertyList.h"

#include <utility>

using namespace Qt::StringLiterals;
using Kind = NSFileManager::Kind;

WorkingCopyGenerations::~WorkingCopyGenerations()
{
    if (_state == State::Aside)
        _state = State::WriteFailed; // whatever stands was not seen to its end
    if (const auto error = end())
        NSLog("Cannot undo the save: %@",
              {NSFileManager::withReason(_locations.workingCopyAside(), error)});
}

void WorkingCopyGenerations::begin()
{
    _state = State::Begun;
    _notKept = moveAside();
}

std::error_code WorkingCopyGenerations::moveAside()
{
    if (const auto error = recover())
        return error;
    const QString path = _locations.workingCopy();
    const auto [kind, error] = NSFileManager::itemAtPath(path);
    if (error || kind == Kind::Nothing)
        return error;
    if (kind == Kind::Folder) // in the place of our file, and no choices of anybody's
        return NSFileManager::removeItemAtPath(path);
    if (const auto fault = NSFileManager::moveItemAtPath(path, _locations.workingCopyAside())) {
        recover(); // it may have been moved and only not flushed
        return fault;
    }
    _state = State::Aside;
    return {};
}

std::error_code WorkingCopyGenerations::recover()
{
    const auto aside = NSFileManager::itemAtPath(_locations.workingCopyAside());
    if (aside.error || aside.kind == Kind::Nothing)
        return aside.error;
    if (aside.kind == Kind::Folder)
        return std::make_error_code(std::errc::is_a_directory);
    const auto [bytes, error] = NSFileManager::contentsAtPath(_locations.workingCopy());
    if (error && !NSFileManager::isMissing(error))
        return error; // unread, it may be all that there is of the new choices
    const bool newOnesStand = !error && PropertyList::readDictionary(bytes);
    if (const auto fault = newOnesStand
                               ? keepAsEarlier(IfUnreadable::KeepAsEarlier)
                               : NSFileManager::moveItemAtPath(_locations.workingCopyAside(),
                                                               _locations.workingCopy()))
        return fault;
    NSLog(newOnesStand ? u"Unfinished save recovered, the new choices stand: %@"_s
                       : u"Unfinished save undone, the old choices are back: %@"_s,
          {_locations.workingCopy()});
    return {};
}

/// The old working copy, which stands aside, becomes the earlier generation, or is dropped when the
/// new one is the same.
///
/// Whether it is the same cannot be told while one of the two cannot be read. The end of a
/// replacement then leaves the old one aside, for a later start may be able to read it. A start
/// itself cannot put the question off once more, or Tintloom would never start again: it keeps the
/// old one as if it differed.
std::error_code WorkingCopyGenerations::keepAsEarlier(IfUnreadable choice)
{
    const QString aside = _locations.workingCopyAside();
    const auto before = NSFileManager::contentsAtPath(aside);
    const auto now = NSFileManager::contentsAtPath(_locations.workingCopy());
    if (!before.error && !now.error && before.bytes == now.bytes)
        return NSFileManager::removeItemAtPath(aside);
    if (choice == IfUnreadable::LeaveAside) {
        if (before.error)
            return before.error;
        if (now.error &&
            !NSFileManager::isMissing(now.error)) // missing: a theme without choices of its own
            return now.error;
    }
    return NSFileManager::moveItemAtPath(aside, _locations.earlierWorkingCopy());
}

std::error_code WorkingCopyGenerations::write(const QByteArray &bytes, std::error_code error)
{
    Q_ASSERT(_state != State::Standing);
    if (!error)
        error = _notKept;
    if (!error)
        error = NSFileManager::writeToFile(_locations.workingCopy(), bytes);
    if (_state != State::Begun)
        _state = error ? State::WriteFailed : State::Aside;
    return error;
}

std::error_code WorkingCopyGenerations::end()
{
    switch (std::exchange(_state, State::Standing)) {
    case State::Aside:
        return keepAsEarlier(IfUnreadable::LeaveAside);
    case State::WriteFailed:
        return recover();
    default:
        return {};
    }
}

WorkingCopyGenerations::Restoration WorkingCopyGenerations::restore()
{
    const QString earlier = _locations.earlierWorkingCopy();
    const auto [bytes, error] = NSFileManager::contentsAtPath(earlier);
    if (NSFileManager::isMissing(error))
        return {Restored::NothingToRestore, u"there are no earlier choices to restore"_s};
    if (error)
        return {Restored::Failed, NSFileManager::withReason(earlier, error)};
    if (!PropertyList::readDictionary(bytes))
        return {Restored::Failed, u"%1 holds no choices; it is left as it is"_s.arg(earlier)};
    if (const auto fault = moveAside())
        return {Restored::Failed, NSFileManager::withReason(_locations.workingCopy(), fault)};
    if (const auto fault = NSFileManager::moveItemAtPath(earlier, _locations.workingCopy())) {
        recover();
        return {Restored::Failed, NSFileManager::withReason(earlier, fault)};
    }
    if (const auto fault = end())
        return {Restored::Failed, NSFileManager::withReason(_locations.workingCopyAside(), fault)};
    return {};
}
