// The program itself, with faults at its file operations, as the environment asks:
//
//   TINTLOOM_TEST_FAULT=count      say on standard error how many operations there were
//   TINTLOOM_TEST_FAULT=kill:N     die at the N-th, counted from 0, before it does anything
//   TINTLOOM_TEST_FAULT=full:N     let it fail: no space left
//   TINTLOOM_TEST_FAULT=denied:N   let it fail: permission denied
//   TINTLOOM_TEST_FAULT=pause:N    say "paused" on standard error and wait for standard input
//   TINTLOOM_TEST_PATIENCE=MS      how long to wait for another program
//
// As a command of its own it does with a draft what the editor does, without its window:
//
//   draft edit COLOR     chooses a colour for the first element, twice
//   draft save COLOR     chooses it and saves the theme
//   draft bring-back     makes the changes of an abandoned draft again
//   draft discard        takes one off the disk
#include "platform/foundation/NSFileManager.h"
#include "theme/ThemeDraft.h"
#include "theme/ThemePackageWriter.h"
#include "theme/WorkingCopyKeeper.h"

#include <QByteArray>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <unistd.h>

int tintloomMain(int argc, char **argv); // the program's own, renamed when it is compiled

namespace
{
std::atomic<int> operations = 0;

std::error_code faultAtOperation(const QByteArray &kind)
{
    if (kind == "kill")
        ::kill(::getpid(), SIGKILL);
    if (kind == "full")
        return std::make_error_code(std::errc::no_space_on_device);
    if (kind == "denied")
        return std::make_error_code(std::errc::permission_denied);
    if (kind == "pause") {
        std::fputs("paused\n", stderr);
        std::getchar();
    }
    return {};
}

int runDraft(const QString &command, const QString &color)
{
    const ThemeLocations locations{qEnvironmentVariable("TINTLOOM_PACKAGE_ROOT"),
                                   qEnvironmentVariable("TINTLOOM_DOCUMENTS")};
    ThemeDocument document(
        ElementDataSource::load(qEnvironmentVariable("TINTLOOM_RESOURCES"), locations.documents));
    if (document.elements().status() != ElementDataSource::Status::Loaded)
        return 1;
    DraftKeeper keeper(document, locations.documents);
    if (command == "bring-back" || command == "discard") {
        if (const auto draft = AbandonedDraft::find(locations.documents, document.elements()))
            command == "discard" ? keeper.discard(draft) : keeper.bringBack(draft, "Bring Back");
        return 0;
    }
    document.setColor(0, "#123");
    document.setColor(0, color);
    if (command == "edit")
        return 0;
    const SaveReport report = writeTheme(buildTheme(document.elements(), locations, 1.0));
    if (report.refusal.isEmpty() && report.failures.empty())
        document.noteSaved(document.elements());
    return 0;
}
} // namespace

int main(int argc, char **argv)
{
    const QByteArrayList fault = qgetenv("TINTLOOM_TEST_FAULT").split(':');
    const int place = fault.size() > 1 ? fault[1].toInt() : -1;
    NSFileManager::setFaultHook([=](NSFileManager::Operation, const QString &) {
        return operations++ == place ? faultAtOperation(fault[0]) : std::error_code();
    });
    if (qEnvironmentVariableIsSet("TINTLOOM_TEST_PATIENCE"))
        FolderLocks::setPatience(
            std::chrono::milliseconds(qEnvironmentVariableIntValue("TINTLOOM_TEST_PATIENCE")));
    const int status = argc > 2 && QByteArray(argv[1]) == "draft" ? runDraft(argv[2], argv[3])
                                                                  : tintloomMain(argc, argv);
    if (fault[0] == "count")
        std::fprintf(stderr, "operations: %d\n", operations.load());
    NSFileManager::setFaultHook({});
    return status;
}
