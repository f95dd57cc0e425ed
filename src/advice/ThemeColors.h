// The colours of a theme as they lie over one another: the choices, stand-ins for removed ones,
// transparency, and who stands on whom.
//
// A value to try colours on, for the one under the finger or for a remedy; nothing is chosen by
// that. It keeps to the elements that it was made from, which have to outlive it; elements are
// addressed by their index in document order, and colours are straight.
#pragma once

#include "theme/ElementDataSource.h"

#include <QImage>
#include <QRgb>

#include <array>
#include <memory>
#include <optional>
#include <vector>

/// An element that has to be seen on a ground: on one, or on both ends of a balloon's gradient.
struct ThemeRelation {
    int element;
    std::array<int, 2> grounds; // the same twice where it is no gradient
    double threshold;           // the least contrast ratio
};

class ThemeColors
{
public:
    /// No more things are looked at behind what is transparent than that many side by side, and
    /// that many one behind the other.
    static constexpr int mostBehind = 2;
    static constexpr int deepest = 4;

    explicit ThemeColors(const ElementDataSource &elements);

    const ElementDataSource &elements() const { return *_elements; }
    int count() const { return int(_colors.size()); }

    /// Takes a colour for the element in place of its choice. Those of choices do not matter.
    void setColor(int index, std::optional<QRgb> color) { _colors[size_t(index)] = color; }
    /// The same from colour text; the empty one removes the colour.
    void setColorText(int index, const QString &colorText);
    /// Nothing where it is removed, or never was.
    const std::optional<QRgb> &color(int index) const { return _colors[size_t(index)]; }

    /// What has to be told from what; each pair of elements once, in document order.
    std::vector<ThemeRelation> relations() const;
    /// Those of one element, which stands on the others.
    std::vector<ThemeRelation> relationsOf(int index) const;
    /// The same, put behind what is in the list.
    void addRelations(int index, std::vector<ThemeRelation> &relations) const;

    struct Reading {
        double ratio; // of the worst place
        int ground;   // whose end that is
    };
    /// Nothing where a colour is removed and nobody knows what the phone shows without it.
    std::optional<Reading> reading(const ThemeRelation &relation) const;
    /// The same at one end of a gradient, the first (0) or the second (1).
    std::optional<Reading> readingAt(const ThemeRelation &relation, size_t end) const;

    /// What is seen of an element by itself; as in reading().
    std::optional<QRgb> seenColor(int index) const;

    /// The elements that are compared with others beside the grounds.
    enum Known {
        GreenBalloon1,
        GreenBalloon2,
        BlueBalloon1,
        BlueBalloon2,
        GrayBalloon1,
        GrayBalloon2,
        ListBackground,
        ListName,
        UnreadIndicator,
        UnreadName
    };
    static constexpr int knownCount = UnreadName + 1;
    /// Its index; nothing where the list of elements has no such colour.
    std::optional<int> known(Known element) const;

private:
    /// Opaque colours that may be seen where something is; a few at most.
    struct Surfaces {
        std::array<QRgb, 4> colors;
        int count = 0;
        void add(QRgb color);
        const QRgb *begin() const { return colors.data(); }
        const QRgb *end() const { return colors.data() + count; }
    };
    Surfaces surfacesOf(int index, int depth) const;
    Surfaces surfacesBehind(int index, int depth) const;
    std::optional<QRgb> shownColor(int index, QRgb ground) const;
    /// Whether a picture is seen where the element is.
    bool isPicture(int index) const;
    std::optional<Reading> readingOnPicture(const ThemeRelation &relation) const;
    /// The other colour of a balloon; -1 for what is none.
    int otherEnd(int index) const;

    const ElementDataSource *_elements;
    std::vector<std::optional<QRgb>> _colors;
    std::array<int, knownCount> _known;     // -1: not there
    std::shared_ptr<const QImage> _picture; // behind the list; null: there is none
    QRgb _pictureColor = 0;                 // stands for it as long as the list has that
};
