// The program itself, with faults at its file operations, as the environment asks:
//
//   TINTLOOM_TEST_FAULT=count      say on standard error how many operations there were
//   TINTLOOM_TEST_FAULT=kill:N     die at the N-th, counted from 0, before it does anything
//   TINTLOOM_TEST_FAULT=full:N     let it fail: no space left
//   TINTLOOM_TEST_FAULT=denied:N   let it fail: permission denied
//   TINTLOOM_TEST_FAULT=pause:N    say "paused" on standard error and wait for standard input
//   TINTLOOM_TEST_PATIENCE=MS      how long to wait for another program
#include "platform/foundation/NSFileManager.h"
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
} // namespace

int main(int argc, char **argv)
{
    const QByteArrayList fault = qgetenv("TINTLOOM_TEST_FAULT").split(':');
    const int place = fault.size() > 1 ? fault[1].toInt() : -1;
    NSFileManager::setFaultHook([=](NSFileManager::Operation, const QString &) {
        return operations++ == place ? faultAtOperation(fault[0]) : std::error_code();
    });
    if (qEnvironmentVariableIsSet("TINTLOOM_TEST_PATIENCE"))
        WorkingCopyKeeper::setPatience(
            std::chrono::milliseconds(qEnvironmentVariableIntValue("TINTLOOM_TEST_PATIENCE")));
    const int status = tintloomMain(argc, argv);
    if (fault[0] == "count")
        std::fprintf(stderr, "operations: %d\n", operations.load());
    NSFileManager::setFaultHook({});
    return status;
}
