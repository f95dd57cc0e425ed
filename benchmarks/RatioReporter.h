// Shows what another reporter shows, and keeps the times: what we hold ourselves to are ratios of
// two benchmarks of one run, because times alone say more about the machine than about the program.
#pragma once

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// What counts: the time that passes, where a benchmark waits for the disk or for another process,
/// or the processor's time, where it only computes; a busy machine disturbs that less.
enum class Clock { Passing, Processor };

struct Ratio {
    const char *numerator; // names of benchmarks
    const char *denominator;
    std::optional<double> limit; // of the median times' ratio; none: a figure to look at
    Clock clock;
};

class RatioReporter : public benchmark::BenchmarkReporter
{
public:
    /// `shown` must outlive this.
    explicit RatioReporter(benchmark::BenchmarkReporter &shown) : _shown(shown) {}

    bool ReportContext(const Context &context) override { return _shown.ReportContext(context); }
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override { _shown.Finalize(); }

    /// Prints those ratios of which both benchmarks ran.
    void printRatios(const std::vector<Ratio> &ratios, std::FILE *stream) const;

private:
    struct Times {
        double passing, processor; // seconds

        double on(Clock clock) const { return clock == Clock::Passing ? passing : processor; }
    };

    /// Seconds; 0 when the benchmark did not run.
    double medianTime(const std::string &name, Clock clock) const;

    benchmark::BenchmarkReporter &_shown;
    std::map<std::string, std::vector<Times>> _repetitions;
    std::map<std::string, Times> _medians; // as the library computes them
};
