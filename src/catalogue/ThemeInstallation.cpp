#include "catalogue/ThemeInstallation.h"

#include "catalogue/ThemeList.h"
#include "library/EditedTheme.h"
#include "platform/foundation/NSFileManager.h"
#include "theme/PictureEntry.h"
#include "theme/WorkingCopyKeeper.h"

#include <vector>

using namespace Qt::StringLiterals;
using Kind = NSFileManager::Kind;

namespace
{
ThemeInstallation ofReadyMade(const QString &resources, const QString &name,
                              const ThemeLocations &locations)
{
    ThemeInstallation installation;
    installation.locations = locations;
    if (const auto source = themeResourceFolder(resources, name)) {
        installation.source = *source;
        installation.keeper = WorkingCopyKeeper::open(locations);
    } else {
        installation.report.refusal = u"no theme's folder can have the name \"%1\""_s.arg(name);
    }
    return installation;
}

ThemeInstallation ofKept(const QString &name, const ThemeLocations &locations)
{
    ThemeInstallation installation;
    installation.locations = locations;
    installation.keeper = WorkingCopyKeeper::open(locations);
    installation.library = ThemeLibrary::open(locations.documents);
    installation.kept = installation.library->find(name);
    if (installation.kept)
        installation.source = installation.kept->folder;
    else if (!installation.library->refusal().isEmpty())
        installation.report.refusal = installation.library->refusal();
    else
        installation.report.refusal = u"there is no kept theme \"%1\""_s.arg(name);
    return installation;
}

/// Nothing is touched before name and keeper have been found in order.
ThemeInstallation begin(ThemeInstallation installation)
{
    if (!installation.report.refusal.isEmpty())
        return installation;
    WorkingCopyKeeper &keeper = *installation.keeper;
    if (!(installation.asWorkingCopy ? keeper.begin() : keeper.lock())) {
        installation.report.refusal = keeper.refusal();
        return installation;
    }
    const QString target = installation.locations.packageFolder();
    const auto old = NSFileManager::itemAtPath(target);
    installation.report.addFailure(target, old.error);
    if (old.kind != Kind::Nothing)
        installation.report.addFailure(target, NSFileManager::removeItemAtPath(target));
    installation.report.addFailure(target, NSFileManager::createDirectoryAtPath(target));
    return installation;
}

ThemeInstallation beginAsWorkingCopy(ThemeInstallation installation)
{
    installation.asWorkingCopy = true;
    installation = begin(std::move(installation));
    if (!installation.report.refusal.isEmpty()) // nothing may be touched
        return installation;
    const QString folder = installation.locations.workingCopyFolder();
    const QString preferences = installation.locations.preferences();
    installation.report.addFailure(folder, NSFileManager::createDirectoryAtPath(folder));
    installation.report.addFailure(preferences, EditedTheme(preferences).set(std::nullopt));
    return installation;
}

/// What is wrong with `target` as a copy of `source`; no error when nothing is. Of folders and
/// links only the kind is compared: what lies in a folder is an entry, and so a comparison, of its
/// own.
std::error_code differenceOf(const QString &source, const QString &target)
{
    const auto differs = std::make_error_code(std::errc::io_error);
    const auto from = NSFileManager::itemAtPath(source);
    const auto to = NSFileManager::itemAtPath(target);
    if (from.error || to.error)
        return from.error ? from.error : to.error;
    if (from.kind != to.kind)
        return differs;
    if (from.kind != Kind::File)
        return from.kind == Kind::Folder || from.kind == Kind::Link ? std::error_code() : differs;
    const auto original = NSFileManager::contentsAtPath(source);
    const auto copy = NSFileManager::contentsAtPath(target);
    if (original.error || copy.error)
        return original.error ? original.error : copy.error;
    return original.bytes == copy.bytes ? std::error_code() : differs;
}

class Copying
{
public:
    explicit Copying(SaveReport report) : _report(std::move(report)) {}

    void copy(const QString &source, const QString &target)
    {
        note(source, target, NSFileManager::copyItemAtPath(source, target));
    }

    void note(const QString &source, const QString &target, const std::error_code &fault)
    {
        _copies.push_back({source, target, fault, {}});
    }

    void openLastToEverybody()
    {
        Copy &copy = _copies.back();
        copy.openFault = NSFileManager::setPosixPermissions(copy.target, packagePermissions);
    }

