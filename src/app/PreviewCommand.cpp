#include "app/PreviewCommand.h"

#include "app/NearestNames.h"
#include "app/OpenKeeper.h"
#include "app/StandardStreams.h"
#include "catalogue/ThemeList.h"
#include "catalogue/ThemePackage.h"
#include "platform/foundation/NSFileManager.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QMap>

using namespace Qt::StringLiterals;

namespace
{
constexpr int failed = 1;
constexpr int wrongUsage = 2;

/// What is to be drawn; or, told why not, the exit status.
struct Subject {
    std::optional<ElementDataSource> elements;
    int status = failed;
};

Subject checked(ElementDataSource elements)
{
    if (elements.status() == ElementDataSource::Status::Malformed)
        complain(u"malformed data source, nothing to draw: %1"_s.arg(elements.problem()));
    if (elements.status() != ElementDataSource::Status::Loaded)
        return {}; // of an unusable one the log has named the reason
    return {std::move(elements), 0};
}

Subject currentChoices(const CommandLine::Options &options)
{
    const auto keeper = openKeeper(options);
    if (!keeper)
        return {};
    return checked(ElementDataSource::load(options.resources, options.documents));
}

/// Drawn as the editor would show it: what the package leaves out is the document's own.
Subject packaged(const CommandLine::Options &options, const QString &folder)
{
    ThemePackage package = ThemePackage::read(options.resources, folder);
    if (package.elements)
        return checked(std::move(*package.elements));
    complain(u"cannot read %1"_s.arg(package.problem));
    return {};
}

/// The ready-made themes that can be drawn, and where they are: announced ones, too, as soon as
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

/// A name of the catalogue goes before a folder of that name.
Subject theme(const CommandLine::Options &options)
{
    const ThemeList list = ThemeList::load(options.resources);
    const auto folders = foldersOf(list, options.resources);
    if (folders.contains(options.theme))
        return packaged(options, folders[options.theme]);
    using enum NSFileManager::Kind;
    const auto kind = NSFileManager::itemAtPath(options.theme).kind;
    if (kind == Folder || kind == Link)
        return packaged(options, options.theme);
    if (!list.problem().isEmpty()) {
        complain(u"no catalogue: %1"_s.arg(list.problem()));
        return {};
    }
    complain(u"there is no theme '%1', nor a folder; %2"_s.arg(
        options.theme, nearestThemes(options.theme, folders.keys())));
    return {{}, wrongUsage};
}

/// PNG; empty when there is no memory for the picture.
QByteArray drawn(const PreviewPalette &palette, const CommandLine::Options &options)
{
    // No display is asked for, even where there is one: nothing is shown, and no desktop's settings
    // change the picture. A platform theme might ask for a display on its own.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    int argc = 1;
    char name[] = "tintloom";
    char *argv[] = {name, nullptr};
    const QGuiApplication application(argc, argv);
    QByteArray png;
    QBuffer buffer(&png);
    seenBy(options.eyes, previewPicture(palette, options.view, options.scale)).save(&buffer, "PNG");
    return png;
}
} // namespace

int runPreview(const CommandLine::Options &options)
{
    const auto [elements, status] =
        options.theme.isEmpty() ? currentChoices(options) : theme(options);
    if (!elements)
        return status;
    const QByteArray png = drawn(PreviewPalette::fromElements(*elements), options);
    if (png.isEmpty()) {
        complain(u"not enough memory for the picture"_s);
        return failed;
    }
    if (options.out == "-"_L1)
        return print(png);
    if (const auto error = NSFileManager::writeToFile(options.out, png)) {
        complain(
            u"cannot write %1: %2"_s.arg(options.out, QString::fromStdString(error.message())));
        return failed;
    }
    return print(options.out.toUtf8() + '\n');
}
