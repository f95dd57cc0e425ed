// Runs the benchmarks with Google Benchmark's own options, then prints the ratios that we hold
// ourselves to: below the console's table, or on standard error when standard output is read by a
// program.
#include "RatioReporter.h"

#include <memory>
#include <vector>

namespace
{
// For each of them a benchmark of that name is registered in one of the sources beside this one.
const std::vector<Ratio> ratios = {
    {"startup", "startup_plain", 1.05, Clock::Passing},
    // Mostly the price of fonts, which a window without a single text does not pay.
    {"startup", "startup_empty", {}, Clock::Passing},
    {"save/scale2", "save_bare/scale2", 1.2, Clock::Passing},
    {"save_picture/scale2", "save_picture_bare/scale2", 1.25, Clock::Processor},
    {"load/100000", "load_parse/100000", 4.0, Clock::Processor},
    {"load_fresh/100000", "load_fresh/10000", 12.0, Clock::Processor},
    {"wheel/620", "wheel_opencv/620", 1.0 / 10.0, Clock::Processor},
    {"wheel/620", "wheel_scalar/620", 1.0 / 40.0, Clock::Processor},
    // Qt scales and paints on threads of its own, whose time only the passing clock sees.
    {"scale/250", "scale_qimage/250", 1.3, Clock::Passing},
    {"scale/2000", "scale_qimage/2000", 1.3, Clock::Passing},
    {"rotate/30", "rotate_qpainter/30", 1.3, Clock::Passing},
    {"drag", "drag_plain", 2.0, Clock::Passing},
    {"drag_with_preview", "drag", 1.5, Clock::Passing},
    {"open_catalogue", "open_catalogue_without", 1.2, Clock::Passing},
    {"open_catalogue_kept/1000", "open_catalogue", 1.5, Clock::Passing},
    {"open_chooser", "open_chooser_plain", 1.3, Clock::Passing},
    {"preview_change", "preview_full", 0.35, Clock::Passing},
    {"edit/100000", "edit/1000", 1.5, Clock::Processor},
    // Ten times the steps; a step must not cost more for those before it.
    {"history/10000", "history/1000", 12.0, Clock::Processor},
    {"findings/100000", "findings/10000", 12.0, Clock::Processor},
    {"list_kept/1000", "list_kept_read/1000", 3.0, Clock::Processor},
    {"send", "send_sftp", 1.3, Clock::Passing},
    {"send_far", "send_far_sftp", 1.0, Clock::Passing},
    {"palette", "palette_decode", 1.3, Clock::Processor},
    {"quantize", "quantize_opencv", 1.0 / 5.0, Clock::Processor},
    // All that is painted is painted anew; the theme itself is a small part of it.
    {"generate_follow", "preview_full", 1.25, Clock::Passing},
    // A theme of one colour, and what the least part of it takes: a look at what is hard to see.
    {"generate", "findings_shipped", {}, Clock::Processor},
};

// Repetitions of both sides of a ratio take turns, so that a busy spell of the machine hits both.
const std::vector<const char *> defaults = {
    "--benchmark_repetitions=9",
    "--benchmark_enable_random_interleaving=true",
    "--benchmark_min_time=0.2",
};
} // namespace

int main(int argc, char **argv)
{
    // A later option beats an earlier one: the user's come last.
    std::vector<char *> arguments{argv[0]};
    for (const char *option : defaults)
        arguments.push_back(const_cast<char *>(option));
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = int(arguments.size());
    arguments.push_back(nullptr);

    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    const std::unique_ptr<benchmark::BenchmarkReporter> shown(
        benchmark::CreateDefaultDisplayReporter());
    const bool forPeople = dynamic_cast<benchmark::ConsoleReporter *>(shown.get()) != nullptr;
    RatioReporter reporter(*shown);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios(ratios, forPeople ? stdout : stderr);
    benchmark::Shutdown();
    return 0;
}
