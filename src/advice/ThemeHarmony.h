// Where the hues of a theme go when one colour leads it.
//
// Families go together: the two colours of a balloon keep their distance in hue, and what is led is
// the family's mean, weighted by chroma. Green balloons, grounds and texts follow the lead itself,
// blue balloons the hue beside it in the harmony and unread marks the one on its other side;
// elements that we know nothing of go to the nearest of the three. Chroma grows and shrinks with
// the lead's; what was grey gets a trace of it.
#pragma once

#include "advice/ThemeColors.h"
#include "color/OKLab.h"

#include <vector>

enum class Harmony { Single, Analogous, Split, Triadic, Complementary };

class ThemeHarmony
{
public:
    /// Below this chroma a colour passes for a grey; led by such a one a theme is grey, and its
    /// unread marks a quiet blue.
    static constexpr double leastChroma = 0.03;

    explicit ThemeHarmony(const ThemeColors &base);

    /// Where an element of that base goes: of its own lightness, and beside the lightness only hue
    /// and chroma differ. `lead` is the colour, and `leader` the element that it is for.
    OKLCh placeOf(int index, const OKLCh &lead, int leader, Harmony harmony) const;
    /// Where it is.
    const OKLCh &baseOf(int index) const { return _members[size_t(index)].place; }
    /// The other colour of the same balloon; -1 for what is none.
    int partnerOf(int index) const { return _members[size_t(index)].partner; }

private:
    enum class Role { Any, Lead, Second, Third };
    struct Member {
        OKLCh place{};
        OKLCh mean{}; // of its family; chroma is the greatest in it
        Role role = Role::Any;
        bool isQuiet = true; // was grey, and may stay so
        int partner = -1;
    };
    void pair(int one, int other);
    double offsetOf(const Member &member, const Member &leader, Harmony harmony) const;

    std::vector<Member> _members; // by element; of those without a colour, greys
};
