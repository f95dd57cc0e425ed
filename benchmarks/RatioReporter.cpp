#include "RatioReporter.h"

#include <algorithm>

void RatioReporter::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        if (run.error_occurred)
            continue;
        const std::string name =
            run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args);
        const double unit = benchmark::GetTimeUnitMultiplier(run.time_unit);
        const Times times{run.GetAdjustedRealTime() / unit, run.GetAdjustedCPUTime() / unit};
        if (run.run_type == Run::RT_Iteration)
            _repetitions[name].push_back(times);
        else if (run.aggregate_name == "median")
            _medians[name] = times; // all that there is when only aggregates are reported
    }
    _shown.ReportRuns(runs);
}

double RatioReporter::medianTime(const std::string &name, Clock clock) const
{
    if (const auto median = _medians.find(name); median != _medians.end())
        return median->second.on(clock);
    const auto repetitions = _repetitions.find(name);
    if (repetitions == _repetitions.end())
        return 0.0;
    std::vector<double> times;
    for (const Times &repetition : repetitions->second)
        times.push_back(repetition.on(clock));
    const auto middle = times.begin() + std::ptrdiff_t(times.size() / 2);
    std::ranges::nth_element(times, middle);
    return *middle;
}

void RatioReporter::printRatios(const std::vector<Ratio> &ratios, std::FILE *stream) const
{
    bool headed = false;
    for (const auto &[numerator, denominator, limit, clock] : ratios) {
        const double above = medianTime(numerator, clock);
        const double below = medianTime(denominator, clock);
        if (above <= 0.0 || below <= 0.0)
            continue;
        if (!headed)
            std::fprintf(stream, "\n%-22s %-22s %8s %8s\n", "numerator", "denominator", "ratio",
                         "limit");
        headed = true;
        const double ratio = above / below;
        std::fprintf(stream, "%-22s %-22s %8.3f", numerator, denominator, ratio);
        if (limit)
            std::fprintf(stream, " %8.3f%s", *limit, ratio > *limit ? "  over the limit" : "");
        std::fputc('\n', stream);
    }
}
