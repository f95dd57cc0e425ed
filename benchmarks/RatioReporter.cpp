#include "RatioReporter.h"

#include <algorithm>

void RatioReporter::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        if (run.error_occurred)
            continue;
        const std::string name =
            run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args);
        const double seconds =
            run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
        if (run.run_type == Run::RT_Iteration)
            _times[name].push_back(seconds);
        else if (run.aggregate_name == "median")
            _medians[name] = seconds; // all that there is when only aggregates are reported
    }
    _shown.ReportRuns(runs);
}

double RatioReporter::medianTime(const std::string &name) const
{
    if (const auto median = _medians.find(name); median != _medians.end())
        return median->second;
    const auto repetitions = _times.find(name);
    if (repetitions == _times.end())
        return 0.0;
    std::vector<double> times = repetitions->second;
    const auto middle = times.begin() + std::ptrdiff_t(times.size() / 2);
    std::ranges::nth_element(times, middle);
    return *middle;
}

void RatioReporter::printRatios(const std::vector<Ratio> &ratios, std::FILE *stream) const
{
    bool headed = false;
    for (const auto &[numerator, denominator, limit] : ratios) {
        const double above = medianTime(numerator);
        const double below = medianTime(denominator);
        if (above <= 0.0 || below <= 0.0)
            continue;
        if (!headed)
            std::fprintf(stream, "\n%-22s %-22s %8s %8s\n", "numerator", "denominator", "ratio",
                         "limit");
        headed = true;
        std::fprintf(stream, "%-22s %-22s %8.2f %8.2f%s\n", numerator, denominator, above / below,
                     limit, above / below > limit ? "  over the limit" : "");
    }
}
