#include "app/CatalogueCommands.h"

#include "app/ExitStatus.h"
#include "app/NearestNames.h"
#include "app/OpenKeeper.h"
#include "app/StandardStreams.h"
#include "catalogue/SelectedTheme.h"
#include "catalogue/ThemeInstallation.h"
#include "catalogue/ThemeList.h"
#include "library/ThemeLibrary.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{
/// Calls `take(record)` for each row of the table.
template <typename Take>
void forEachRow(const ThemeList &list, Take take)
{
    for (int section = 0; section < list.numberOfSections(); ++section)
        for (int row = 0; row < list.numberOfRowsInSection(section); ++row)
            take(list.record(section, row));
}

/// Whether the record is the installed theme.
using IsInstalled = std::function<bool(const ThemeRecord &)>;

QByteArray jsonThemes(const ThemeList &list, const IsInstalled &isInstalled)
{
    QJsonArray array;
    forEachRow(list, [&](const ThemeRecord &record) {
        array.append(QJsonObject{{"section"_L1, record.section},
                                 {"name"_L1, record.name},
                                 {"details"_L1, record.details},
                                 {"active"_L1, record.active},
                                 {"kept"_L1, record.kept},
                                 {"installed"_L1, isInstalled(record)}});
    });
    return QJsonDocument(array).toJson();
}

QByteArray readableThemes(const ThemeList &list, const IsInstalled &isInstalled)
{
    qsizetype nameWidth = 0;
    forEachRow(list, [&](const ThemeRecord &record) {
        nameWidth = std::max(nameWidth, record.name.size());
    });
    QString text;
    for (int section = 0; section < list.numberOfSections(); ++section) {
        text += (section == 0 ? ""_L1 : "\n"_L1) + list.titleForSection(section) + u'\n';
        for (int row = 0; row < list.numberOfRowsInSection(section); ++row) {
            const ThemeRecord &record = list.record(section, row);
            const auto mark = isInstalled(record) ? "*"_L1 : " "_L1;
            QString line = mark + u' ' + record.name;
            if (const QString subtitle = record.subtitle(); !subtitle.isEmpty())
                line = line.leftJustified(nameWidth + 4) + subtitle;
            text += line + u'\n';
        }
    }
    return text.toUtf8();
}

/// What is to be installed; or, told why there is nothing, the exit status.
struct Choice {
    bool isKept = false;
    int status = 0;
};

/// 0 when there is something.
int refusal(const CommandLine::Options &options, const QStringList &kept)
{
    const ThemeList list = ThemeList::load(options.resources);
    if (!list.problem().isEmpty()) {
        complain(u"no catalogue: %1"_s.arg(list.problem()));
        return ExitStatus::failed;
    }
    const QStringList names = list.installableNames();
    if (!names.contains(options.theme)) {
        const ThemeRecord *record = list.find(options.theme);
        const QString problem = !record ? u"there is no theme '%1'"_s
                                : record->isCustom() || record->isOwnTheme()
                                    ? u"'%1' is made in the editor, not installed"_s
                                    : u"'%1' is coming soon, not there yet"_s;
        complain(problem.arg(options.theme) + "; "_L1 + nearestThemes(options.theme, kept + names));
        return ExitStatus::wrongUsage;
    }
    const auto folder = themeResourceFolder(options.resources, options.theme);
    const auto error = folder ? NSFileManager::enumeratorAtPath(*folder).error
                              : std::make_error_code(std::errc::no_such_file_or_directory);
    if (error) {
        complain(u"the folder of '%1' cannot be read: %2"_s.arg(
            options.theme, NSFileManager::withReason(folder.value_or(options.theme), error)));
        return ExitStatus::failed;
    }
    return 0;
}

Choice choiceOf(const CommandLine::Options &options)
{
    const auto library = ThemeLibrary::open(options.documents);
    if (!library->refusal().isEmpty()) {
        complain(library->refusal());
        return {false, ExitStatus::failed};
    }
    if (library->find(options.theme))
        return {true};
    return {false, refusal(options, library->names())};
}

/// Copies, remembers what is installed now, and tells.
int finish(const CommandLine::Options &options, const ThemeInstallation &installation)
{
    const ThemeLocations locations = locationsOf(options);
    SaveReport report = copyTheme(installation);
    if (!report.refusal.isEmpty()) {
        complain(report.refusal + "; nothing installed"_L1);
        return ExitStatus::failed;
    }
    const QString name = installation.kept ? installation.kept->name : options.theme;
    SelectedTheme selected(locations.preferences());
    report.addFailure(locations.preferences(),
                      installation.asWorkingCopy
                          ? selected.set(ThemeRecord::ownTheme())
                          : selected.set(name, installation.kept.has_value()));
    for (const auto &failure : report.failures)
        complain(u"cannot write %1: %2"_s.arg(failure.path, failure.reason));
    if (!report.failures.empty())
        return ExitStatus::failed;
    QString text = u"%1 has been installed in %2\n"_s.arg(name, locations.packageFolder());
    if (installation.asWorkingCopy)
        text +=
            u"%1 has been saved as your custom theme in %2\n"_s.arg(name, locations.workingCopy());
    return print(text.toUtf8());
}
} // namespace

int runThemes(const CommandLine::Options &options)
{
    if (!openKeeper(options))
        return ExitStatus::failed;
    const auto library = ThemeLibrary::open(options.documents);
    if (!library->refusal().isEmpty()) {
        complain(library->refusal());
        return ExitStatus::failed;
    }
    const ThemeList list = ThemeList::load(options.resources, library->themes());
    if (!list.problem().isEmpty()) {
        complain(u"no catalogue: %1"_s.arg(list.problem()));
        return ExitStatus::failed;
    }
    const SelectedTheme selected(locationsOf(options).preferences());
    const auto isInstalled = [&selected](const ThemeRecord &record) {
        return selected.name() == record.name && selected.isKept() == record.kept;
    };
    return print(options.json ? jsonThemes(list, isInstalled) : readableThemes(list, isInstalled));
}

int runInstall(const CommandLine::Options &options)
{
    const auto [isKept, status] = choiceOf(options);
    if (status)
        return status;
    const ThemeLocations locations = locationsOf(options);
    const SelectedTheme selected(locations.preferences());
    if (!isKept && selected.name() == options.theme && !selected.isKept())
        return print(u"%1 is already your chosen theme.\n"_s.arg(options.theme).toUtf8());
    NSLog(u"SAVING THEME... %@"_s, {options.theme});
    return finish(options, isKept ? beginInstallingKept(options.theme, locations)
                                  : beginInstalling(options.resources, options.theme, locations));
}

int runEdit(const CommandLine::Options &options)
{
    const auto [isKept, status] = choiceOf(options);
    if (status)
        return status;
    const ThemeLocations locations = locationsOf(options);
    NSLog(u"SAVING PREDEFINED THEME... %@"_s, {options.theme});
    return finish(options, isKept ? beginEditingKept(options.theme, locations)
                                  : beginEditing(options.resources, options.theme, locations));
}
