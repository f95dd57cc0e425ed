#include "color/Contrast.h"

#include "color/Compositing.h"
#include "color/LinearLight.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr int scanSteps = 256; // from black to white
constexpr int bisections = 8;  // of one of them: then both sides have the same bytes, nearly always

QRgb withAlphaOf(QRgb color, QRgb other)
{
    return qRgba(qRed(color), qGreen(color), qBlue(color), qAlpha(other));
}
} // namespace

double relativeLuminance(QRgb color)
{
    return 0.2126 * double(linearFromSrgb(quint8(qRed(color)))) +
           0.7152 * double(linearFromSrgb(quint8(qGreen(color)))) +
           0.0722 * double(linearFromSrgb(quint8(qBlue(color))));
}

double contrastRatio(QRgb one, QRgb other)
{
    const auto [dark, light] = std::minmax({relativeLuminance(one), relativeLuminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

std::optional<QRgb> nearestAccepted(QRgb color, Direction direction,
                                    const std::function<bool(QRgb)> &accepts)
{
    const OKLCh start = oklchFromOklab(oklabFromRgb(color));
    const auto at = [&](double lightness) {
        return withAlphaOf(rgbFromOklch({lightness, start.chroma, start.hue}), color);
    };
    const bool isLighter = direction == Direction::Lighter;
    const double end = isLighter ? 1.0 : 0.0;
    const double step = (isLighter ? 1.0 : -1.0) / scanSteps;
    // Several grounds may leave several stretches of lightness, so the search has to walk up to the
    // first one; only its edge can be bisected.
    double refused = start.lightness;
    while (refused != end) {
        double accepted = refused + step;
        if (isLighter ? accepted > end : accepted < end)
            accepted = end;
        if (!accepts(at(accepted))) {
            refused = accepted;
            continue;
        }
        for (int bisection = 0; bisection < bisections; ++bisection) {
            const double middle = (refused + accepted) / 2.0;
            (accepts(at(middle)) ? accepted : refused) = middle;
        }
        return at(accepted);
    }
    return std::nullopt;
}

std::optional<QRgb> nearestReadable(QRgb color, Direction direction, std::span<const QRgb> grounds,
                                    double ratio)
{
    return nearestAccepted(color, direction, [grounds, ratio](QRgb candidate) {
        return std::ranges::all_of(grounds, [=](QRgb ground) {
            return contrastRatio(composited(candidate, ground), ground) >= ratio;
        });
    });
}
