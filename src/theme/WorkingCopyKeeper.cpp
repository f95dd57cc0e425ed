#include "theme/WorkingCopyKeeper.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/PropertyList.h"

#include <QFileInfo>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;
using Kind = NSFileManager::Kind;

namespace
{
constexpr std::chrono::milliseconds usualPatience(5000); // a save takes far less than a second
constexpr std::chrono::milliseconds pollInterval(10);
std::atomic patience = usualPatience;

QString withReason(const QString &path, const std::error_code &error)
{
    return path + ": "_L1 + QString::fromStdString(error.message());
}

/// What is behind a link is not ours to tidy.
bool isRealFolder(const QString &path)
{
    return NSFileManager::itemAtPath(path).kind == Kind::Folder;
}

void removeTemporaryFiles(const QString &folder)
{
    for (const QString &name : NSFileManager::contentsOfDirectoryAtPath(folder).names) {
        const QString path = folder + u'/' + name;
        if (NSFileManager::isTemporaryName(name) &&
            NSFileManager::itemAtPath(path).kind == Kind::File)
            NSFileManager::removeItemAtPath(path);
    }
}

bool isMissing(const std::error_code &error)
{
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

/// Both by the names that no link leads around.
bool isInside(const QString &folder, const QString &outer)
{
    return folder == outer || folder.startsWith(outer + u'/');
}
} // namespace

std::shared_ptr<WorkingCopyKeeper> WorkingCopyKeeper::open(const ThemeLocations &locations)
{
    const std::shared_ptr<WorkingCopyKeeper> keeper(new WorkingCopyKeeper(locations));
    // Everybody locks in this order, so nobody waits in a ring.
    keeper->lockFolder(locations.packageRoot);
    keeper->lockFolder(locations.documents);
    if (!keeper->_refusal.isEmpty())
        return keeper;
    removeTemporaryFiles(locations.documents);
    if (isRealFolder(locations.packageFolder())) {
        removeTemporaryFiles(locations.packageFolder());
        if (isRealFolder(locations.indicatorFolder()))
            removeTemporaryFiles(locations.indicatorFolder());
    }
    keeper->recoverAtStart();
    return keeper;
}

void WorkingCopyKeeper::recoverAtStart()
{
    const QString folder = _locations.workingCopyFolder();
    const auto [kind, error] = NSFileManager::itemAtPath(folder);
    if (error)
        _refusal = withReason(folder, error);
    if (kind != Kind::Folder)
        return;
    removeTemporaryFiles(folder);
    if (const auto error = recover())
        _refusal = u"an interrupted save cannot be recovered: "_s +
                   withReason(_locations.workingCopyAside(), error);
}

WorkingCopyKeeper::~WorkingCopyKeeper()
{
    _failed = true;
    if (const auto error = end())
        NSLog(u"Cannot undo the save: %@"_s, {withReason(_locations.workingCopyAside(), error)});
}

void WorkingCopyKeeper::setPatience(std::chrono::milliseconds newPatience)
{
    patience = newPatience;
}

void WorkingCopyKeeper::lockFolder(const QString &folder)
{
    const QString name = QFileInfo(folder).canonicalFilePath();
    if (name.isEmpty() || _lockedFolders.contains(name) || !_refusal.isEmpty())
        return;
    const auto deadline = std::chrono::steady_clock::now() + patience.load();
    auto attempt = NSFileManager::lockFolderAtPath(folder);
    if (attempt.error == std::errc::operation_would_block)
        NSLog(u"Waiting for another Tintloom to finish with %@"_s, {folder});
    while (attempt.error == std::errc::operation_would_block) {
        if (std::chrono::steady_clock::now() >= deadline) {
            _refusal = u"another Tintloom is busy with %1; try again when it is done"_s.arg(folder);
            return;
        }
        std::this_thread::sleep_for(pollInterval);
        attempt = NSFileManager::lockFolderAtPath(folder);
    }
    if (!attempt.error) {
        _locks.push_back(std::move(attempt.hold));
        _lockedFolders.append(name);
    } else if (!isMissing(attempt.error)) {
        NSLog(u"Cannot lock %@"_s, {withReason(folder, attempt.error)});
    }
}

/// Whatever changes the package empties it first.
bool WorkingCopyKeeper::refuseToEmptyTheWorkingCopysFolder()
{
    const ThemeLocations real{QFileInfo(_locations.packageRoot).canonicalFilePath(),
                              QFileInfo(_locations.documents).canonicalFilePath()};
    if (!real.packageRoot.isEmpty() && !real.documents.isEmpty() &&
        isInside(real.workingCopyFolder(), real.packageFolder()))
        _refusal = u"%1 lies in the theme's own folder, which every save empties"_s.arg(
            _locations.workingCopyFolder());
    return !_refusal.isEmpty();
}

/// Where a link leads, somebody else's files may have the names of ours.
bool WorkingCopyKeeper::refuseToFollowALink()
{
    const QString folder = _locations.workingCopyFolder();
    const auto [kind, error] = NSFileManager::itemAtPath(folder);
    if (error)
        _refusal = withReason(folder, error);
    else if (kind == Kind::Link)
        _refusal =
            u"%1 is a symbolic link; the choices are kept in a real folder only"_s.arg(folder);
    return !_refusal.isEmpty();
}

bool WorkingCopyKeeper::lock()
{
    if (!_refusal.isEmpty())
        return false;
    // What cannot be made here shows as soon as something is to be written there.
    NSFileManager::createDirectoryAtPath(_locations.packageRoot);
    NSFileManager::createDirectoryAtPath(_locations.documents);
    lockFolder(_locations.packageRoot);
    lockFolder(_locations.documents);
    return _refusal.isEmpty() && !refuseToEmptyTheWorkingCopysFolder();
}

bool WorkingCopyKeeper::begin(const std::function<void()> &willReplace)
{
    if (!lock() || refuseToFollowALink())
        return false;
    if (willReplace)
        willReplace();
    _begun = true;
    _failed = false;
    _notKept = moveAside();
    return true;
}

std::error_code WorkingCopyKeeper::moveAside()
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
    _isAside = true;
    return {};
}

