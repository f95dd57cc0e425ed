#include "advice/ThemeGenerator.h"

#include "advice/LuminancePlan.h"
#include "advice/ThemeMender.h"
#include "color/ColorOfLuminance.h"
#include "theme/ColorText.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

/// One theme on its way from the base to the wish.
class ThemeGenerator::Making
{
public:
    Making(const ThemeGenerator &generator, const ThemeWish &wish);

    const ThemeColors &colors() const { return _colors; }

private:
    void lead(const ThemeWish &wish, double strength);
    void give(int picked, QRgb color);
    void moveAlong(int partner, double lightness);
    bool isRuledOut(int picked) const;
    void turnGroupOf(int picked);
    void paint(int index);
    void paintAll();
    /// False when nothing was unreadable, or nothing can be done about it in this way.
    bool nudge();
    bool nudge(int index, bool darker);

    const ThemeGenerator &_generator;
    ThemeColors _colors;
    std::vector<OKLCh> _places;      // by element; hue and chroma, and about what lightness
    std::vector<double> _luminances; // by element; -1 for what does not move
    LuminancePlan _plan;             // of what is opaque
    int _partner = -1;
};

ThemeGenerator::Making::Making(const ThemeGenerator &generator, const ThemeWish &wish)
    : _generator(generator),
      _colors(generator._base),
      _places(size_t(_colors.count())),
      _luminances(size_t(_colors.count()), -1.0),
      _plan(_colors.count())
{
    lead(wish, std::min(wish.strength, 1.0));
    if (const auto picked = generator.pickedOf(wish))
        give(*picked, wish.color);
    _plan.settle(generator._relations);
    paintAll();
    constexpr int mostNudges = 4;
    for (int round = 0; round < mostNudges && nudge(); ++round)
        continue;
}

void ThemeGenerator::Making::lead(const ThemeWish &wish, double strength)
{
    const OKLCh leading = oklchFromOklab(oklabFromRgb(wish.color));
    const int leader = _generator.leaderOf(wish);
    for (int index = 0; index < _colors.count(); ++index) {
        const auto color = _colors.color(index);
        if (!color)
            continue;
        const bool isLocked = _generator._locked.contains(index);
        const double luminance = relativeLuminance(*color);
        if (qAlpha(*color) == 255)
            _plan.set(index, luminance, isLocked);
        if (isLocked)
            continue;
        // Straight on from one to the other: on the way round the wheel there are other hues.
        const OKLab from = oklabFromOklch(_generator._harmony.baseOf(index));
        const OKLab to =
            oklabFromOklch(_generator._harmony.placeOf(index, leading, leader, wish.harmony));
        _places[size_t(index)] = oklchFromOklab(
            {from.lightness, std::lerp(from.a, to.a, strength), std::lerp(from.b, to.b, strength)});
        _luminances[size_t(index)] = luminance;
    }
}

void ThemeGenerator::Making::give(int picked, QRgb color)
{
    const bool hadColor = _colors.color(picked).has_value();
    _colors.setColor(picked, color);
    _luminances[size_t(picked)] = -1.0;
    const QRgb seen = _colors.seenColor(picked).value_or(color);
    _plan.set(picked, relativeLuminance(seen), true);
    _partner = _generator._harmony.partnerOf(picked);
    if (hadColor && _partner >= 0 && _luminances[size_t(_partner)] >= 0.0)
        moveAlong(_partner,
                  oklabFromRgb(seen).lightness - _generator._harmony.baseOf(picked).lightness);
    if (isRuledOut(picked))
        turnGroupOf(picked);
}

void ThemeGenerator::Making::moveAlong(int partner, double lightness)
{
    OKLCh &place = _places[size_t(partner)];
    place.lightness = std::clamp(place.lightness + lightness, 0.0, 1.0);
    _luminances[size_t(partner)] = relativeLuminance(rgbFromOklch(place));
    if (_plan.luminance(partner) >= 0.0)
        _plan.set(partner, _luminances[size_t(partner)], false);
}

