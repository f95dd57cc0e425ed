// What is hard to see in a theme.
//
//   contrast     an element has less contrast with what it stands on than such a thing needs
//   look-alike   two things that most people tell apart by their colours are much the same to eyes
//                that lack one kind of cone: unread mark and list, unread name and other names,
//                green and blue balloons
//
// It is advice: whoever shows it goes on with whatever the person decides.
#pragma once

#include "advice/ThemeColors.h"
#include "color/ColorVision.h"
#include "color/Contrast.h"

#include <functional>
#include <optional>
#include <vector>

struct Finding {
    enum class Kind { Contrast, LookAlike };
    Kind kind;
    int element; // index in document order; of the text or mark
    int on;      // of the ground, or of what it looks like
    Eyes eyes;   // Normal for contrast
    /// Contrast: the ratio, 1 to 21. Look-alike: the distance to those eyes in OKLab, in which
    /// black and white are 1 apart.
    double ratio;
    double threshold; // which the ratio is below
    bool operator==(const Finding &) const = default;
};

/// In document order, contrast first. Each pair of elements once (each balloon once, by its worse
/// end), look-alikes once for each kind of eyes.
std::vector<Finding> findings(const ThemeColors &colors);
std::vector<Finding> findings(const ElementDataSource &elements);

struct ReadableColors {
    std::optional<QRgb> lighter;
    std::optional<QRgb> darker;
};
/// The nearest colours of the finding's element, by the same hue, with which there is no such
/// finding; with its alpha where that suffices, else opaque.
ReadableColors remediesFor(const Finding &finding, const ThemeColors &colors);

/// The same search for any element and any condition; the colours keep the alpha first, too.
/// `accepts` is asked with the colour in place in `colors`, which is as before afterwards.
ReadableColors nearestColors(int index, ThemeColors &colors, const std::function<bool()> &accepts);

/// The nearer of the two to a colour; nothing where there is none.
std::optional<QRgb> nearerOf(const ReadableColors &found, QRgb color);

/// Things of which people tell one from the other by colour. Balloons have two colours each, others
/// the same twice.
struct ThemeLikeness {
    std::array<int, 2> one;
    std::array<int, 2> other;
};
std::vector<ThemeLikeness> likenesses(const ThemeColors &colors);
/// What is wrong with one relation, or with one likeness; empty when all is well.
std::optional<Finding> findingOf(const ThemeRelation &relation, const ThemeColors &colors);
std::vector<Finding> findingsOf(const ThemeLikeness &likeness, const ThemeColors &colors);