/// Does what an interrupted replacement has left to do; nothing when there was none.
std::error_code WorkingCopyKeeper::recover()
{
    const auto aside = NSFileManager::itemAtPath(_locations.workingCopyAside());
    if (aside.error || aside.kind == Kind::Nothing)
        return aside.error;
    if (aside.kind == Kind::Folder)
        return std::make_error_code(std::errc::is_a_directory);
    const auto [bytes, error] = NSFileManager::contentsAtPath(_locations.workingCopy());
    if (error && !isMissing(error))
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
std::error_code WorkingCopyKeeper::keepAsEarlier(IfUnreadable choice)
{
    const QString aside = _locations.workingCopyAside();
    const auto before = NSFileManager::contentsAtPath(aside);
    const auto now = NSFileManager::contentsAtPath(_locations.workingCopy());
    if (!before.error && !now.error && before.bytes == now.bytes)
        return NSFileManager::removeItemAtPath(aside);
    if (choice == IfUnreadable::LeaveAside) {
        if (before.error)
            return before.error;
        if (now.error && !isMissing(now.error)) // missing: a theme without choices of its own
            return now.error;
    }
    return NSFileManager::moveItemAtPath(aside, _locations.earlierWorkingCopy());
}

std::error_code WorkingCopyKeeper::write(const QByteArray &bytes)
{
    return replaceWith(bytes, {});
}

std::error_code WorkingCopyKeeper::copy(const QString &file)
{
    const auto [bytes, error] = NSFileManager::contentsAtPath(file);
    return replaceWith(bytes, error);
}

std::error_code WorkingCopyKeeper::replaceWith(const QByteArray &bytes, std::error_code error)
{
    Q_ASSERT(_begun);
    if (!error)
        error = _notKept;
    if (!error)
        error = NSFileManager::writeToFile(_locations.workingCopy(), bytes);
    _failed = bool(error);
    return error;
}

std::error_code WorkingCopyKeeper::end()
{
    const bool isAside = std::exchange(_isAside, false);
    if (!std::exchange(_begun, false) || !isAside)
        return {};
    return _failed ? recover() : keepAsEarlier(IfUnreadable::LeaveAside);
}

WorkingCopyKeeper::Restoration WorkingCopyKeeper::restore()
{
    const QString earlier = _locations.earlierWorkingCopy();
    if (!_refusal.isEmpty() || refuseToFollowALink())
        return {Restored::Failed, _refusal};
    const auto [bytes, error] = NSFileManager::contentsAtPath(earlier);
    if (isMissing(error))
        return {Restored::NothingToRestore, u"there are no earlier choices to restore"_s};
    if (error)
        return {Restored::Failed, withReason(earlier, error)};
    if (!PropertyList::readDictionary(bytes))
        return {Restored::Failed, u"%1 holds no choices; it is left as it is"_s.arg(earlier)};
    if (const auto fault = moveAside())
        return {Restored::Failed, withReason(_locations.workingCopy(), fault)};
    if (const auto fault = NSFileManager::moveItemAtPath(earlier, _locations.workingCopy())) {
        recover();
        return {Restored::Failed, withReason(earlier, fault)};
    }
    if (const auto fault = std::exchange(_isAside, false) ? keepAsEarlier(IfUnreadable::LeaveAside)
                                                          : std::error_code())
        return {Restored::Failed, withReason(_locations.workingCopyAside(), fault)};
    return {};
}
