#include "color/Quantizer.h"

#include "color/OKLab.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace
{
constexpr int bits = 5;
constexpr int levels = 1 << bits;
constexpr int mostRounds = 24; // of k-means, which nearly always ends by itself before

using Point = std::array<double, 3>; // OKLab

Point pointOf(QRgb color)
{
    const OKLab place = oklabFromRgb(color);
    return {place.lightness, place.a, place.b};
}

double squaredDistance(const Point &one, const Point &other)
{
    const double x = one[0] - other[0], y = one[1] - other[1], z = one[2] - other[2];
    return x * x + y * y + z * z;
}

/// Points and how many pixels are at them.
struct Moments {
    double weight = 0.0;
    Point sum{};

    void add(double pixels, const Point &point)
    {
        weight += pixels;
        for (size_t axis = 0; axis < 3; ++axis)
            sum[axis] += pixels * point[axis];
    }
    void add(const Moments &other)
    {
        weight += other.weight;
        for (size_t axis = 0; axis < 3; ++axis)
            sum[axis] += other.sum[axis];
    }
    Point mean() const { return {sum[0] / weight, sum[1] / weight, sum[2] / weight}; }
    /// What the sum of the squared distances to the mean lacks to the sum of squares.
    double explained() const { return weight > 0.0 ? squaredDistance(sum, {}) / weight : 0.0; }
};

Moments difference(const Moments &whole, const Moments &part)
{
    Moments rest = whole;
    rest.weight -= part.weight;
    for (size_t axis = 0; axis < 3; ++axis)
        rest.sum[axis] -= part.sum[axis];
    return rest;
}

/// The pixels of one slot of the histogram.
struct Bin {
    std::array<std::uint8_t, 3> slot;
    double weight;
    Point point; // of their mean
};

std::vector<Bin> binsOf(std::span<const QRgb> pixels)
{
    struct Sums {
        std::uint32_t count = 0;
        std::uint64_t red = 0, green = 0, blue = 0;
    };
    std::vector<Sums> histogram(size_t(levels) * levels * levels);
    std::vector<std::uint16_t> used; // in the order in which they come
    for (const QRgb pixel : pixels) {
        const auto slot = [](int channel) { return unsigned(channel) >> (8 - bits); };
        const unsigned index =
            (slot(qRed(pixel)) * levels + slot(qGreen(pixel))) * levels + slot(qBlue(pixel));
        Sums &sums = histogram[index];
        if (sums.count++ == 0)
            used.push_back(std::uint16_t(index));
        sums.red += unsigned(qRed(pixel));
        sums.green += unsigned(qGreen(pixel));
        sums.blue += unsigned(qBlue(pixel));
    }
    std::ranges::sort(used); // the order of the pixels must not matter
    std::vector<Bin> bins;
    bins.reserve(used.size());
    for (const std::uint16_t index : used) {
        const Sums &sums = histogram[index];
        const auto mean = [&sums](std::uint64_t sum) {
            return int((sum + sums.count / 2) / sums.count);
        };
        const QRgb color = qRgb(mean(sums.red), mean(sums.green), mean(sums.blue));
        bins.push_back({{std::uint8_t(index / levels / levels),
                         std::uint8_t(index / levels % levels), std::uint8_t(index % levels)},
                        double(sums.count),
                        pointOf(color)});
    }
    return bins;
}

/// A part of the bins, which lie side by side.
struct Box {
    std::span<Bin> bins;
    Moments moments;
    double spread; // sum of the squared distances to the mean

    explicit Box(std::span<Bin> of) : bins(of)
    {
        double squares = 0.0;
        for (const Bin &bin : bins) {
            moments.add(bin.weight, bin.point);
            squares += bin.weight * squaredDistance(bin.point, {});
        }
        // What is left of a difference of nearly equal sums is no spread.
        spread = bins.size() > 1 ? std::max(squares - moments.explained(), 0.0) : 0.0;
    }
};

/// Where a box is best cut: after that slot of that channel.
struct Cut {
    size_t channel = 0;
    int slot = -1; // none
    double explained = 0.0;
};

Cut bestCut(const Box &box)
{
    Cut best;
    for (size_t channel = 0; channel < 3; ++channel) {
        std::array<Moments, levels> marginal;
        for (const Bin &bin : box.bins)
            marginal[bin.slot[channel]].add(bin.weight, bin.point);
        Moments below;
        for (int slot = 0; slot < levels - 1; ++slot) {
            below.add(marginal[size_t(slot)]);
            if (below.weight <= 0.0)
                continue;
            if (below.weight >= box.moments.weight)
                break;
            const double explained = below.explained() + difference(box.moments, below).explained();
            if (best.slot < 0 || explained > best.explained)
                best = {channel, slot, explained};
        }
    }
    return best;
}

/// The means of the boxes that Wu's cuts make.
std::vector<Point> startingPoints(std::vector<Bin> &bins, int count)
{
    std::vector<Box> boxes{Box(bins)};
    while (int(boxes.size()) < count) {
        const auto widest = std::ranges::max_element(boxes, {}, &Box::spread);
        const Cut cut = widest->spread > 0.0 ? bestCut(*widest) : Cut();
        if (cut.slot < 0)
            break;
        const std::span<Bin> all = widest->bins;
        const auto upper = std::stable_partition(all.begin(), all.end(), [&cut](const Bin &bin) {
            return bin.slot[cut.channel] <= cut.slot;
        });
        *widest = Box({all.begin(), upper});
        boxes.emplace_back(std::span(upper, all.end()));
    }
    std::vector<Point> points;
    points.reserve(boxes.size());
    for (const Box &box : boxes)
        points.push_back(box.moments.mean());
    return points;
}

size_t nearest(const Point &point, std::span<const Point> centres)
{
    size_t best = 0;
    double least = std::numeric_limits<double>::max();
    for (size_t centre = 0; centre < centres.size(); ++centre) {
        const double distance = squaredDistance(point, centres[centre]);
        if (distance < least) {
            least = distance;
            best = centre;
        }
    }
    return best;
}

/// Moves the centres to the means of what is nearest to them, until nothing changes; returns what
/// is there then.
std::vector<Moments> clustersAround(std::vector<Point> centres, std::span<const Bin> bins)
{
    std::vector<Moments> clusters;
    std::vector<size_t> owners(bins.size(), centres.size());
    for (int round = 0; round < mostRounds; ++round) {
        bool changed = false;
        clusters.assign(centres.size(), {});
        for (size_t bin = 0; bin < bins.size(); ++bin) {
            const size_t owner = nearest(bins[bin].point, centres);
            changed |= owner != owners[bin];
            owners[bin] = owner;
            clusters[owner].add(bins[bin].weight, bins[bin].point);
        }
        if (!changed)
            break;
        for (size_t centre = 0; centre < centres.size(); ++centre)
            if (clusters[centre].weight > 0.0)
                centres[centre] = clusters[centre].mean();
    }
    return clusters;
}
} // namespace

