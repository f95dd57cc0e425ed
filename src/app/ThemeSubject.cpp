#include "app/ThemeSubject.h"

#include "app/ExitStatus.h"
#include "app/NearestNames.h"
#include "app/OpenKeeper.h"
#include "app/StandardStreams.h"
#include "catalogue/ThemeList.h"
#include "catalogue/ThemePackage.h"
#include "library/ThemeLibrary.h"
#include "platform/foundation/NSFileManager.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace
{
ThemeSubject checked(ElementDataSource elements)
{
    if (elements.status() == ElementDataSource::Status::Malformed)
        complain(u"malformed data source, nothing to show: %1"_s.arg(elements.problem()));
    if (elements.status() != ElementDataSource::Status::Loaded)
        return {}; // of an unusable one the log has named the reason
    return {std::move(elements), 0};
}

/// Taken as the editor would show it: what the package leaves out is the document's own.
ThemeSubject packaged(const CommandLine::Options &options, const QString &folder)
{
    ThemePackage package = ThemePackage::read(options.resources, folder);
    if (package.elements)
        return checked(std::move(*package.elements));
    complain(u"cannot read %1"_s.arg(package.problem));
    return {};
}

/// The ready-made themes that are there, and where they are: announced ones, too, as soon as
/// they have a folder, and available ones even without it, to say what is missing.
QMap<QString, QString> foldersOf(const ThemeList &list, const QString &resources)
{
    QMap<QString, QString> folders;
    for (int section = 0; section < list.numberOfSections(); ++section) {
        for (int row = 0; row < list.numberOfRowsInSection(section); ++row) {
            const ThemeRecord &record = list.record(section, row);
            const auto folder = themeResourceFolder(resources, record.name);
            if (folder && record.isReadyMade() &&
                (record.active || NSFileManager::fileExistsAtPath(*folder)))
                folders.insert(record.name, *folder);
        }
    }
    return folders;
}
} // namespace

/// A kept theme goes before one of the catalogue, and that before a folder of that name.
ThemeFolder themeFolder(const CommandLine::Options &options)
{
    const auto library = ThemeLibrary::open(options.documents);
    if (!library->refusal().isEmpty()) {
        complain(library->refusal());
        return {};
    }
    if (const auto kept = library->find(options.theme))
        return {kept->folder, kept->name, 0};
    const ThemeList list = ThemeList::load(options.resources);
    const auto folders = foldersOf(list, options.resources);
    if (folders.contains(options.theme))
        return {folders[options.theme], options.theme, 0};
    using enum NSFileManager::Kind;
    const auto kind = NSFileManager::itemAtPath(options.theme).kind;
    if (kind == Folder || kind == Link)
        return {options.theme, {}, 0};
    if (!list.problem().isEmpty()) {
        complain(u"no catalogue: %1"_s.arg(list.problem()));
        return {};
    }
    complain(u"there is no theme '%1', nor a folder; %2"_s.arg(
        options.theme, nearestThemes(options.theme, folders.keys() + library->names())));
    return {{}, {}, ExitStatus::wrongUsage};
}

ThemeSubject currentChoices(const CommandLine::Options &options)
{
    return checked(ElementDataSource::load(options.resources, options.documents));
}

ThemeSubject themeSubject(const CommandLine::Options &options)
{
    if (options.theme.isEmpty()) {
        const auto keeper = openKeeper(options);
        return keeper ? currentChoices(options) : ThemeSubject();
    }
    const ThemeFolder theme = themeFolder(options);
    return theme.folder.isEmpty() ? ThemeSubject{{}, theme.status}
                                  : packaged(options, theme.folder);
}
