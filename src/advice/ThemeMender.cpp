#include "advice/ThemeMender.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr int mostRounds = 4; // a ground that changes may upset what shines through
constexpr int mostTries = 3;  // of one element in a round, whatever stands on it
} // namespace

ThemeMender::ThemeMender(ThemeColors colors, const std::set<int> &locked)
    : _colors(std::move(colors)),
      _locked(locked),
      _relations(_colors.relations()),
      _likenesses(likenesses(_colors)),
      _demands(size_t(_colors.count()))
{
    int demand = 0;
    for (const ThemeRelation &relation : _relations) {
        noteDemand(relation.element, demand, ThemeColors::deepest);
        for (const int ground : relation.grounds)
            noteDemand(ground, demand, 0);
        ++demand;
    }
    for (const ThemeLikeness &likeness : _likenesses) {
        for (const auto &ends : {likeness.one, likeness.other})
            for (const int end : ends)
                noteDemand(end, demand, 0);
        ++demand;
    }
}

void ThemeMender::noteDemand(int index, int demand, int depth)
{
    std::vector<int> &demands = _demands[size_t(index)];
    if (demands.empty() || demands.back() != demand)
        demands.push_back(demand);
    if (depth == ThemeColors::deepest)
        return;
    const auto &on = _colors.elements().tableSource()[size_t(index)].on;
    for (size_t ground = 0; ground < std::min<size_t>(on.size(), ThemeColors::mostBehind); ++ground)
        noteDemand(on[ground].index, demand, depth + 1);
}

bool ThemeMender::isMet(int demand) const
{
    if (isRelation(demand))
        return !findingOf(_relations[size_t(demand)], _colors);
    return findingsOf(_likenesses[size_t(demand) - _relations.size()], _colors).empty();
}

bool ThemeMender::isMetAt(int demand, int index) const
{
    if (!isRelation(demand))
        return isMet(demand);
    const ThemeRelation &relation = _relations[size_t(demand)];
    if (!std::ranges::count(relation.grounds, index))
        return isMet(demand);
    for (const size_t end : {0U, 1U}) {
        const auto reading = _colors.readingAt(relation, end);
        if (reading && reading->ground == index && reading->ratio < relation.threshold)
            return false;
    }
    return true;
}

std::optional<QRgb> ThemeMender::nearestMeeting(std::vector<int> demands, int index)
{
    const auto isAccepted = [&] {
        const auto refusing = std::ranges::find_if(
            demands, [this, index](int demand) { return !isMetAt(demand, index); });
        if (refusing == demands.end())
            return true;
        std::iter_swap(demands.begin(), refusing); // it will refuse the next colour as well
        return false;
    };
    const QRgb color = _colors.color(index).value_or(_colors.seenColor(index).value_or(0));
    return nearerOf(nearestColors(index, _colors, isAccepted), color);
}

bool ThemeMender::recolor(int index, int demand)
{
    if (_locked.contains(index) || _tries[index]++ >= mostTries)
        return false;
    std::set<int> unmet; // beside the one to be met
    for (const int other : _demands[size_t(index)])
        if (other != demand && !isMetAt(other, index))
            unmet.insert(other);
    // Best is all at once; else what helps here and does no harm; at last, what only makes two
    // things look alike that can be read each, which is the lesser evil and may be mended next.
    // Where the least is too much, so is the rest.
    enum class Aim { Readable, Better, All };
    std::optional<QRgb> found;
    size_t askedBefore = 0;
    for (const Aim aim : {Aim::Readable, Aim::Better, Aim::All}) {
        if (aim == Aim::Readable && !isRelation(demand))
            continue;
        std::vector<int> asked;
        std::ranges::copy_if(_demands[size_t(index)], std::back_inserter(asked), [&](int other) {
            return other == demand || ((aim == Aim::All || !unmet.contains(other)) &&
                                       (aim != Aim::Readable || isRelation(other)));
        });
        if (asked.size() == std::exchange(askedBefore, asked.size()))
            continue;
        const auto nearest = nearestMeeting(std::move(asked), index);
        if (!nearest)
            break;
        found = nearest;
    }
    if (!found)
        return false;
    _before.try_emplace(index, _colors.color(index));
    _colors.setColor(index, *found);
    return true;
}

bool ThemeMender::mendElements()
{
    bool changed = false;
    for (size_t demand = 0; demand < _relations.size(); ++demand)
        if (!isMet(int(demand)))
            changed |= recolor(_relations[demand].element, int(demand));
    return changed;
}

bool ThemeMender::mendGroundsOf(int demand)
{
    bool changed = false;
    for (const int ground : _relations[size_t(demand)].grounds)
        if (!isMetAt(demand, ground))
            changed |= recolor(ground, demand);
    return changed;
}

bool ThemeMender::mendBoth(int demand)
{
    const int element = _relations[size_t(demand)].element;
    const std::optional<QRgb> color = _colors.color(element);
    const std::optional<QRgb> seen = color ? color : _colors.seenColor(element);
    if (_locked.contains(element) || !seen || (color && qAlpha(*color) == 255))
        return false;
    // More of a text is nowhere harder to read, and what is chosen does not change with the ground.
    _colors.setColor(element, *seen | 0xFF000000);
    mendGroundsOf(demand);
    if (isMet(demand)) {
        _before.try_emplace(element, color);
        return true;
    }
    _colors.setColor(element, color);
    return false;
}

bool ThemeMender::mendGrounds()
{
    bool changed = false;
    for (int demand = 0; demand < int(_relations.size()); ++demand) {
        changed |= mendGroundsOf(demand);
        if (!isMet(demand))
            changed |= mendBoth(demand);
    }
    return changed;
}

bool ThemeMender::mendLikenesses()
{
    bool changed = false;
    int demand = int(_relations.size());
    for (const auto &[one, other] : _likenesses) {
        for (const int index : {one[0], one[1], other[0], other[1]})
            if (!isMet(demand))
                changed |= recolor(index, demand);
        ++demand;
    }
    return changed;
}

void ThemeMender::dropNeedless()
{
    // A ground that was changed later may have made good what a colour was changed for.
    for (auto change = _before.begin(); change != _before.end();) {
        const auto &[index, before] = *change;
        std::vector<int> met;
        std::ranges::copy_if(_demands[size_t(index)], std::back_inserter(met),
                             [this](int demand) { return isMet(demand); });
        const std::optional<QRgb> after = _colors.color(index);
        _colors.setColor(index, before);
        if (std::ranges::all_of(met, [this](int demand) { return isMet(demand); })) {
            change = _before.erase(change);
        } else {
            _colors.setColor(index, after);
            ++change;
        }
    }
}

void ThemeMender::mend()
{
    for (int round = 0; round < mostRounds; ++round) {
        _tries.clear();
        bool changed = mendElements();
        changed |= mendGrounds();
        changed |= mendLikenesses();
        if (!changed)
            break;
    }
    dropNeedless();
}

std::vector<int> ThemeMender::changed() const
{
    std::vector<int> indexes;
    for (const auto &[index, before] : _before)
        indexes.push_back(index);
    return indexes;
}
