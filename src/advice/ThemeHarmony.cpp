#include "advice/ThemeHarmony.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double degree = std::numbers::pi / 180.0;

// Of the lead's chroma, at least: what is to be told by its colour, and all else.
constexpr double leastOfColored = 0.6;
constexpr double leastOfQuiet = 0.12;
constexpr double mostGrowth = 3.0; // of chroma, over a base that hardly has any
constexpr double quietAccentChroma = 0.04;
constexpr double quietAccentHue = 250.0 * degree;

double degreesOf(Harmony harmony)
{
    switch (harmony) {
    case Harmony::Analogous:
        return 30.0;
    case Harmony::Split:
        return 150.0;
    case Harmony::Triadic:
        return 120.0;
    case Harmony::Complementary:
        return 180.0;
    case Harmony::Single:
        break;
    }
    return 0.0;
}

double between(double one, double other)
{
    return std::remainder(one - other, 2.0 * std::numbers::pi);
}
} // namespace

ThemeHarmony::ThemeHarmony(const ThemeColors &base) : _members(size_t(base.count()))
{
    for (int index = 0; index < base.count(); ++index)
        if (const auto color = base.color(index)) {
            Member &member = _members[size_t(index)];
            member.place = member.mean = oklchFromOklab(oklabFromRgb(*color));
        }
    using enum ThemeColors::Known;
    const auto set = [&](ThemeColors::Known known, Role role, bool isQuiet) {
        if (const auto index = base.known(known)) {
            _members[size_t(*index)].role = role;
            _members[size_t(*index)].isQuiet = isQuiet;
        }
    };
    for (const auto known : {GreenBalloon1, GreenBalloon2})
        set(known, Role::Lead, false);
    for (const auto known : {BlueBalloon1, BlueBalloon2})
        set(known, Role::Second, false);
    for (const auto known : {GrayBalloon1, GrayBalloon2, ListBackground, ListName})
        set(known, Role::Lead, true);
    for (const auto known : {UnreadIndicator, UnreadName})
        set(known, Role::Third, false);
    for (const auto first : {GreenBalloon1, BlueBalloon1, GrayBalloon1})
        if (const auto one = base.known(first), other = base.known(ThemeColors::Known(first + 1));
            one && other)
            pair(*one, *other);
}

void ThemeHarmony::pair(int one, int other)
{
    Member &upper = _members[size_t(one)], &lower = _members[size_t(other)];
    upper.partner = other;
    lower.partner = one;
    const OKLab first = oklabFromOklch(upper.place), second = oklabFromOklch(lower.place);
    upper.mean = lower.mean = {(first.lightness + second.lightness) / 2.0,
                               std::max(upper.place.chroma, lower.place.chroma),
                               std::atan2(first.b + second.b, first.a + second.a)};
}

double ThemeHarmony::offsetOf(const Member &member, const Member &leader, Harmony harmony) const
{
    const double offset = degreesOf(harmony) * degree;
    if (&member == &leader || (member.partner >= 0 && &_members[size_t(member.partner)] == &leader))
        return 0.0;
    if (member.role == Role::Second || member.role == Role::Third)
        return member.role == Role::Second ? offset : -offset;
    if (member.role == Role::Lead || member.place.chroma < leastChroma ||
        leader.mean.chroma < leastChroma)
        return 0.0;
    const double apart = between(member.mean.hue, leader.mean.hue);
    return std::min({0.0, offset, -offset}, [apart](double one, double other) {
        return std::abs(between(apart, one)) < std::abs(between(apart, other));
    });
}

OKLCh ThemeHarmony::placeOf(int index, const OKLCh &lead, int leader, Harmony harmony) const
{
    const Member &member = _members[size_t(index)];
    const Member &leading = _members[size_t(leader)];
    const bool isGrey = lead.chroma < leastChroma;
    if (isGrey && member.role == Role::Third)
        return {member.place.lightness, quietAccentChroma, quietAccentHue};
    const double growth =
        std::min(lead.chroma / std::max(leading.mean.chroma, leastChroma), mostGrowth);
    const double least = isGrey ? 0.0 : member.isQuiet ? leastOfQuiet : leastOfColored;
    const double chroma = std::max(member.place.chroma * growth, lead.chroma * least);
    const double apart =
        member.place.chroma < leastChroma ? 0.0 : between(member.place.hue, member.mean.hue);
    return {member.place.lightness, chroma, lead.hue + offsetOf(member, leading, harmony) + apart};
}
