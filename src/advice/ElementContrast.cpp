#include "advice/ElementContrast.h"

#include <algorithm>

namespace
{
constexpr double largeEnough = 3.0;

ElementContrast::Level levelOf(double ratio, double threshold)
{
    using enum ElementContrast::Level;
    return ratio >= threshold ? ReadsWell : ratio >= largeEnough ? LargeOnly : HardToRead;
}
} // namespace

ElementContrast::ElementContrast(const ElementDataSource &elements, int index)
    : _index(index), _colors(elements), _relations(_colors.relationsOf(index))
{
    std::vector<ThemeRelation> relations;
    for (int other = 0; other < _colors.count(); ++other) {
        relations.clear();
        _colors.addRelations(other, relations);
        std::ranges::copy_if(relations, std::back_inserter(_relations),
                             [index](const ThemeRelation &relation) {
                                 return std::ranges::count(relation.grounds, index) > 0;
                             });
    }
}

std::optional<ElementContrast::Reading> ElementContrast::reading(QRgb color)
{
    _colors.setColor(_index, color);
    std::optional<Reading> worst;
    double leastShare = 0.0;
    for (const ThemeRelation &relation : _relations) {
        const auto seen = _colors.reading(relation);
        const double share = seen ? seen->ratio / relation.threshold : 0.0;
        if (!seen || (worst && share >= leastShare))
            continue;
        leastShare = share;
        const int other = relation.element == _index ? seen->ground : relation.element;
        worst = {seen->ratio, levelOf(seen->ratio, relation.threshold), other};
    }
    return worst;
}

bool ElementContrast::isReadable(QRgb color)
{
    _colors.setColor(_index, color);
    return std::ranges::none_of(_relations, [this](const ThemeRelation &relation) {
        return findingOf(relation, _colors).has_value();
    });
}

ReadableColors ElementContrast::nearest(QRgb color, const std::function<QRgb(QRgb)> &picked)
{
    _colors.setColor(_index, color);
    return nearestColors(_index, _colors, [&] {
        const QRgb once = picked(*_colors.color(_index));
        return isReadable(once) && isReadable(picked(once));
    });
}