bool ThemeGenerator::Making::isRuledOut(int picked) const
{
    const Tone tone = _generator._tone.toneAround(picked);
    const bool isDarkText = tone == Tone::Light;
    const double luminance = _plan.luminance(picked);
    return tone != Tone::AsItIs &&
           std::ranges::any_of(_generator._relations, [&](const ThemeRelation &relation) {
               return relation.element == picked
                          ? LuminancePlan::rulesOutUnderIt(luminance, relation.threshold,
                                                           isDarkText)
                          : std::ranges::count(relation.grounds, picked) &&
                                LuminancePlan::rulesOutOnIt(luminance, relation.threshold,
                                                            isDarkText);
           });
}

void ThemeGenerator::Making::turnGroupOf(int picked)
{
    for (int index = 0; index < _colors.count(); ++index) {
        if (_luminances[size_t(index)] < 0.0 || index == _partner ||
            _generator._tone.groupOf(index) != _generator._tone.groupOf(picked))
            continue;
        const QRgb color = turned(*_colors.color(index));
        _places[size_t(index)].lightness = oklabFromRgb(color).lightness;
        _luminances[size_t(index)] = relativeLuminance(color);
        if (_plan.luminance(index) >= 0.0)
            _plan.set(index, _luminances[size_t(index)], false);
    }
}

void ThemeGenerator::Making::paint(int index)
{
    const auto &[lightness, chroma, hue] = _places[size_t(index)];
    const double settled = _plan.luminance(index);
    const QRgb color = colorOfLuminance(settled >= 0.0 ? settled : _luminances[size_t(index)],
                                        chroma, hue, lightness);
    _colors.setColor(index, (color & RGB_MASK) | (*_colors.color(index) & ~RGB_MASK));
}

void ThemeGenerator::Making::paintAll()
{
    for (int index = 0; index < _colors.count(); ++index)
        if (_luminances[size_t(index)] >= 0.0)
            paint(index);
}

bool ThemeGenerator::Making::nudge(int index, bool darker)
{
    constexpr double step = 1.015; // of the contrast: what a rounding may cost
    if (_plan.luminance(index) < 0.0 || _plan.isFixed(index))
        return false;
    const double light = _plan.luminance(index) + 0.05;
    _plan.set(index, std::clamp((darker ? light / step : light * step) - 0.05, 0.0, 1.0), false);
    paint(index);
    return true;
}

bool ThemeGenerator::Making::nudge()
{
    bool changed = false;
    for (const ThemeRelation &relation : _generator._relations) {
        const auto finding = findingOf(relation, _colors);
        if (!finding)
            continue;
        const bool isDarkText = _plan.luminance(relation.element) < _plan.luminance(finding->on);
        changed |= nudge(relation.element, isDarkText) || nudge(finding->on, !isDarkText);
    }
    return changed;
}

ThemeGenerator::ThemeGenerator(ElementDataSource elements, std::set<int> locked, Tone tone)
    : _elements(std::move(elements)),
      _locked(std::move(locked)),
      _original(_elements),
      _relations(_original.relations()),
      _likenesses(likenesses(_original)),
      _unmet(unmetIn(_original)),
      _start(inTone(tone)),
      _base(readable(_start)),
      _faults(faultsIn(_base)),
      _tone(_base, _relations),
      _harmony(_base)
{
}

std::optional<int> ThemeGenerator::usualElement(const ElementDataSource &elements)
{
    return ThemeColors(elements).known(ThemeColors::GreenBalloon1);
}

ThemeColors ThemeGenerator::inTone(Tone tone) const
{
    const ThemeTone groups(_original, _relations);
    using enum ThemeTone::Locked;
    for (const auto what : {ElementsStay, GroupsStay}) {
        ThemeColors colors = _original;
        if (!groups.turn(colors, tone, _locked, what))
            break;
        colors = mended(colors, {});
        if (faultsIn(colors).fresh == 0)
            return colors;
    }
    return _original;
}

ThemeColors ThemeGenerator::readable(const ThemeColors &colors) const
{
    if (findings(colors).empty())
        return colors;
    // What is seen through, or left to the phone, may be upset by what mends something else.
    ThemeColors better = mended(colors, {});
    return faultsIn(better).fresh == 0 ? better : colors;
}

ThemeColors ThemeGenerator::mended(const ThemeColors &colors, std::optional<int> picked) const
{
    std::set<int> fixed = _locked;
    if (picked)
        fixed.insert(*picked);
    ThemeMender mender(colors, fixed);
    mender.mend();
    return mender.colors();
}

