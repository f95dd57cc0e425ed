#include "advice/LuminancePlan.h"

#include <algorithm>

namespace
{
constexpr int passes = 2;        // a ground that moves may upset what stands on it beside
constexpr double margin = 1.005; // for the rounding to bytes

/// The luminance at which something lighter, or darker, has just that contrast.
double above(double luminance, double ratio)
{
    return (luminance + 0.05) * ratio - 0.05;
}

double below(double luminance, double ratio)
{
    return (luminance + 0.05) / ratio - 0.05;
}

bool meets(double one, double other, double ratio)
{
    return (std::max(one, other) + 0.05) >= (std::min(one, other) + 0.05) * ratio;
}
} // namespace

void LuminancePlan::set(int index, double luminance, bool isFixed)
{
    _luminances[size_t(index)] = luminance;
    _fixed[size_t(index)] = isFixed;
}

bool LuminancePlan::rulesOutOnIt(double ground, double threshold, bool isDarkText)
{
    return isDarkText ? below(ground, threshold) < 0.0 : above(ground, threshold) > 1.0;
}

bool LuminancePlan::rulesOutUnderIt(double text, double threshold, bool isDarkText)
{
    return isDarkText ? above(text, threshold) > 1.0 : below(text, threshold) < 0.0;
}

void LuminancePlan::settleElement(std::span<const ThemeRelation> relations)
{
    double &text = _luminances[size_t(relations.front().element)];
    double sum = 0.0;
    int count = 0;
    bool isMet = true;
    const auto forEachGround = [&](const auto &take) {
        for (const ThemeRelation &relation : relations)
            for (const int ground : relation.grounds)
                if (_luminances[size_t(ground)] >= 0.0)
                    take(ground, relation.threshold * margin);
    };
    forEachGround([&](int ground, double) {
        sum += luminance(ground);
        ++count;
    });
    forEachGround(
        [&](int ground, double ratio) { isMet &= meets(text, luminance(ground), ratio / margin); });
    if (isMet || text < 0.0)
        return;
    const bool isDark = text < sum / count;
    if (!_fixed[size_t(relations.front().element)])
        forEachGround([&](int ground, double ratio) {
            text = isDark ? std::clamp(below(luminance(ground), ratio), 0.0, text)
                          : std::clamp(above(luminance(ground), ratio), text, 1.0);
        });
    forEachGround([&](int ground, double ratio) {
        double &light = _luminances[size_t(ground)];
        if (!isFixed(ground))
            light = isDark ? std::clamp(above(text, ratio), light, 1.0)
                           : std::clamp(below(text, ratio), 0.0, light);
    });
}

void LuminancePlan::settle(std::span<const ThemeRelation> relations)
{
    for (int pass = 0; pass < passes; ++pass)
        for (size_t first = 0, next = 0; first < relations.size(); first = next) {
            while (next < relations.size() && relations[next].element == relations[first].element)
                ++next;
            settleElement(relations.subspan(first, next - first));
        }
}
