#include "color/Quantizer.h"

#include "color/OKLab.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>

namespace
{
/// Clouds of colours around a few, as in a photograph.
std::vector<QRgb> clouds(unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<QRgb> centres(2 + random() % 8);
    for (QRgb &centre : centres)
        centre = random();
    std::vector<QRgb> pixels(4000);
    for (QRgb &pixel : pixels) {
        const QRgb centre = centres[random() % centres.size()];
        const auto near = [&random](int channel) {
            return std::clamp(channel + int(random() % 61) - 30, 0, 255);
        };
        pixel = qRgb(near(qRed(centre)), near(qGreen(centre)), near(qBlue(centre)));
    }
    return pixels;
}
} // namespace

TEST(Quantizer, FindsFlatColorsToTheBitWhateverTheOrder)
{
    const std::map<QRgb, int> flat = {{0xFF102030, 500},
                                      {0xFF8EEBB0, 300},
                                      {0xFFFFFFFF, 150},
                                      {0xFFDF7100, 40},
                                      {0xFF000000, 10}};
    std::vector<QRgb> pixels;
    for (const auto &[color, count] : flat)
        pixels.insert(pixels.end(), size_t(count), color);
    std::shuffle(pixels.begin(), pixels.end(), std::mt19937(3));
    for (const int count : {5, 6, 64}) {
        const auto clusters = quantized(pixels, count);
        ASSERT_EQ(clusters.size(), flat.size());
        for (size_t i = 0; i < clusters.size(); ++i) {
            EXPECT_EQ(clusters[i].share, flat.at(clusters[i].color) / 1000.0);
            EXPECT_TRUE(i == 0 || clusters[i].share < clusters[i - 1].share);
        }
        EXPECT_EQ(meanError(pixels, clusters), 0.0);
    }
    EXPECT_EQ(quantized(pixels, 2).size(), 2U);
    EXPECT_TRUE(quantized(pixels, 0).empty());
    EXPECT_TRUE(quantized({}, 6).empty());
}

TEST(Quantizer, PutsEveryColorAmongThoseNearestToIt)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        const std::vector<QRgb> pixels = clouds(seed);
        const auto clusters = quantized(pixels, 6);
        ASSERT_EQ(clusters.size(), 6U);
        std::map<QRgb, int> counts;
        for (const QRgb pixel : pixels)
            ++counts[std::ranges::min_element(clusters, {}, [pixel](const ColorCluster &cluster) {
                         return distanceBetween(oklabFromRgb(pixel), oklabFromRgb(cluster.color));
                     })->color];
        for (const auto &[color, share] : clusters)
            EXPECT_NEAR(counts[color] / double(pixels.size()), share, 0.02) << seed;
        auto backwards = pixels;
        std::ranges::reverse(backwards);
        const auto again = quantized(backwards, 6);
        EXPECT_TRUE(
            std::ranges::equal(again, clusters, {}, &ColorCluster::color, &ColorCluster::color))
            << seed;
        EXPECT_LT(meanError(pixels, quantized(pixels, 12)), meanError(pixels, clusters)) << seed;
    }
}
