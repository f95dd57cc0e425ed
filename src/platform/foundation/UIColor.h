// A colour as the phone's interface toolkit knows it.
//
// Components are doubles from 0 to 1, never bytes and never floats: colour text is defined by
// truncating component x 255, and a narrower type would move that truncation. Convert to QColor
// only where something is drawn.
#pragma once

#include <QColor>
#include <QImage>

#include <array>
#include <optional>

class UIColor
{
public:
    struct RGBA {
        double red, green, blue, alpha;
        bool operator==(const RGBA &) const = default;
    };
    struct HSBA {
        double hue, saturation, brightness, alpha;
    };
    struct WhiteAlpha {
        double white, alpha;
    };

    /// Components outside 0-1 are taken as the nearer end, and not-a-number as 0.
    static UIColor colorWithRed(double red, double green, double blue, double alpha);
    static UIColor colorWithWhite(double white, double alpha);
    /// The hexcone model of A. R. Smith, "Color Gamut Transform Pairs" (1978); hue 0 and 1 are red.
    static UIColor colorWithHue(double hue, double saturation, double brightness, double alpha);
    /// A colour that tiles an image. It has no components of its own.
    static UIColor colorWithPatternImage(const QImage &image);

    static UIColor blackColor();
    static UIColor whiteColor();
    /// Black at alpha 0.
    static UIColor clearColor();

    /// Empty unless the colour was made from red, green and blue (or from a hue).
    std::optional<RGBA> getRed() const;
    /// Empty unless the colour is a grey.
    std::optional<WhiteAlpha> getWhite() const;
    /// Hue in [0, 1), 0 for greys; brightness is the largest channel. Empty for patterns.
    std::optional<HSBA> getHue() const;
    /// The tile of a pattern colour, else a null image.
    const QImage &patternImage() const { return _pattern; }

    /// Red, green, blue and alpha of any colour: a grey is spread over the three channels, a
    /// pattern counts as transparent black because it has no single colour.
    RGBA components() const;

    /// For drawing only: loses precision.
    QColor qColor() const;

private:
    enum class Model { RGB, Grey, Pattern };
    UIColor(Model model, std::array<double, 4> components);

    Model _model;
    std::array<double, 4> _components; // RGB: r, g, b, a; grey: white, white, white, a
    QImage _pattern;
};
