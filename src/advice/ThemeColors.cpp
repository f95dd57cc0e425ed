#include "advice/ThemeColors.h"

#include "color/Compositing.h"
#include "color/Contrast.h"
#include "theme/ElementPicture.h"
#include "theme/ShownColor.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr QRgb white = 0xFFFFFFFF;

// In the order of the enumeration.
constexpr std::array<QLatin1StringView, ThemeColors::knownCount> knownKeys = {
    "green-balloon-colors_1"_L1, "green-balloon-colors_2"_L1, "blue-balloon-colors_1"_L1,
    "blue-balloon-colors_2"_L1,  "gray-balloon-colors_1"_L1,  "gray-balloon-colors_2"_L1,
    "list-background-image"_L1,  "list-name-color"_L1,        "unread-indicator-image"_L1,
    "unread-name-color"_L1,
};

double thresholdOf(ElementGround::Kind kind)
{
    return kind == ElementGround::Kind::Text ? 4.5 : 3.0;
}

QRgb middleOf(QRgb one, QRgb other)
{
    return qRgb((qRed(one) + qRed(other)) / 2, (qGreen(one) + qGreen(other)) / 2,
                (qBlue(one) + qBlue(other)) / 2);
}
} // namespace

ThemeColors::ThemeColors(const ElementDataSource &elements) : _elements(&elements)
{
    const auto &records = elements.tableSource();
    _colors.resize(records.size());
    for (size_t index = 0; index < records.size(); ++index)
        if (!records[index].isChoice() && records[index].color.isValid())
            setColorText(int(index), PropertyList::textOf(records[index].color));
    for (size_t known = 0; known < knownKeys.size(); ++known) {
        const auto index = elements.shownIndexOfKey(knownKeys[known]);
        _known[known] = index && !records[size_t(*index)].isChoice() ? *index : -1;
    }
    const auto picture = ElementPicture::behindList(elements);
    const auto background = known(ListBackground);
    if (!picture || !background)
        return;
    const QImage pixels = picture->shown({32, 32});
    if (pixels.isNull())
        return;
    _picture = std::make_shared<const QImage>(pixels);
    _pictureColor = *color(*background);
}

void ThemeColors::setColorText(int index, const QString &colorText)
{
    _colors[size_t(index)] =
        colorText.isEmpty() ? std::nullopt : std::optional(rgbFromHexString(colorText));
}

std::optional<int> ThemeColors::known(Known element) const
{
    return _known[element] < 0 ? std::nullopt : std::optional(_known[element]);
}

int ThemeColors::otherEnd(int index) const
{
    for (int end = GreenBalloon1; end <= GrayBalloon2; ++end)
        if (_known[size_t(end)] == index)
            return _known[size_t(end ^ 1)];
    return -1;
}

void ThemeColors::addRelations(int index, std::vector<ThemeRelation> &relations) const
{
    const size_t first = relations.size();
    for (const auto &[ground, kind] : _elements->tableSource()[size_t(index)].on) {
        if (kind == ElementGround::Kind::Behind)
            continue;
        const ThemeRelation relation{index, {ground, ground}, thresholdOf(kind)};
        // The second end of a gradient follows the first one in any sensible list.
        ThemeRelation *const last = relations.size() > first ? &relations.back() : nullptr;
        const int other = last ? otherEnd(ground) : -1;
        if (other >= 0 && last->grounds == std::array{other, other} &&
            last->threshold == relation.threshold)
            last->grounds[1] = ground;
        else
            relations.push_back(relation);
    }
}

std::vector<ThemeRelation> ThemeColors::relationsOf(int index) const
{
    std::vector<ThemeRelation> relations;
    addRelations(index, relations);
    return relations;
}

std::vector<ThemeRelation> ThemeColors::relations() const
{
    std::vector<ThemeRelation> relations;
    for (int index = 0; index < count(); ++index)
        addRelations(index, relations);
    return relations;
}

void ThemeColors::Surfaces::add(QRgb color)
{
    if (count < int(colors.size()) && std::find(begin(), end(), color) == end())
        colors[size_t(count++)] = color;
}

