#include "library/ThemeTrash.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using Kind = NSFileManager::Kind;

namespace
{
const QString format = u"yyyyMMdd'T'hhmmsszzz"_s;
constexpr qsizetype stampSize = 18;

QString stampOf(const QDateTime &time)
{
    return time.toUTC().toString(format);
}

/// Invalid for what nobody here has put into the trash.
QDateTime timeIn(const QString &name)
{
    if (name.size() <= stampSize || name[stampSize] != u' ')
        return {};
    QDateTime time = QDateTime::fromString(name.first(stampSize), format);
    time.setTimeSpec(Qt::UTC);
    return time;
}

bool isOld(const QDateTime &time, const QDateTime &now)
{
    return time.isValid() && time.addDays(ThemeTrash::days) < now;
}
} // namespace

std::error_code moveFolder(const QString &from, const QString &to)
{
    const auto error = NSFileManager::moveItemAtPath(from, to);
    if (error && NSFileManager::itemAtPath(to).kind == Kind::Folder &&
        NSFileManager::itemAtPath(from).kind == Kind::Nothing) {
        NSLog("Moved, but not flushed to the disk: %@", {NSFileManager::withReason(to, error)});
        return {};
    }
    return error;
}

ThemeTrash::Moved ThemeTrash::add(const QString &folder, const QDateTime &now)
{
    const auto trash = NSFileManager::itemAtPath(_folder);
    if (trash.error)
        return {{}, NSFileManager::withReason(_folder, trash.error)};
    if (trash.kind != Kind::Nothing && trash.kind != Kind::Folder)
        return {{}, u"%1 is no folder of its own"_s.arg(_folder)};
    if (const auto error = NSFileManager::createDirectoryAtPath(_folder))
        return {{}, NSFileManager::withReason(_folder, error)};
    QDateTime time = now;
    const auto target = [&] {
        return _folder + u'/' + stampOf(time) + u' ' + folder.section(u'/', -1);
    };
    while (NSFileManager::fileExistsAtPath(target())) // two within a millisecond
        time = time.addMSecs(1);
    if (const auto error = moveFolder(folder, target()))
        return {{}, NSFileManager::withReason(folder, error)};
    return {target(), {}};
}

QStringList ThemeTrash::folders(const QDateTime &now) const
{
    QStringList folders;
    if (NSFileManager::itemAtPath(_folder).kind != Kind::Folder)
        return folders;
    for (const QString &name : NSFileManager::contentsOfDirectoryAtPath(_folder).names) {
        const QDateTime time = timeIn(name);
        const QString folder = _folder + u'/' + name;
        if (time.isValid() && !isOld(time, now) &&
            NSFileManager::itemAtPath(folder).kind == Kind::Folder)
            folders.prepend(folder);
    }
    return folders;
}

QString ThemeTrash::nameBefore(const QString &folder)
{
    return folder.section(u'/', -1).sliced(stampSize + 1);
}

void ThemeTrash::removeOld(const QDateTime &now)
{
    if (NSFileManager::itemAtPath(_folder).kind != Kind::Folder)
        return;
    for (const QString &name : NSFileManager::contentsOfDirectoryAtPath(_folder).names)
        if (isOld(timeIn(name), now))
            NSFileManager::removeItemAtPath(_folder + u'/' + name);
}
