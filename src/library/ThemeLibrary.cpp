#include "library/ThemeLibrary.h"

#include "library/KeptPackage.h"
#include "library/ThemeName.h"
#include "library/ThemeTrash.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"

#include <QCollator>

#include <algorithm>

using namespace Qt::StringLiterals;
using Kind = NSFileManager::Kind;
using Outcome = LibraryResult::Outcome;

namespace
{
LibraryResult failure(const QString &sentence)
{
    return {Outcome::Failed, sentence, {}};
}

LibraryResult failure(const QString &path, const std::error_code &error)
{
    return failure(NSFileManager::withReason(path, error));
}
} // namespace

ThemeLibrary::ThemeLibrary(const QString &documents) : _themes(documents + "/Themes"_L1)
{
}

std::shared_ptr<ThemeLibrary> ThemeLibrary::open(const QString &documents)
{
    const std::shared_ptr<ThemeLibrary> library(new ThemeLibrary(documents));
    if (library->findFolder())
        library->lock();
    return library;
}

/// False with a refusal, or when there is none yet.
bool ThemeLibrary::findFolder()
{
    const auto [kind, error] = NSFileManager::itemAtPath(_themes);
    if (error)
        _refusal = NSFileManager::withReason(_themes, error);
    else if (kind == Kind::Link)
        _refusal = u"%1 is a symbolic link; themes are kept in a real folder only"_s.arg(_themes);
    else if (kind != Kind::Folder && kind != Kind::Nothing)
        _refusal = u"%1 is no folder"_s.arg(_themes);
    return kind == Kind::Folder;
}

bool ThemeLibrary::lock()
{
    if (!_locks.lock(_themes))
        _refusal = u"another Tintloom is busy with %1; try again when it is done"_s.arg(_themes);
    else
        recover();
    return _refusal.isEmpty();
}

bool ThemeLibrary::lockToChange()
{
    if (!_refusal.isEmpty())
        return false;
    if (const auto error = NSFileManager::createDirectoryAtPath(_themes)) {
        _refusal = NSFileManager::withReason(_themes, error);
        return false;
    }
    return findFolder() && lock();
}

void ThemeLibrary::recover()
{
    const auto refuse = [this](const QString &path, const std::error_code &error) {
        _refusal = u"an interrupted change of the themes cannot be ended: "_s +
                   NSFileManager::withReason(path, error);
    };
    const QString fresh = _themes + "/.New"_L1;
    const auto [kind, error] = NSFileManager::itemAtPath(fresh);
    if (error)
        return refuse(fresh, error);
    if (kind == Kind::Nothing)
        return;
    const auto entries = kind == Kind::Folder ? NSFileManager::contentsOfDirectoryAtPath(fresh)
                                              : NSFileManager::Names();
    if (entries.error)
        return refuse(fresh, entries.error);
    for (const QString &name : entries.names) {
        const QString theme = fresh + u'/' + name;
        const QString place = _themes + u'/' + name;
        const auto info = NSFileManager::itemAtPath(theme + "/Info.plist"_L1);
        const auto old = NSFileManager::itemAtPath(place);
        if (info.error || old.error)
            return refuse(theme, info.error ? info.error : old.error);
        if (info.kind != Kind::File || old.kind != Kind::Nothing)
            continue;
        if (const auto fault = moveFolder(theme, place))
            return refuse(theme, fault);
        NSLog("Unfinished change of the themes ended, the new one stands: %@", {place});
    }
    if (const auto fault = NSFileManager::removeItemAtPath(fresh))
        refuse(fresh, fault);
}

/// What is left over, the next program removes.
void ThemeLibrary::endChange()
{
    NSFileManager::removeItemAtPath(_themes + "/.New"_L1);
}

KeptThemes ThemeLibrary::scan() const
{
    return _refusal.isEmpty() ? KeptThemes::in(_themes) : KeptThemes();
}

