#include "advice/PicturePalette.h"

#include "color/OKLab.h"
#include "color/Quantizer.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
using Candidate = PicturePalette::Candidate;

constexpr int clusterCount = 32;     // fine enough to tell a small thing from what is around it
constexpr double leastChroma = 0.03; // below it a colour passes for a grey
constexpr double livelyChroma = 0.13;
constexpr double leastShare = 0.01;
constexpr double shareWeight = 0.7;
constexpr double chromaWeight = 0.3;
constexpr int hueReach = 15; // degrees; within it a hue counts as the same
constexpr int farApart = 90;
constexpr double leastDifference = 0.08; // in OKLab; of two shades of one hue

struct Shade {
    OKLCh place;
    Candidate candidate;
};

double degreesBetween(double one, double other)
{
    return std::abs(std::remainder(one - other, 2.0 * std::numbers::pi)) * 180.0 / std::numbers::pi;
}

double liveliness(double chroma)
{
    return std::max(0.0, 1.0 - std::abs(chroma - livelyChroma) / livelyChroma);
}

bool differs(const Shade &one, const Shade &other)
{
    return distanceBetween(oklabFromOklch(one.place), oklabFromOklch(other.place)) >=
           leastDifference;
}

/// The coloured ones, the best first.
std::vector<Shade> scored(std::span<const ColorCluster> clusters)
{
    std::vector<Shade> shades;
    for (const ColorCluster &cluster : clusters) {
        const OKLCh place = oklchFromOklab(oklabFromRgb(cluster.color));
        if (place.chroma >= leastChroma)
            shades.push_back({place, {cluster.color, cluster.share, 0.0}});
    }
    std::vector<Shade> kept;
    for (const Shade &shade : shades) {
        double share = 0.0;
        for (const Shade &other : shades)
            if (degreesBetween(shade.place.hue, other.place.hue) <= hueReach)
                share += other.candidate.share;
        if (share >= leastShare)
            kept.push_back({shade.place,
                            {shade.candidate.color, share,
                             shareWeight * share + chromaWeight * liveliness(shade.place.chroma)}});
    }
    std::ranges::stable_sort(kept, std::greater(),
                             [](const Shade &shade) { return shade.candidate.score; });
    return kept;
}

/// Those of them, in their order, that are different from each one taken before.
template <typename Different>
std::vector<Shade> selected(std::span<const Shade> shades, std::vector<Shade> taken,
                            Different different)
{
    for (const Shade &shade : shades) {
        if (int(taken.size()) == PicturePalette::mostCandidates)
            break;
        if (std::ranges::all_of(taken, [&](const Shade &other) { return different(shade, other); }))
            taken.push_back(shade);
    }
    return taken;
}

std::vector<Shade> farApartFirst(std::span<const Shade> shades)
{
    std::vector<Shade> taken;
    for (int apart = farApart; apart >= hueReach; --apart)
        taken = selected(shades, std::move(taken), [apart](const Shade &one, const Shade &other) {
            return degreesBetween(one.place.hue, other.place.hue) >= apart;
        });
    return selected(shades, std::move(taken), differs);
}

std::vector<Shade> greys(std::span<const ColorCluster> clusters)
{
    std::vector<Shade> shades;
    for (const auto &[color, share] : clusters)
        shades.push_back(
            {oklchFromOklab(oklabFromRgb(color)), {color, share, shareWeight * share}});
    return selected(shades, {}, differs);
}
} // namespace

PicturePalette paletteOf(std::span<const QRgb> pixels)
{
    const std::vector<ColorCluster> clusters = quantized(pixels, clusterCount);
    std::vector<Shade> shades = farApartFirst(scored(clusters));
    PicturePalette palette;
    palette.isGrey = shades.empty() && !clusters.empty();
    if (palette.isGrey)
        shades = greys(clusters);
    for (const Shade &shade : shades)
        palette.candidates.push_back(shade.candidate);
    return palette;
}
