// Shows what another reporter shows, and keeps the times: what we hold ourselves to are ratios of
// two benchmarks of one run, because times alone say more about the machine than about the program.
#pragma once

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

struct Ratio {
    const char *numerator; // names of benchmarks
    const char *denominator;
    double limit; // of the median times' ratio
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
    /// Seconds; 0 when the benchmark did not run.
    double medianTime(const std::string &name) const;

    benchmark::BenchmarkReporter &_shown;
    std::map<std::string, std::vector<double>> _times; // of each repetition
    std::map<std::string, double> _medians;            // as computed by the library
};