std::vector<ColorCluster> quantized(std::span<const QRgb> pixels, int count)
{
    if (pixels.empty() || count <= 0)
        return {};
    std::vector<Bin> bins = binsOf(pixels);
    std::vector<ColorCluster> found;
    for (const Moments &cluster : clustersAround(startingPoints(bins, count), bins)) {
        if (cluster.weight <= 0.0)
            continue;
        const auto [lightness, a, b] = cluster.mean();
        found.push_back({rgbFromOklab({lightness, a, b}), cluster.weight / double(pixels.size())});
    }
    std::ranges::sort(found, [](const ColorCluster &one, const ColorCluster &other) {
        return one.share != other.share ? one.share > other.share : one.color < other.color;
    });
    return found;
}

double meanError(std::span<const QRgb> pixels, std::span<const ColorCluster> clusters)
{
    if (pixels.empty() || clusters.empty())
        return 0.0;
    std::vector<OKLab> centres;
    for (const ColorCluster &cluster : clusters)
        centres.push_back(oklabFromRgb(cluster.color));
    double sum = 0.0;
    for (const QRgb pixel : pixels) {
        const OKLab place = oklabFromRgb(pixel);
        double least = std::numeric_limits<double>::max();
        for (const OKLab &centre : centres)
            least = std::min(least, distanceBetween(place, centre));
        sum += least;
    }
    return sum / double(pixels.size());
}
