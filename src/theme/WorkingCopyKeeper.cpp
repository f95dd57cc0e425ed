#include "theme/WorkingCopyKeeper.h"

#include "platform/foundation/NSFileManager.h"
#include "theme/PictureEntry.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;
using Kind = NSFileManager::Kind;

namespace
{
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

/// Both by the names that no link leads around.
bool isInside(const QString &folder, const QString &outer)
{
    return folder == outer || folder.startsWith(outer + u'/');
}
} // namespace

std::shared_ptr<WorkingCopyKeeper> WorkingCopyKeeper::open(const ThemeLocations &locations)
{
    const std::shared_ptr<WorkingCopyKeeper> keeper(new WorkingCopyKeeper(locations));
    keeper->lockFolders();
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
        _refusal = NSFileManager::withReason(folder, error);
    if (kind != Kind::Folder)
        return;
    removeTemporaryFiles(folder);
    if (const auto error = _generations.recover())
        _refusal = u"an interrupted save cannot be recovered: "_s +
                   NSFileManager::withReason(_locations.workingCopyAside(), error);
}

void WorkingCopyKeeper::lockFolders()
{
    // Everybody locks in this order, so nobody waits in a ring.
    for (const QString &folder : {_locations.packageRoot, _locations.documents})
        if (_refusal.isEmpty() && !_locks.lock(folder))
            _refusal = u"another Tintloom is busy with %1; try again when it is done"_s.arg(folder);
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
        _refusal = NSFileManager::withReason(folder, error);
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
    lockFolders();
    return _refusal.isEmpty() && !refuseToEmptyTheWorkingCopysFolder();
}

bool WorkingCopyKeeper::begin(const std::function<void()> &willReplace)
{
    if (!lock() || refuseToFollowALink())
        return false;
    if (willReplace)
        willReplace();
    _generations.begin();
    return true;
}

std::error_code WorkingCopyKeeper::end()
{
    const std::error_code error = _generations.end();
    if (!error)
        PictureEntry::removeUnused(_locations);
    return error;
}

WorkingCopyKeeper::Restoration WorkingCopyKeeper::restore()
{
    if (!_refusal.isEmpty() || refuseToFollowALink())
        return {Restored::Failed, _refusal};
    return _generations.restore();
}
