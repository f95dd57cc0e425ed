#include "library/KeptPackage.h"

#include "library/ThemeName.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;
using Kind = NSFileManager::Kind;

namespace
{
QString infoIn(const QString &folder)
{
    return folder + "/Info.plist"_L1;
}

bool leadsElsewhere(const QString &path)
{
    const QStringList parts = path.split(u'/');
    return path.contains(QChar(u'\0')) || std::ranges::any_of(parts, [](const QString &part) {
               return part.isEmpty() || part == "."_L1 || part == ".."_L1;
           });
}

std::error_code writeBelow(const QString &folder, const QString &path, const QByteArray &bytes)
{
    const QString file = folder + u'/' + path;
    if (const auto error = NSFileManager::createDirectoryAtPath(file.section(u'/', 0, -2)))
        return error;
    return NSFileManager::writeToFile(file, bytes);
}
} // namespace

KeptPackage::Reading KeptPackage::read(const QString &folder)
{
    PackageContents contents;
    const auto [entries, error] = NSFileManager::enumeratorAtPath(folder);
    if (error)
        return {{}, NSFileManager::withReason(folder, error)};
    for (const QString &entry : entries) {
        const QString path = folder + u'/' + entry;
        const auto [kind, fault] = NSFileManager::itemAtPath(path);
        if (fault)
            return {{}, NSFileManager::withReason(path, fault)};
        if (kind == Kind::Folder)
            continue;
        if (kind != Kind::File) {
            NSLog("Left out of a kept theme, being no file: %@", {path});
            continue;
        }
        const auto file = NSFileManager::contentsAtPath(path);
        if (file.error)
            return {{}, NSFileManager::withReason(path, file.error)};
        contents.files[entry] = file.bytes;
    }
    const auto info = PropertyList::readDictionary(contents.files[u"Info.plist"_s]);
    if (!info)
        return {{}, infoIn(folder) + ": no property list"_L1};
    contents.info = *info;
    contents.files.erase(u"Info.plist"_s);
    return {std::move(contents), {}};
}

std::optional<PropertyDictionary> KeptPackage::readInfo(const QString &folder)
{
    const auto [bytes, error] = NSFileManager::contentsAtPath(infoIn(folder));
    if (error)
        NSLog("Skipped: %@", {NSFileManager::withReason(infoIn(folder), error)});
    auto info = error ? std::nullopt : PropertyList::readDictionary(bytes);
    if (!error && !info)
        NSLog("Skipped: %@: no property list", {infoIn(folder)});
    return info;
}

QString KeptPackage::nameOf(const PropertyDictionary &info, const QString &folderName)
{
    const QVariant *value = info.find(u"name"_s);
    const auto typed = ThemeName::fromTyped(value ? value->toString() : QString());
    return typed.problem.isEmpty() ? typed.name : folderName;
}

QString KeptPackage::problemOf(const PackageContents &contents)
{
    for (const auto &[path, bytes] : contents.files) {
        if (leadsElsewhere(path))
            return u"\"%1\" is no path below a theme's folder"_s.arg(path);
        if (path == "Info.plist"_L1 || path.startsWith("Info.plist/"_L1))
            return u"\"%1\" stands in the place of the theme's property list"_s.arg(path);
    }
    return {};
}

QString KeptPackage::write(const PackageContents &contents, const QString &folder)
{
    for (const auto &[path, bytes] : contents.files)
        if (const auto error = writeBelow(folder, path, bytes))
            return NSFileManager::withReason(path, error);
    const QByteArray info = PropertyList::writeDictionary(contents.info);
    if (const auto error = writeBelow(folder, u"Info.plist"_s, info))
        return NSFileManager::withReason(u"Info.plist"_s, error);
    return {};
}
