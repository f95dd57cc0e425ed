#include "library/ThemeExport.h"

#include "library/Archives.h"
#include "library/OpenedTheme.h"
#include "library/PackageLimits.h"
#include "platform/foundation/NSFileManager.h"

#include <QCoreApplication>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;
using Kind = NSFileManager::Kind;

namespace
{
ThemeExport::Result failed(const QString &problem)
{
    return {problem, false};
}

ThemeExport::Result failed(const QString &path, const std::error_code &error)
{
    return error ? failed(u"cannot write "_s + NSFileManager::withReason(path, error))
                 : ThemeExport::Result();
}

ThemeExport::Result writeArchive(const PackageContents &contents, const QString &path,
                                 ArchiveModule::Form form)
{
    const auto [module, missing] = Archives::module();
    if (!module)
        return failed(missing);
    const QString top = u"Tintloom/"_s; // what the phone calls the folder
    std::vector<ArchiveEntry> entries{
        {top + packageInfoName(), PropertyList::writeDictionary(contents.info)}};
    for (const auto &[file, bytes] : contents.files)
        entries.push_back({top + file, bytes});
    const QByteArray bytes = module->write(entries, form);
    if (bytes.isEmpty())
        return failed(u"not enough memory for the archive"_s);
    if (bytes.size() > PackageLimits::archive.archive)
        return failed(
            u"the archive would be larger than %1 MB"_s.arg(PackageLimits::archive.archive >> 20));
    return failed(path, NSFileManager::writeToFile(path, bytes));
}

/// Beside the folder, under a name that tells whose it is, should we be killed.
QString temporaryFolder(const QString &path)
{
    return path + u'.' + QCoreApplication::applicationName().toLower() +
           QString::asprintf("-%016llx", QRandomGenerator::global()->generate64());
}

std::error_code fill(const QString &folder, const PackageContents &contents)
{
    if (const auto error = NSFileManager::createDirectoryAtPath(folder))
        return error;
    for (const auto &[file, bytes] : contents.files) {
        const QString path = folder + u'/' + file;
        if (const auto error = NSFileManager::createDirectoryAtPath(path.section(u'/', 0, -2)))
            return error;
        if (const auto error = NSFileManager::writeToFile(path, bytes))
            return error;
    }
    return NSFileManager::writeToFile(folder + u'/' + packageInfoName(),
                                      PropertyList::writeDictionary(contents.info));
}

ThemeExport::Result writeFolder(const PackageContents &contents, const QString &path, bool replaces)
{
    const QString temporary = temporaryFolder(path);
    std::error_code error = fill(temporary, contents);
    if (!error)
        error = replaces ? NSFileManager::exchangeItemsAtPaths(temporary, path)
                         : NSFileManager::moveItemAtPath(temporary, path);
    // The new one, the old one after the exchange, or nothing any more.
    if (error || replaces)
        NSFileManager::removeItemAtPath(temporary);
    return failed(path, error);
}

/// Why what stands at the path is not replaced; else empty.
QString problemOfOld(const QString &path, Kind kind, ThemeExport::Form form)
{
    if (form != ThemeExport::Form::Folder)
        return kind == Kind::File || kind == Kind::Link
                   ? QString()
                   : u"%1 is no file, and is not replaced by one"_s.arg(path);
    const bool isPackage =
        kind == Kind::Folder && NSFileManager::fileExistsAtPath(path + u'/' + packageInfoName());
    return isPackage ? QString()
                     : u"%1 is no theme's folder, and is not replaced by one"_s.arg(path);
}
} // namespace

ThemeExport::Form ThemeExport::formOf(const QString &path)
{
    const auto ends = [&](const QString &ending) {
        return path.endsWith(ending, Qt::CaseInsensitive);
    };
    if (ends(u".tintloom"_s) || ends(u".zip"_s))
        return Form::Zip;
    return ends(u".tar.gz"_s) || ends(u".tgz"_s) ? Form::TarGzip : Form::Folder;
}

ThemeExport::Result ThemeExport::write(const PackageContents &contents, const QString &path,
                                       IfThere ifThere)
{
    if (const QString problem = PackageLimits::problemOfPackage(contents); !problem.isEmpty())
        return failed(problem);
    const Form form = formOf(path);
    const auto old = NSFileManager::itemAtPath(path);
    if (old.error)
        return failed(path, old.error);
    const bool isThere = old.kind != Kind::Nothing;
    if (isThere && ifThere == IfThere::Refuse)
        return {u"there is %1 already"_s.arg(path), true};
    if (isThere)
        if (const QString problem = problemOfOld(path, old.kind, form); !problem.isEmpty())
            return failed(problem);
    if (form == Form::Folder)
        return writeFolder(contents, path, isThere);
    return writeArchive(contents, path,
                        form == Form::Zip ? ArchiveModule::Form::Zip
                                          : ArchiveModule::Form::TarGzip);
}