    /// Judged when all is done, by what then stands. A folder is copied whole, and what lies in it
    /// once more after that, as on the phone; that those copies fail is no failure.
    SaveReport report()
    {
        for (const Copy &copy : _copies) {
            const std::error_code difference = differenceOf(copy.source, copy.target);
            const bool copied = !difference;
            const Kind type = NSFileManager::itemAtPath(copy.target).kind;
            // That the target exists tells nothing of what is wrong with it.
            if (!copied)
                _report.addFailure(copy.target, copy.fault && copy.fault != std::errc::file_exists
                                                    ? copy.fault
                                                    : difference);
            else if (type != Kind::Link) // a link has no permissions of its own
                _report.addFailure(copy.target, copy.openFault);
            if (copied && type == Kind::File)
                _report.written.append(copy.target);
        }
        return _report;
    }

private:
    struct Copy {
        QString source, target;
        std::error_code fault, openFault;
    };

    SaveReport _report;
    std::vector<Copy> _copies;
};

/// The whole picture behind the list, to lie beside the working copy. False for a fault.
bool copyPicture(const ThemeInstallation &installation, const QString &name, Copying &copying)
{
    const QString source = installation.source + u'/' + name;
    const QString target = installation.locations.workingCopyFolder() + u'/' + name;
    auto [bytes, error] = NSFileManager::contentsAtPath(source);
    if (!error)
        error = NSFileManager::writeToFile(target, bytes);
    copying.note(source, target, error);
    return !error;
}

void copyAsWorkingCopy(const ThemeInstallation &installation, const QString &source,
                       Copying &copying)
{
    const QString target = installation.locations.workingCopy();
    const auto [bytes, error] = NSFileManager::contentsAtPath(source);
    auto info = installation.kept ? PropertyList::readDictionary(bytes) : std::nullopt;
    const auto picture = info ? PictureEntry::fileIn(*info) : std::nullopt;
    // Choices never lead to a picture that is not there.
    if (!picture || copyPicture(installation, *picture, copying))
        return copying.note(source, target, installation.keeper->write(bytes, error));
    info->setValue(PictureEntry::key(), {});
    copying.note(target, target, installation.keeper->write(PropertyList::writeDictionary(*info)));
}

SaveReport copyEntries(const ThemeInstallation &installation)
{
    SaveReport report = installation.report;
    const auto [entries, error] = NSFileManager::enumeratorAtPath(installation.source);
    report.addFailure(installation.source, error);
    const QString folder = installation.locations.packageFolder();
    if (NSFileManager::itemAtPath(folder).kind == Kind::Link) {
        report.addFailure(folder, std::make_error_code(std::errc::not_a_directory));
        return report;
    }
    Copying copying(report);
    for (const QString &entry : entries) {
        const QString source = installation.source + u'/' + entry;
        if (installation.asWorkingCopy && entry == "Info.plist"_L1)
            copyAsWorkingCopy(installation, source, copying);
        copying.copy(source, folder + u'/' + entry);
        copying.openLastToEverybody();
    }
    return copying.report();
}
} // namespace

ThemeInstallation beginInstalling(const QString &resources, const QString &name,
                                  const ThemeLocations &locations)
{
    return begin(ofReadyMade(resources, name, locations));
}

ThemeInstallation beginEditing(const QString &resources, const QString &name,
                               const ThemeLocations &locations)
{
    return beginAsWorkingCopy(ofReadyMade(resources, name, locations));
}

ThemeInstallation beginInstallingKept(const QString &name, const ThemeLocations &locations)
{
    return begin(ofKept(name, locations));
}

ThemeInstallation beginEditingKept(const QString &name, const ThemeLocations &locations)
{
    return beginAsWorkingCopy(ofKept(name, locations));
}

SaveReport copyTheme(const ThemeInstallation &installation)
{
    if (!installation.report.refusal.isEmpty())
        return installation.report;
    SaveReport report = copyEntries(installation);
    report.addFailure(installation.locations.workingCopy(), installation.keeper->end());
    const QString preferences = installation.locations.preferences();
    if (installation.asWorkingCopy && installation.kept && report.failures.empty())
        report.addFailure(preferences, EditedTheme(preferences).set(installation.kept->name));
    return report;
}
