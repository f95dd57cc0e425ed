// A whole theme from one colour.
//
//   base --> in the tone asked for, readable --+
//   lead colour, harmony, strength ------------+--> hue and chroma of every element, with the light
//   locks, the element that it was picked for -+    that it had --> what the picked colour asks of
//                                                   the others --> what is left to mend
//
// As every element keeps its light, what could be read can be read. Only the picked colour, which
// is kept to the bit, may ask for another light: of the other end of its balloon, which moves
// along, and of what it could not be told from. The same base and wish give the same theme.
//
// Making a generator looks through the base once; generating is cheap, for whoever follows a
// slider.
#pragma once

#include "advice/Findings.h"
#include "advice/ThemeHarmony.h"
#include "advice/ThemeTone.h"
#include "theme/ThemeDocument.h"

#include <compare>
#include <optional>
#include <set>
#include <vector>

struct ThemeWish {
    QRgb color; // straight; may be transparent
    /// Which gets the colour itself; nothing where it is only to lead the others. A locked one does
    /// not get it.
    std::optional<int> element;
    Harmony harmony = Harmony::Single;
    double strength = 1.0; // 0 to 1; at 0 the base stays as it is, the picked element too
};

struct GeneratedTheme {
    /// Of colours alone, in document order, each element once, none of them locked; against the
    /// elements that the generator was made from.
    ThemeDocument::Changes changes;
    /// What is hard to see then: what was so in the base and cannot be mended, or what the picked
    /// colour and locked elements leave no way out of.
    std::vector<Finding> left;
};

class ThemeGenerator
{
public:
    /// The elements are copied. A removed colour stays removed.
    ThemeGenerator(ElementDataSource elements, std::set<int> locked, Tone tone = Tone::AsItIs);
    ThemeGenerator(const ThemeGenerator &) = delete;
    ThemeGenerator &operator=(const ThemeGenerator &) = delete;

    GeneratedTheme generate(const ThemeWish &wish) const;

    /// The one that a colour is for unless somebody says otherwise: the first green balloon's.
    /// Nothing where there is no such one.
    static std::optional<int> usualElement(const ElementDataSource &elements);

private:
    class Making;

    ThemeColors inTone(Tone tone) const;
    ThemeColors readable(const ThemeColors &colors) const;
    ThemeColors mended(const ThemeColors &colors, std::optional<int> picked) const;
    /// By relation, and then by likeness and eyes.
    std::vector<bool> unmetIn(const ThemeColors &colors) const;
    /// How much is unmet; what was not so in the original counts first.
    struct Faults {
        int fresh = 0;
        int all = 0;
        // NOLINTNEXTLINE(modernize-use-nullptr): what the compiler makes of it compares with 0
        auto operator<=>(const Faults &) const = default;
    };
    Faults faultsIn(const ThemeColors &colors) const;
    std::optional<int> pickedOf(const ThemeWish &wish) const;
    int leaderOf(const ThemeWish &wish) const;
    GeneratedTheme result(const ThemeColors &colors, std::vector<Finding> left) const;

    const ElementDataSource _elements; // first: colours keep to it
    const std::set<int> _locked;
    const ThemeColors _original;
    const std::vector<ThemeRelation> _relations;
    const std::vector<ThemeLikeness> _likenesses;
    const std::vector<bool> _unmet; // in the original
    const ThemeColors _start;       // in the tone asked for; readable unless it is the original
    const ThemeColors _base;        // readable, where that can be had
    const Faults _faults;           // in it
    const ThemeTone _tone;          // of the base
    const ThemeHarmony _harmony;    // over it
};

/// A wish that nobody made: colours that look well on the tone, which is drawn as well unless it is
/// given. The same seed draws the same.
struct DrawnWish {
    QRgb color;
    Harmony harmony;
    Tone tone;
};
DrawnWish drawnWish(quint64 seed, Tone tone = Tone::AsItIs);