std::vector<bool> ThemeGenerator::unmetIn(const ThemeColors &colors) const
{
    std::vector<bool> unmet;
    for (const ThemeRelation &relation : _relations)
        unmet.push_back(findingOf(relation, colors).has_value());
    for (const ThemeLikeness &likeness : _likenesses) {
        const auto found = findingsOf(likeness, colors);
        for (const Eyes eyes : {Eyes::Protan, Eyes::Deutan, Eyes::Tritan})
            unmet.push_back(std::ranges::count(found, eyes, &Finding::eyes) > 0);
    }
    return unmet;
}

ThemeGenerator::Faults ThemeGenerator::faultsIn(const ThemeColors &colors) const
{
    const std::vector<bool> unmet = unmetIn(colors);
    Faults faults;
    for (size_t demand = 0; demand < unmet.size(); ++demand) {
        faults.fresh += unmet[demand] && !_unmet[demand];
        faults.all += unmet[demand];
    }
    return faults;
}

std::optional<int> ThemeGenerator::pickedOf(const ThemeWish &wish) const
{
    const bool isFree = wish.element && *wish.element >= 0 && *wish.element < _base.count() &&
                        !_locked.contains(*wish.element) &&
                        !_elements.tableSource()[size_t(*wish.element)].isChoice();
    return isFree ? wish.element : std::nullopt;
}

int ThemeGenerator::leaderOf(const ThemeWish &wish) const
{
    if (const auto picked = pickedOf(wish))
        return *picked;
    if (const auto usual = _base.known(ThemeColors::GreenBalloon1))
        return *usual;
    int liveliest = 0;
    for (int index = 0; index < _base.count(); ++index)
        if (_harmony.baseOf(index).chroma > _harmony.baseOf(liveliest).chroma)
            liveliest = index;
    return liveliest;
}

GeneratedTheme ThemeGenerator::result(const ThemeColors &colors, std::vector<Finding> left) const
{
    GeneratedTheme theme{{}, std::move(left)};
    for (int index = 0; index < colors.count(); ++index)
        if (const auto color = colors.color(index); color && color != _original.color(index))
            theme.changes.push_back(
                {index, {hexStringForRgb(*color), _elements.tableSource()[size_t(index)].value}});
    return theme;
}

GeneratedTheme ThemeGenerator::generate(const ThemeWish &wish) const
{
    if (!(wish.strength > 0.0))
        return result(_start, findings(_start));
    ThemeColors best = Making(*this, wish).colors();
    std::vector<Finding> found = findings(best);
    Faults least = found.empty() ? Faults() : faultsIn(best);
    const auto picked = pickedOf(wish);
    const auto offer = [&](const ThemeColors &colors) {
        if (const Faults faults = faultsIn(colors); faults < least) {
            least = faults;
            best = colors;
        }
    };
    if (least > _faults)
        offer(mended(best, picked));
    if (least > _faults) {
        // Rather the base, and in it the picked colour alone, than something unreadable.
        ThemeColors careful = _base;
        if (picked)
            careful.setColor(*picked, wish.color);
        offer(careful);
        offer(mended(careful, picked));
    }
    return result(best, found.empty() ? std::move(found) : findings(best));
}

DrawnWish drawnWish(quint64 seed, Tone tone)
{
    // SplitMix64 of Steele, Lea and Flood (2014): the same everywhere, unlike the distributions of
    // the standard library.
    const auto next = [&seed] {
        seed += 0x9E3779B97F4A7C15;
        quint64 mixed = (seed ^ seed >> 30) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
        return mixed ^ mixed >> 31;
    };
    const auto between = [&next](double least, double most) {
        return least + (most - least) * double(next() >> 11) / double(1ULL << 53);
    };
    const double hue = between(0.0, 2.0 * std::numbers::pi);
    const double chroma = between(0.08, 0.17);
    const double share = between(0.0, 1.0);
    const auto harmony = Harmony(next() % 5);
    const Tone drawn = next() % 2 ? Tone::Dark : Tone::Light;
    if (tone == Tone::AsItIs)
        tone = drawn;
    const double lightness =
        tone == Tone::Dark ? std::lerp(0.32, 0.5, share) : std::lerp(0.72, 0.88, share);
    return {rgbFromOklch({lightness, chroma, hue}), harmony, tone};
}
