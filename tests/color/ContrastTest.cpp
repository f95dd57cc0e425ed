#include "color/Contrast.h"

#include "color/Compositing.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

TEST(Contrast, HasThePublishedRatios)
{
    const struct {
        QRgb one, other;
        double ratio;
    } published[] = {
        {0xFF000000, 0xFFFFFFFF, 21.0},  {0xFF777777, 0xFFFFFFFF, 4.478},
        {0xFF767676, 0xFFFFFFFF, 4.542}, {0xFF949494, 0xFFFFFFFF, 3.03},
        {0xFFFF0000, 0xFFFFFFFF, 3.998}, {0xFF0000FF, 0xFFFFFFFF, 8.592},
        {0xFF123456, 0xFF123456, 1.0},
    };
    for (const auto &[one, other, ratio] : published) {
        EXPECT_NEAR(contrastRatio(one, other), ratio, 0.005) << std::hex << one;
        EXPECT_EQ(contrastRatio(one, other), contrastRatio(other, one));
    }
}

TEST(Contrast, TheNearestReadableColorReadsAndNoneIsNearer)
{
    std::mt19937 random(7);
    int found = 0;
    for (int round = 0; round < 2000; ++round) {
        const QRgb color = (random() & 0xFFFFFF) | (random() % 2 ? 0xFF000000 : 0xC0000000);
        const QRgb grounds[] = {QRgb(random() | 0xFF000000), QRgb(random() | 0xFF000000)};
        const double ratio = random() % 2 ? 4.5 : 3.0;
        const std::span<const QRgb> used(grounds, 1 + random() % 2);
        const auto reads = [&](QRgb candidate) {
            return std::ranges::all_of(used, [&](QRgb ground) {
                return contrastRatio(composited(candidate, ground), ground) >= ratio;
            });
        };
        const OKLCh start = oklchFromOklab(oklabFromRgb(color));
        for (const Direction direction : {Direction::Lighter, Direction::Darker}) {
            const auto nearest = nearestReadable(color, direction, used, ratio);
            const double sign = direction == Direction::Lighter ? 1.0 : -1.0;
            const OKLCh end = oklchFromOklab(oklabFromRgb(
                nearest.value_or(direction == Direction::Lighter ? 0xFFFFFFFF : 0xFF000000)));
            if (nearest) {
                ++found;
                ASSERT_TRUE(reads(*nearest)) << std::hex << color;
                ASSERT_EQ(qAlpha(*nearest), qAlpha(color));
                ASSERT_GT(sign * (end.lightness - start.lightness), -0.003) << std::hex << color;
                // Of the same hue and chroma, as near as bytes come to them.
                const QRgb same = rgbFromOklch({end.lightness, start.chroma, start.hue});
                ASSERT_LE(std::abs(qRed(same) - qRed(*nearest)), 4) << std::hex << color;
                ASSERT_LE(std::abs(qGreen(same) - qGreen(*nearest)), 4) << std::hex << color;
                ASSERT_LE(std::abs(qBlue(same) - qBlue(*nearest)), 4) << std::hex << color;
            }
            // Four in a row: a stretch narrower than the search's steps may be passed over.
            int run = 0;
            for (double way = 0.004; way < sign * (end.lightness - start.lightness) - 0.004;
                 way += 0.002) {
                const QRgb candidate =
                    rgbFromOklch({start.lightness + sign * way, start.chroma, start.hue});
                const QRgb seen = (candidate & 0xFFFFFF) | (color & 0xFF000000);
                run = seen != nearest && reads(seen) ? run + 1 : 0;
                ASSERT_LT(run, 4) << std::hex << color << " could stop at " << candidate;
            }
        }
    }
    EXPECT_GT(found, 1500);
    // On any ground black or white reads; lighter than white there is nothing.
    const QRgb white[] = {0xFFFFFFFF};
    EXPECT_FALSE(nearestReadable(0xFFEEEEEE, Direction::Lighter, white, 4.5));
    EXPECT_EQ(nearestReadable(0xFFEEEEEE, Direction::Darker, white, 4.5), 0xFF767676);
}
