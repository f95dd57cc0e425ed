#include "catalogue/ThemeInstallation.h"

#include "catalogue/ThemeList.h"
#include "platform/NSFileManager.h"

#include <vector>

using namespace Qt::StringLiterals;
using FileType = NSFileManager::FileType;

namespace
{
constexpr unsigned everybodyMayDoEverything = 0777;

ThemeInstallation begin(const QString &resources, const QString &name,
                        const ThemeLocations &locations)
{
    ThemeInstallation installation{locations, {}, false, {}};
    if (const auto folder = themeResourceFolder(resources, name))
        installation.source = *folder;
    else
        installation.report.addFailure(name,
                                       std::make_error_code(std::errc::no_such_file_or_directory));
    const QString target = locations.packageFolder();
    if (NSFileManager::fileExistsAtPath(target))
        installation.report.addFailure(target, NSFileManager::removeItemAtPath(target));
    return installation;
}

/// A folder at a file's path makes the folders above it, and takes an old file's place with it.
/// Returns why the folders could not be made; an old file in the way is no reason.
std::error_code clearFile(const QString &path)
{
    std::error_code error = NSFileManager::createDirectoryAtPath(path);
    if (NSFileManager::fileExistsAtPath(path)) {
        NSFileManager::removeItemAtPath(path);
        error.clear();
    }
    return error;
}

/// True when the target stands for the source. What is in a folder is compared by itself.
bool isCopied(const QString &source, const QString &target)
{
    const FileType type = NSFileManager::fileTypeAtPath(source);
    if (NSFileManager::fileTypeAtPath(target) != type)
        return false;
    if (type != FileType::Regular)
        return type == FileType::Folder || type == FileType::SymbolicLink;
    const auto from = NSFileManager::contentsAtPath(source);
    const auto to = NSFileManager::contentsAtPath(target);
    return !from.error && !to.error && from.bytes == to.bytes;
}

class Copying
{
public:
    explicit Copying(SaveReport report) : _report(std::move(report)) {}

    void copy(const QString &source, const QString &target)
    {
        _copies.push_back({source, target, NSFileManager::copyItemAtPath(source, target), {}});
    }

    void openLastToEverybody()
    {
        Copy &copy = _copies.back();
        copy.openFault = NSFileManager::setPosixPermissions(copy.target, everybodyMayDoEverything);
    }

    /// Looked at when all is done: what fails because its folder was copied whole is no failure.
    SaveReport report()
    {
        for (const Copy &copy : _copies) {
            const bool copied = isCopied(copy.source, copy.target);
            const auto fault = copy.fault ? copy.fault : std::make_error_code(std::errc::io_error);
            const FileType type = NSFileManager::fileTypeAtPath(copy.target);
            if (!copied)
                _report.addFailure(copy.target, fault);
            else if (type != FileType::SymbolicLink) // a link has no permissions of its own
                _report.addFailure(copy.target, copy.openFault);
            if (copied && type == FileType::Regular)
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
} // namespace

ThemeInstallation beginInstalling(const QString &resources, const QString &name,
                                  const ThemeLocations &locations)
{
    ThemeInstallation installation = begin(resources, name, locations);
    const QString folder = locations.packageFolder();
    installation.report.addFailure(folder, NSFileManager::createDirectoryAtPath(folder));
    return installation;
}

ThemeInstallation beginEditing(const QString &resources, const QString &name,
                               const ThemeLocations &locations)
{
    ThemeInstallation installation = begin(resources, name, locations);
    installation.asWorkingCopy = true;
    installation.report.addFailure(locations.packageFolder(), clearFile(locations.packageInfo()));
    installation.report.addFailure(locations.workingCopyFolder(),
                                   clearFile(locations.workingCopy()));
    return installation;
}

SaveReport copyTheme(const ThemeInstallation &installation)
{
    SaveReport report = installation.report;
    if (installation.source.isEmpty())
        return report;
    const auto [entries, error] = NSFileManager::enumeratorAtPath(installation.source);
    report.addFailure(installation.source, error);
    const QString folder = installation.locations.packageFolder();
    if (NSFileManager::fileTypeAtPath(folder) == FileType::SymbolicLink) {
        report.addFailure(folder, std::make_error_code(std::errc::not_a_directory));
        return report;
    }
    Copying copying(report);
    for (const QString &entry : entries) {
        const QString source = installation.source + u'/' + entry;
        if (installation.asWorkingCopy && entry == "Info.plist"_L1)
            copying.copy(source, installation.locations.workingCopy());
        copying.copy(source, folder + u'/' + entry);
        copying.openLastToEverybody();
    }
    return copying.report();
}
