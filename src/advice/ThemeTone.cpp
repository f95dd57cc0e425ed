#include "advice/ThemeTone.h"

#include "color/Contrast.h"

#include <algorithm>
#include <numeric>

namespace
{
// Of a lightness and the turned one: a white ground becomes no black one, on which colours glare,
// while black text becomes white.
constexpr double lightnessSum = 1.15;

int rootOf(int index, std::vector<int> &groups)
{
    while (groups[size_t(index)] != index)
        index = groups[size_t(index)] = groups[size_t(groups[size_t(index)])];
    return index;
}
} // namespace

QRgb turned(QRgb color)
{
    OKLCh place = oklchFromOklab(oklabFromRgb(color));
    place.lightness = std::clamp(lightnessSum - place.lightness, 0.0, 1.0);
    return (rgbFromOklch(place) & RGB_MASK) | (color & ~RGB_MASK);
}

ThemeTone::ThemeTone(const ThemeColors &colors, std::span<const ThemeRelation> relations)
    : _groups(size_t(colors.count())), _balances(size_t(colors.count()))
{
    std::iota(_groups.begin(), _groups.end(), 0);
    const auto join = [this](int one, int other) {
        _groups[size_t(rootOf(one, _groups))] = rootOf(other, _groups);
    };
    std::vector<bool> isRelated(_groups.size());
    for (const ThemeRelation &relation : relations) {
        isRelated[size_t(relation.element)] = true;
        for (const int ground : relation.grounds) {
            isRelated[size_t(ground)] = true;
            join(relation.element, ground);
        }
    }
    for (int index = 0; index < colors.count(); ++index) {
        const auto &on = colors.elements().tableSource()[size_t(index)].on;
        if (!isRelated[size_t(index)] && !on.empty())
            join(index, on.front().index);
    }
    for (int index = 0; index < colors.count(); ++index)
        _groups[size_t(index)] = rootOf(index, _groups);
    for (const auto &[element, grounds, threshold] : relations) {
        const auto above = colors.seenColor(element), ground = colors.seenColor(grounds[0]);
        if (!above || !ground)
            continue;
        const int step = relativeLuminance(*ground) > relativeLuminance(*above) ? 1 : -1;
        _balances[size_t(groupOf(element))] += step;
        _balance += step;
    }
}

bool ThemeTone::turn(ThemeColors &colors, Tone wanted, const std::set<int> &locked,
                     Locked what) const
{
    if (wanted == Tone::AsItIs || tone() == Tone::AsItIs || tone() == wanted)
        return false;
    std::set<int> staying;
    if (what == Locked::GroupsStay)
        for (const int index : locked)
            staying.insert(groupOf(index));
    for (int index = 0; index < colors.count(); ++index) {
        const auto color = colors.color(index);
        const Tone around = toneAround(index);
        if (color && !locked.contains(index) && !staying.contains(groupOf(index)) &&
            around != Tone::AsItIs && around != wanted)
            colors.setColor(index, turned(*color));
    }
    return true;
}
