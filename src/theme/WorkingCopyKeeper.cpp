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
    keeper->lock(locations.packageRoot); // everybody locks in this order, so nobody waits in a ring
    keeper->lock(locations.documents);
    if (!keeper->_refusal.isEmpty())
        return keeper;
    removeTemporaryFiles(locations.documents);
    if (isRealFolder(locations.packageFolder())) {
        removeTemporaryFiles(locations.packageFolder());
        if (isRealFolder(locations.indicatorFolder()))
            removeTemporaryFiles(locations.indicatorFolder());
    }
    keeper->recover();
    return keeper;
}

void WorkingCopyKeeper::recover()
{
    const QString folder = _locations.workingCopyFolder();
    const auto [kind, error] = NSFileManager::itemAtPath(folder);
    if (error)
        _refusal = withReason(folder, error);
    if (kind != Kind::Folder)
        return;
    removeTemporaryFiles(folder);
    if (const auto error = settle())
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

void WorkingCopyKeeper::lock(const QString &folder)
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

/// A removal in the package must not reach the working copy, nor one beside the working copy lead
/// through a link into somebody else's folder.
void WorkingCopyKeeper::refuseStrangeFolders()
{
    const QString folder = _locations.workingCopyFolder();
    const QString documents = QFileInfo(_locations.documents).canonicalFilePath();
    const QString root = QFileInfo(_locations.packageRoot).canonicalFilePath();
    const ThemeLocations real{root, documents};
    const auto item = NSFileManager::itemAtPath(folder);
    if (item.error)
        _refusal = withReason(folder, item.error);
    else if (item.kind == Kind::Link)
        _refusal =
            u"%1 is a symbolic link; the choices are kept in a real folder only"_s.arg(folder);
    else if (!root.isEmpty() && !documents.isEmpty() &&
             isInside(real.workingCopyFolder(), real.packageFolder()))
        _refusal = u"%1 lies in the theme's own folder, which every save empties"_s.arg(folder);
}

bool WorkingCopyKeeper::claim()
{
    if (!_refusal.isEmpty())
        return false;
    // What cannot be made here shows as soon as something is to be written there.
    NSFileManager::createDirectoryAtPath(_locations.packageRoot);
    NSFileManager::createDirectoryAtPath(_locations.documents);
    lock(_locations.packageRoot);
    lock(_locations.documents);
    if (_refusal.isEmpty())
        refuseStrangeFolders();
    return _refusal.isEmpty();
}

bool WorkingCopyKeeper::begin(const std::function<void()> &willReplace)
{
    if (!claim())
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
    if (const auto error = settle())
        return error;
    const QString path = _locations.workingCopy();
    const auto [kind, error] = NSFileManager::itemAtPath(path);
    if (error || kind == Kind::Nothing)
        return error;
    if (kind == Kind::Folder) // in the place of our file, and no choices of anybody's
        return NSFileManager::removeItemAtPath(path);
    if (const auto fault = NSFileManager::moveItemAtPath(path, _locations.workingCopyAside())) {
        settle(); // it may have been moved and only not flushed
        return fault;
    }
    _isAside = true;
    return {};
}

std::error_code WorkingCopyKeeper::settle()
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
                               ? keepAsEarlier(true)
                               : NSFileManager::moveItemAtPath(_locations.workingCopyAside(),
                                                               _locations.workingCopy()))
        return fault;
    NSLog(newOnesStand ? u"Unfinished save recovered, the new choices stand: %@"_s
                       : u"Unfinished save undone, the old choices are back: %@"_s,
          {_locations.workingCopy()});
    return {};
}

/// Only what differs is worth its place as the earlier generation. At the end of a replacement an
/// error of reading leaves the decision to the next start; that takes what it cannot read for
/// different, or nobody would ever get past an unreadable file.
std::error_code WorkingCopyKeeper::keepAsEarlier(bool isRecovery)
{
    const QString aside = _locations.workingCopyAside();
    const auto before = NSFileManager::contentsAtPath(aside);
    const auto now = NSFileManager::contentsAtPath(_locations.workingCopy());
    if (!before.error && !now.error && before.bytes == now.bytes)
        return NSFileManager::removeItemAtPath(aside);
    if (!isRecovery && before.error)
        return before.error;
    if (!isRecovery && now.error && !isMissing(now.error))
        return now.error;
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
    return _failed ? settle() : keepAsEarlier(false);
}

WorkingCopyKeeper::Restoration WorkingCopyKeeper::restore()
{
    const QString earlier = _locations.earlierWorkingCopy();
    if (_refusal.isEmpty())
        refuseStrangeFolders();
    if (!_refusal.isEmpty())
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
        settle();
        return {Restored::Failed, withReason(earlier, fault)};
    }
    if (const auto fault =
            std::exchange(_isAside, false) ? keepAsEarlier(false) : std::error_code())
        return {Restored::Failed, withReason(_locations.workingCopyAside(), fault)};
    return {};
}