std::vector<KeptTheme> ThemeLibrary::themes() const
{
    std::vector<KeptTheme> themes = scan().themes;
    QCollator collator; // the user's locale, as the catalogue's sections
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::sort(themes, [&](const KeptTheme &left, const KeptTheme &right) {
        const int order = collator.compare(left.name, right.name);
        return order != 0 ? order < 0 : left.name < right.name;
    });
    return themes;
}

QStringList ThemeLibrary::names() const
{
    QStringList names;
    for (const KeptTheme &theme : themes())
        names.append(theme.name);
    return names;
}

std::optional<KeptTheme> ThemeLibrary::find(const QString &name) const
{
    return scan().find(name);
}

LibraryResult ThemeLibrary::taken(const KeptThemes &scan, const QString &name)
{
    const QString other = scan.freeName(name);
    return {Outcome::NameTaken,
            u"there is a theme \"%1\" already; \"%2\" is free"_s.arg(name, other), other};
}

LibraryResult ThemeLibrary::noSuchTheme(const QString &name) const
{
    if (!_refusal.isEmpty())
        return failure(_refusal);
    return {Outcome::NoSuchTheme, u"there is no kept theme \"%1\""_s.arg(name), {}};
}

ThemeLibrary::Reading ThemeLibrary::read(const QString &name) const
{
    const auto theme = find(name);
    if (!theme)
        return {{}, noSuchTheme(name)};
    auto [contents, problem] = KeptPackage::read(theme->folder);
    if (!contents)
        return {{}, failure(problem)};
    return {std::move(contents), {Outcome::Done, {}, theme->name}};
}

LibraryResult ThemeLibrary::keep(PackageContents contents, const QString &name, IfTaken ifTaken,
                                 const QDateTime &now)
{
    const auto typed = ThemeName::fromTyped(name);
    if (!typed.problem.isEmpty())
        return {Outcome::BadName, typed.problem, {}};
    if (const QString problem = KeptPackage::problemOf(contents); !problem.isEmpty())
        return failure(problem);
    if (!lockToChange())
        return failure(_refusal);
    const KeptThemes scan = this->scan();
    if (const QString problem = scan.problemWith(typed.name); !problem.isEmpty())
        return failure(problem);
    const auto old = scan.find(typed.name);
    if (old && ifTaken == IfTaken::Refuse)
        return taken(scan, typed.name);
    contents.info.setValue(u"name"_s, typed.name);
    const QString folder =
        old ? old->folder : _themes + u'/' + ThemeName::freeFolder(typed.name, scan.folders);
    const QString fresh = _themes + "/.New/"_L1 + folder.section(u'/', -1);
    if (const QString problem = KeptPackage::write(contents, fresh); !problem.isEmpty()) {
        endChange();
        return failure(u"\"%1\" cannot be kept: %2"_s.arg(typed.name, problem));
    }
    LibraryResult result = bringIn(fresh, folder, old, now);
    if (result.isDone())
        result = {Outcome::Done, u"\"%1\" has been kept"_s.arg(typed.name), typed.name};
    return result;
}

LibraryResult ThemeLibrary::bringIn(const QString &from, const QString &folder,
                                    const std::optional<KeptTheme> &old, const QDateTime &now)
{
    ThemeTrash::Moved trashed;
    if (old)
        trashed = ThemeTrash(_themes).add(old->folder, now);
    if (!trashed.problem.isEmpty()) {
        endChange();
        return failure(trashed.problem);
    }
    const auto error = moveFolder(from, folder);
    // Where neither can come to its place now, the next program brings in the new one.
    const bool isSettled = !error || !old || !moveFolder(trashed.folder, old->folder);
    if (isSettled)
        endChange();
    return error ? failure(folder, error) : LibraryResult{Outcome::Done, {}, {}};
}

