#include "advice/Findings.h"

#include "color/OKLab.h"

#include <algorithm>

namespace
{
// In OKLab a distance of 0.02 can just be seen, side by side. What never differed much is not told
// apart by colour.
constexpr double leastSeen = 0.02;
constexpr double clearlyDifferent = 0.1;

double distanceSeenBy(Eyes eyes, QRgb one, QRgb other)
{
    return distanceBetween(oklabFromRgb(seenBy(eyes, one)), oklabFromRgb(seenBy(eyes, other)));
}

/// Of the ends that differ most: a gradient is known by either of its colours.
double distanceSeenBy(Eyes eyes, const ThemeLikeness &likeness, const ThemeColors &colors)
{
    double distance = 0.0;
    for (const size_t end : {0U, 1U}) {
        const auto one = colors.seenColor(likeness.one[end]);
        const auto other = colors.seenColor(likeness.other[end]);
        if (one && other)
            distance = std::max(distance, distanceSeenBy(eyes, *one, *other));
    }
    return distance;
}

/// The one whose colour is chosen: that is where the person can go.
int chosenOf(const std::array<int, 2> &ends, const ThemeColors &colors)
{
    return colors.color(ends[0]) || !colors.color(ends[1]) ? ends[0] : ends[1];
}
} // namespace

std::vector<ThemeLikeness> likenesses(const ThemeColors &colors)
{
    using enum ThemeColors::Known;
    using Ends = std::array<ThemeColors::Known, 2>;
    static constexpr std::pair<Ends, Ends> pairs[] = {
        {{UnreadIndicator, UnreadIndicator}, {ListBackground, ListBackground}},
        {{UnreadName, UnreadName}, {ListName, ListName}},
        {{GreenBalloon1, GreenBalloon2}, {BlueBalloon1, BlueBalloon2}},
    };
    std::vector<ThemeLikeness> likenesses;
    for (const auto &[one, other] : pairs) {
        // Each end is looked for by itself: of a balloon there may be one alone.
        const auto indexes = [&colors](const Ends &ends) {
            const int first = colors.known(ends[0]).value_or(-1);
            const int second = colors.known(ends[1]).value_or(-1);
            return std::array{first < 0 ? second : first, second < 0 ? first : second};
        };
        const ThemeLikeness likeness{indexes(one), indexes(other)};
        if (likeness.one[0] >= 0 && likeness.other[0] >= 0)
            likenesses.push_back(likeness);
    }
    return likenesses;
}

std::optional<Finding> findingOf(const ThemeRelation &relation, const ThemeColors &colors)
{
    const auto reading = colors.reading(relation);
    if (!reading || reading->ratio >= relation.threshold)
        return std::nullopt;
    return Finding{Finding::Kind::Contrast, relation.element,  reading->ground, Eyes::Normal,
                   reading->ratio,          relation.threshold};
}

std::vector<Finding> findingsOf(const ThemeLikeness &likeness, const ThemeColors &colors)
{
    std::vector<Finding> found;
    if (distanceSeenBy(Eyes::Normal, likeness, colors) < clearlyDifferent)
        return found;
    for (const Eyes eyes : {Eyes::Protan, Eyes::Deutan, Eyes::Tritan}) {
        const double distance = distanceSeenBy(eyes, likeness, colors);
        if (distance < leastSeen)
            found.push_back({Finding::Kind::LookAlike, chosenOf(likeness.one, colors),
                             chosenOf(likeness.other, colors), eyes, distance, leastSeen});
    }
    return found;
}

std::vector<Finding> findings(const ThemeColors &colors)
{
    std::vector<Finding> found;
    // Of a large theme never all at once: that would cost the memory's time.
    std::vector<ThemeRelation> relations;
    for (int index = 0; index < colors.count(); ++index) {
        relations.clear();
        colors.addRelations(index, relations);
        for (const ThemeRelation &relation : relations)
            if (const auto finding = findingOf(relation, colors))
                found.push_back(*finding);
    }
    for (const ThemeLikeness &likeness : likenesses(colors))
        std::ranges::copy(findingsOf(likeness, colors), std::back_inserter(found));
    return found;
}

std::vector<Finding> findings(const ElementDataSource &elements)
{
    return findings(ThemeColors(elements));
}

ReadableColors nearestColors(int index, ThemeColors &colors, const std::function<bool()> &accepts)
{
    const std::optional<QRgb> before = colors.color(index);
    const QRgb color = before ? *before : colors.seenColor(index).value_or(0xFF000000);
    const auto search = [&](Direction direction) {
        const auto accepted = [&](QRgb candidate) {
            colors.setColor(index, candidate);
            return accepts();
        };
        auto found = nearestAccepted(color, direction, accepted);
        // Where too little of it is seen for any colour to do.
        const QRgb opaque = color | 0xFF000000;
        if (!found && opaque != color)
            found = accepted(opaque) ? opaque : nearestAccepted(opaque, direction, accepted);
        return found;
    };
    const ReadableColors found{search(Direction::Lighter), search(Direction::Darker)};
    colors.setColor(index, before);
    return found;
}

ReadableColors remediesFor(const Finding &finding, const ThemeColors &colors)
{
    ThemeColors tried = colors;
    if (finding.kind == Finding::Kind::LookAlike) {
        for (const ThemeLikeness &likeness : likenesses(colors))
            if (std::ranges::count(likeness.one, finding.element) &&
                std::ranges::count(likeness.other, finding.on))
                return nearestColors(finding.element, tried,
                                     [&] { return findingsOf(likeness, tried).empty(); });
        return {};
    }
    for (const ThemeRelation &relation : colors.relationsOf(finding.element))
        if (std::ranges::count(relation.grounds, finding.on))
            return nearestColors(finding.element, tried,
                                 [&] { return !findingOf(relation, tried); });
    return {};
}

std::optional<QRgb> nearerOf(const ReadableColors &found, QRgb color)
{
    if (!found.lighter || !found.darker)
        return found.lighter ? found.lighter : found.darker;
    const OKLab place = oklabFromRgb(color);
    return distanceBetween(oklabFromRgb(*found.lighter), place) <=
                   distanceBetween(oklabFromRgb(*found.darker), place)
               ? found.lighter
               : found.darker;
}