std::optional<QRgb> ThemeColors::shownColor(int index, QRgb ground) const
{
    const auto keyOf = [this](int element) -> const QString & {
        return _elements->tableSource()[size_t(element)].key;
    };
    std::optional<QRgb> color = _colors[size_t(index)];
    if (!color) {
        const int other = otherEnd(index);
        color = other >= 0 ? _colors[size_t(other)] : std::nullopt;
        // Only the first of a balloon's keys has a stand-in.
        if (!color)
            color = standInColor(keyOf(index), ground);
        if (!color && other >= 0)
            color = standInColor(keyOf(other), ground);
    }
    return color && isPictureColor(keyOf(index)) ? std::optional(*color | 0xFF000000) : color;
}

ThemeColors::Surfaces ThemeColors::surfacesBehind(int index, int depth) const
{
    Surfaces surfaces;
    const auto &on = _elements->tableSource()[size_t(index)].on;
    if (depth < deepest) {
        for (size_t ground = 0; ground < std::min<size_t>(on.size(), mostBehind); ++ground)
            for (const QRgb color : surfacesOf(on[ground].index, depth + 1))
                surfaces.add(color);
    }
    if (surfaces.count == 0)
        surfaces.add(white); // the phone's bare screen
    return surfaces;
}

ThemeColors::Surfaces ThemeColors::surfacesOf(int index, int depth) const
{
    Surfaces surfaces;
    if (const auto &color = _colors[size_t(index)]; color && qAlpha(*color) == 255) {
        surfaces.add(*color);
        return surfaces;
    }
    for (const QRgb behind : surfacesBehind(index, depth))
        if (const auto color = shownColor(index, behind))
            surfaces.add(composited(*color, behind));
    return surfaces;
}

bool ThemeColors::isPicture(int index) const
{
    return _picture && index == _known[ListBackground] && color(index) == _pictureColor;
}

/// Most of a picture counts, but not its few worst places, which may be as small as a pixel: the
/// 5th percentile of the contrast.
std::optional<ThemeColors::Reading>
ThemeColors::readingOnPicture(const ThemeRelation &relation) const
{
    const auto ink = shownColor(relation.element, _pictureColor);
    if (!ink)
        return std::nullopt;
    std::vector<double> ratios;
    ratios.reserve(size_t(_picture->width()) * size_t(_picture->height()));
    for (int y = 0; y < _picture->height(); ++y)
        for (int x = 0; x < _picture->width(); ++x) {
            const QRgb ground = _picture->pixel(x, y);
            ratios.push_back(contrastRatio(composited(*ink, ground), ground));
        }
    const auto fifth = ratios.begin() + std::ptrdiff_t(ratios.size() / 20);
    std::ranges::nth_element(ratios, fifth);
    return Reading{*fifth, relation.grounds[0]};
}

std::optional<ThemeColors::Reading> ThemeColors::readingAt(const ThemeRelation &relation,
                                                           size_t end) const
{
    const int ground = relation.grounds[end];
    const int opposite = relation.grounds[1 - end];
    if (isPicture(ground))
        return readingOnPicture(relation);
    const Surfaces surfaces = surfacesOf(ground, 0);
    const Surfaces others = opposite == ground ? surfaces : surfacesOf(opposite, 0);
    std::optional<Reading> worst;
    for (int place = 0; place < surfaces.count; ++place) {
        const QRgb surface = surfaces.colors[size_t(place)];
        // The phone picks its own text once for the whole of a gradient.
        const QRgb around =
            place < others.count ? middleOf(surface, others.colors[size_t(place)]) : surface;
        const auto ink = shownColor(relation.element, around);
        if (!ink)
            return std::nullopt;
        const double ratio = contrastRatio(composited(*ink, surface), surface);
        if (!worst || ratio < worst->ratio)
            worst = {ratio, ground};
    }
    // An end whose colour is removed shows the other one's.
    if (worst && !color(ground) && color(opposite))
        worst->ground = opposite;
    return worst;
}

std::optional<ThemeColors::Reading> ThemeColors::reading(const ThemeRelation &relation) const
{
    const auto first = readingAt(relation, 0);
    if (relation.grounds[0] == relation.grounds[1])
        return first;
    const auto second = readingAt(relation, 1);
    return !first || (second && second->ratio < first->ratio) ? second : first;
}

std::optional<QRgb> ThemeColors::seenColor(int index) const
{
    const Surfaces surfaces = surfacesOf(index, 0);
    return surfaces.count ? std::optional(surfaces.colors[0]) : std::nullopt;
}
