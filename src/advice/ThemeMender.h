// How fixAll() comes to its changes: element by element, as long as that mends anything.
//
// A demand is a relation or a likeness. Every element knows the demands that its colour has a part
// in, be it through what is transparent; so trying a colour asks those demands alone.
#pragma once

#include "advice/Findings.h"

#include <map>
#include <set>
#include <vector>

class ThemeMender
{
public:
    /// The locked ones have to outlive it.
    ThemeMender(ThemeColors colors, const std::set<int> &locked);

    void mend();

    const ThemeColors &colors() const { return _colors; }
    /// In document order.
    std::vector<int> changed() const;

private:
    void noteDemand(int index, int demand, int depth);
    bool isRelation(int demand) const { return size_t(demand) < _relations.size(); }
    bool isMet(int demand) const;
    /// The same for what a ground can do about it: its own end of a gradient.
    bool isMetAt(int demand, int index) const;

    bool mendElements();
    bool mendGrounds();
    bool mendGroundsOf(int demand);
    /// For a text that is too transparent for any ground, or whose colour is left to the phone,
    /// which takes another one when the ground changes.
    bool mendBoth(int demand);
    bool mendLikenesses();
    /// Gives the element the nearest colour that meets the demand, if there is one.
    bool recolor(int index, int demand);
    std::optional<QRgb> nearestMeeting(std::vector<int> demands, int index);
    void dropNeedless();

    ThemeColors _colors;
    const std::set<int> &_locked;
    const std::vector<ThemeRelation> _relations;
    const std::vector<ThemeLikeness> _likenesses; // demands after the relations
    std::vector<std::vector<int>> _demands;       // by element
    std::map<int, std::optional<QRgb>> _before;   // of what has changed
    std::map<int, int> _tries;                    // by element, in this round
};