/// Gives a theme its name in one step. Returns why that cannot be done; else empty.
QString ThemeLibrary::putName(const KeptTheme &theme, const QString &name)
{
    auto info = KeptPackage::readInfo(theme.folder);
    if (!info)
        return u"%1 cannot be read"_s.arg(theme.folder);
    info->setValue(u"name"_s, name);
    const QString place = theme.folder + "/Info.plist"_L1;
    const QString fresh = _themes + "/.New/Info.plist"_L1;
    std::error_code error = NSFileManager::createDirectoryAtPath(_themes + "/.New"_L1);
    if (!error)
        error = NSFileManager::writeToFile(fresh, PropertyList::writeDictionary(*info));
    if (!error)
        error = NSFileManager::moveItemAtPath(fresh, place);
    endChange();
    return error ? NSFileManager::withReason(place, error) : QString();
}

LibraryResult ThemeLibrary::rename(const QString &name, const QString &newName)
{
    const auto typed = ThemeName::fromTyped(newName);
    if (!typed.problem.isEmpty())
        return {Outcome::BadName, typed.problem, {}};
    KeptThemes scan = this->scan();
    const auto theme = scan.find(name);
    if (!theme)
        return noSuchTheme(name);
    if (!ThemeName::isSame(theme->name, typed.name)) {
        if (scan.find(typed.name))
            return taken(scan, typed.name);
        if (const QString problem = scan.problemWith(typed.name); !problem.isEmpty())
            return failure(problem);
    }
    if (const QString problem = putName(*theme, typed.name); !problem.isEmpty())
        return failure(problem);
    // Its folder keeps the old name where it cannot follow.
    scan.folders.removeOne(theme->folder.section(u'/', -1));
    const QString folder = _themes + u'/' + ThemeName::freeFolder(typed.name, scan.folders);
    if (folder != theme->folder)
        if (const auto error = moveFolder(theme->folder, folder))
            NSLog("Cannot rename the folder %@", {NSFileManager::withReason(theme->folder, error)});
    return {Outcome::Done, u"\"%1\" is now \"%2\""_s.arg(theme->name, typed.name), typed.name};
}

LibraryResult ThemeLibrary::duplicate(const QString &name, const QString &newName)
{
    const auto [contents, result] = read(name);
    return contents ? keep(*contents, newName, IfTaken::Refuse) : result;
}

LibraryResult ThemeLibrary::remove(const QString &name, const QDateTime &now)
{
    const auto theme = find(name);
    if (!theme)
        return noSuchTheme(name);
    ThemeTrash trash(_themes);
    trash.removeOld(now);
    const auto [folder, problem] = trash.add(theme->folder, now);
    if (!problem.isEmpty())
        return failure(problem);
    return {Outcome::Done,
            u"\"%1\" has been removed; it can be put back for %2 days"_s.arg(theme->name)
                .arg(ThemeTrash::days),
            theme->name};
}

LibraryResult ThemeLibrary::putBack(const QString &name, const QDateTime &now)
{
    if (!_refusal.isEmpty())
        return failure(_refusal);
    for (const QString &trashed : ThemeTrash(_themes).folders(now)) {
        const auto info = KeptPackage::readInfo(trashed);
        const QString before =
            info ? KeptPackage::nameOf(*info, ThemeTrash::nameBefore(trashed)) : QString();
        if (!info || !ThemeName::isSame(before, name.trimmed()))
            continue;
        const KeptThemes scan = this->scan();
        if (const QString problem = scan.problemWith(before); !problem.isEmpty())
            return failure(problem);
        const KeptTheme theme{scan.freeName(before),
                              _themes + u'/' + ThemeName::freeFolder(before, scan.folders)};
        if (const auto error = moveFolder(trashed, theme.folder))
            return failure(trashed, error);
        if (theme.name != before)
            if (const QString problem = putName(theme, theme.name); !problem.isEmpty())
                return failure(problem);
        return {Outcome::Done, u"\"%1\" is back"_s.arg(theme.name), theme.name};
    }
    return {
        Outcome::NoSuchTheme,
        u"no theme \"%1\" has been removed in the last %2 days"_s.arg(name).arg(ThemeTrash::days),
        {}};
}
