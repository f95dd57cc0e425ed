// How light the elements of a theme may be, so that each can be read on what it stands on.
//
// Contrast depends on the luminance alone. So what a colour that is given asks of the others is
// settled in numbers, before there is any colour to look at.
#pragma once

#include "advice/ThemeColors.h"

#include <span>
#include <vector>

class LuminancePlan
{
public:
    /// What is not told of has no part in it.
    explicit LuminancePlan(int count) : _luminances(size_t(count), -1.0), _fixed(size_t(count)) {}

    void set(int index, double luminance, bool isFixed);
    /// -1 for what was not set.
    double luminance(int index) const { return _luminances[size_t(index)]; }
    bool isFixed(int index) const { return _fixed[size_t(index)]; }

    /// Moves what is not fixed as little as that takes: what stands on others first, then the
    /// grounds. Where everything cannot be had, some relations are left as they are.
    void settle(std::span<const ThemeRelation> relations);

    /// True where the luminance of that element alone rules out that anything is read on it as
    /// dark (or, the other way about, as light) text.
    static bool rulesOutOnIt(double ground, double threshold, bool isDarkText);
    /// The same for the ground of such a text.
    static bool rulesOutUnderIt(double text, double threshold, bool isDarkText);

private:
    /// The relations of one element.
    void settleElement(std::span<const ThemeRelation> relations);

    std::vector<double> _luminances; // by element
    std::vector<bool> _fixed;
};
