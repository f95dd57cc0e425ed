#include "app/CatalogueCommands.h"
#include "app/CheckCommand.h"
#include "app/CommandLine.h"
#include "app/GenerateCommand.h"
#include "app/HeadlessCommands.h"
#include "app/LibraryCommands.h"
#include "app/PaletteCommand.h"
#include "app/PreviewCommand.h"
#include "app/SendCommand.h"
#include "app/SharingCommands.h"
#include "app/window/AppDelegate.h"
#include "platform/UIApplication.h"
#include "platform/foundation/UIScreen.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <clocale>
#include <cstdio>

namespace
{
int runWindow(const CommandLine::Options &options, int &argc, char **argv)
{
    // By this a desktop finds the icon that belongs to the window.
    QGuiApplication::setDesktopFileName(QStringLiteral(TINTLOOM_ID));
    if (options.screen)
        UIScreen::mainScreen().setSize(*options.screen);
    UIScreen::mainScreen().setScale(options.scale);
    const EditorFolders folders{options.resources, {options.packageRoot, options.documents}};
    const auto makeDelegate = [&] {
        AppDelegate::Start start;
        if (options.catalogue)
            start.root = AppDelegate::Root::Catalogue;
        start.open = options.open;
        if (!options.preview)
            start.showsPreview = false;
        else if (!options.screen)
            start.windowSize = AppDelegate::wideWindow();
        return std::make_unique<AppDelegate>(folders, start);
    };
    return UIApplicationMain(
        argc, argv, makeDelegate,
        "tintloom: no display to open a window on; \"tintloom save\" works without one");
}
} // namespace

int main(int argc, char **argv)
{
    std::setlocale(LC_CTYPE, ""); // arguments and paths are in the user's encoding
    QCoreApplication::setApplicationName("Tintloom");
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);

    const CommandLine::Outcome outcome = CommandLine::parse(arguments);
    if (!outcome.options) {
        std::fputs(outcome.text.toLocal8Bit().constData(), outcome.exitCode ? stderr : stdout);
        return outcome.exitCode;
    }
    switch (outcome.options->command) {
    case CommandLine::Command::List:
        return runList(*outcome.options);
    case CommandLine::Command::Set:
        return runSet(*outcome.options);
    case CommandLine::Command::Save:
        return runSave(*outcome.options);
    case CommandLine::Command::Restore:
        return runRestore(*outcome.options);
    case CommandLine::Command::Themes:
        return runThemes(*outcome.options);
    case CommandLine::Command::Install:
        return runInstall(*outcome.options);
    case CommandLine::Command::Edit:
        return runEdit(*outcome.options);
    case CommandLine::Command::Keep:
        return runKeep(*outcome.options);
    case CommandLine::Command::Rename:
        return runRename(*outcome.options);
    case CommandLine::Command::Duplicate:
        return runDuplicate(*outcome.options);
    case CommandLine::Command::Remove:
        return runRemove(*outcome.options);
    case CommandLine::Command::Import:
        return runImport(*outcome.options);
    case CommandLine::Command::Export:
        return runExport(*outcome.options);
    case CommandLine::Command::Share:
        return runShare(*outcome.options);
    case CommandLine::Command::Preview:
        return runPreview(*outcome.options);
    case CommandLine::Command::Check:
        return runCheck(*outcome.options);
    case CommandLine::Command::Send:
        return runSend(*outcome.options);
    case CommandLine::Command::Palette:
        return runPalette(*outcome.options);
    case CommandLine::Command::Generate:
        return runGenerate(*outcome.options);
    case CommandLine::Command::Window:
        break;
    }
    return runWindow(*outcome.options, argc, argv);
}
