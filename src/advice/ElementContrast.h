// How well one element can be seen while a colour is being picked for it: against what it stands
// on, and, as a ground, against all that stands on it.
//
// Who stands with it is looked up once, so that trying a colour asks those few alone.
#pragma once

#include "advice/Findings.h"

#include <functional>
#include <optional>
#include <vector>

class ElementContrast
{
public:
    /// The elements must outlive it.
    ElementContrast(const ElementDataSource &elements, int index);

    enum class Level {
        ReadsWell,
        LargeOnly, // enough for large text, which this is not
        HardToRead
    };
    struct Reading {
        double ratio;
        Level level;
        int other; // the element that it is told from worst
    };
    /// The worst of all, by what is missing to the threshold; nothing where it stands with nothing,
    /// or with nothing of which a colour is known.
    std::optional<Reading> reading(QRgb color);

    /// The nearest colours with which all is well, as nearestColors() has them. What is tried is
    /// what `picked` makes of a colour, and of that once more: who picks it may get other bytes.
    ReadableColors nearest(QRgb color, const std::function<QRgb(QRgb)> &picked);

private:
    bool isReadable(QRgb color);

    const int _index;
    ThemeColors _colors;
    std::vector<ThemeRelation> _relations;
};
