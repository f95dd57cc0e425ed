// From the start of the process to the first frame on the screen, on the software renderer, beside
// a program that shows the same frame and does nothing else, and beside an empty window. All end at
// their first frame. The window has room for the preview, which is made after that.
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
/// Seconds that a program takes; less than 0 when it could not be run or failed.
double secondsToRun(const char *program)
{
    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::string name = program;
    char *arguments[] = {name.data(), nullptr};

    const auto start = std::chrono::steady_clock::now();
    pid_t process = 0;
    int status = 1;
    if (posix_spawn(&process, program, &quiet, nullptr, arguments, environ) == 0)
        waitpid(process, &status, 0);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    posix_spawn_file_actions_destroy(&quiet);
    return status == 0 ? taken.count() : -1.0;
}

void start(benchmark::State &state, const char *program)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QT_QUICK_BACKEND", "software", 1);
    for ([[maybe_unused]] auto iteration : state) {
        const double seconds = secondsToRun(program);
        if (seconds < 0.0) {
            state.SkipWithError("the program did not run to its first frame");
            return;
        }
        state.SetIterationTime(seconds);
    }
}

BENCHMARK_CAPTURE(start, tintloom, STARTUP_TINTLOOM)->Name("startup")->UseManualTime();
BENCHMARK_CAPTURE(start, plain, STARTUP_PLAIN)->Name("startup_plain")->UseManualTime();
BENCHMARK_CAPTURE(start, empty, STARTUP_EMPTY)->Name("startup_empty")->UseManualTime();
} // namespace
