#include "library/KeptThemes.h"

#include "library/KeptPackage.h"
#include "library/ThemeName.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"

#include <algorithm>

using namespace Qt::StringLiterals;

KeptThemes KeptThemes::in(const QString &folder)
{
    KeptThemes all;
    const auto [names, error] = NSFileManager::contentsOfDirectoryAtPath(folder);
    if (error && !NSFileManager::isMissing(error)) {
        all.problem = NSFileManager::withReason(folder, error);
        NSLog("Cannot list %@", {all.problem});
    }
    all.folders = names;
    QSet<QString> keys;
    for (const QString &entry : names) {
        const QString path = folder + u'/' + entry;
        if (entry.startsWith(u'.'))
            continue;
        const auto [kind, fault] = NSFileManager::itemAtPath(path);
        const bool isFolder = kind == NSFileManager::Kind::Folder;
        if (fault)
            NSLog("Skipped: %@", {NSFileManager::withReason(path, fault)});
        else if (!isFolder)
            NSLog("Skipped, being no folder of its own: %@", {path});
        const auto info = isFolder ? KeptPackage::readInfo(path) : std::nullopt;
        if (!info) {
            all.skipped.append(entry);
            continue;
        }
        const QString name = ThemeName::freeName(KeptPackage::nameOf(*info, entry), keys);
        keys.insert(ThemeName::key(name));
        all.themes.push_back({name, path});
    }
    return all;
}

std::optional<KeptTheme> KeptThemes::find(const QString &name) const
{
    const auto found =
        std::ranges::find(themes, ThemeName::key(name.trimmed()),
                          [](const KeptTheme &theme) { return ThemeName::key(theme.name); });
    return found == themes.end() ? std::nullopt : std::optional(*found);
}

QString KeptThemes::freeName(const QString &name) const
{
    QSet<QString> keys;
    for (const KeptTheme &theme : themes)
        keys.insert(ThemeName::key(theme.name));
    return ThemeName::freeName(name, keys);
}

QString KeptThemes::problemWith(const QString &name) const
{
    const QString usual = ThemeName::freeFolder(name, {});
    for (const QString &folder : skipped)
        if (ThemeName::isSame(folder, usual))
            return u"\"%1\" is in the way among the themes, and no theme that can be read"_s.arg(
                folder);
    return problem;
}
