// Light themes and dark ones: what stands on what decides, because a theme is light where its
// grounds are lighter than what is read on them.
//
// What has to be told from one another, directly or through others, is one group, and is turned as
// one: a text, all balloons that it stands on, and the other texts on them. What nothing has to be
// told from belongs to what is behind it.
#pragma once

#include "advice/ThemeColors.h"

#include <set>
#include <span>
#include <vector>

enum class Tone { AsItIs, Light, Dark };

class ThemeTone
{
public:
    /// The colours and relations are those of one theme; only the call looks at them.
    ThemeTone(const ThemeColors &colors, std::span<const ThemeRelation> relations);

    /// Light or Dark; AsItIs where nothing stands on anything.
    Tone tone() const { return toneOf(_balance); }
    /// That of the element's group.
    Tone toneAround(int index) const { return toneOf(_balances[size_t(groupOf(index))]); }
    /// Groups have numbers, of no meaning beside being the same.
    int groupOf(int index) const { return _groups[size_t(index)]; }

    enum class Locked { ElementsStay, GroupsStay };
    /// Turns the groups of the other tone round, but for locked elements, or for groups that have
    /// one. Nothing changes, and false is returned, where the theme has the tone already, or has
    /// none. What can be read then has to be looked at anew.
    bool turn(ThemeColors &colors, Tone wanted, const std::set<int> &locked, Locked what) const;

private:
    static Tone toneOf(int balance)
    {
        return balance > 0 ? Tone::Light : balance < 0 ? Tone::Dark : Tone::AsItIs;
    }

    std::vector<int> _groups;   // by element
    std::vector<int> _balances; // by group: how many more stand on something lighter than on darker
    int _balance = 0;
};

/// Light for dark and dark for light, by the same hue and chroma. Alpha stays.
QRgb turned(QRgb color);
