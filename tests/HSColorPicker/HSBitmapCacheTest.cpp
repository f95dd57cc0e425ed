#include "HSColorPicker/ColorPickerClasses/HSBitmapCache.h"

#include <barrier>
#include <gtest/gtest.h>
#include <set>
#include <thread>

namespace
{
using Bitmap = std::shared_ptr<ANImageBitmapRep>;

TEST(HSBitmapCacheTest, SharesByPixelSizeAndPadding)
{
    HSBitmapCache cache;
    const Bitmap bitmap = cache.bitmapForDiameter(60, 2, 11, true);
    EXPECT_EQ(bitmap->bitmapSize(), (BMPoint{120, 120}));
    EXPECT_EQ(cache.bitmapForDiameter(60, 2, 11, false), bitmap) << "found, if not stored";
    EXPECT_EQ(cache.bitmapForDiameter(120.01, 1, 22.01, true), bitmap) << "the same to a decimal";
    EXPECT_NE(cache.bitmapForDiameter(120.2, 1, 22, true), bitmap);
    EXPECT_NE(cache.bitmapForDiameter(120, 1, 22.2, true), bitmap);
    EXPECT_NE(cache.bitmapForDiameter(70, 1, 11, false), cache.bitmapForDiameter(70, 1, 11, false));
    EXPECT_EQ(cache.bitmapForDiameter(240, -2, 11, true), nullptr);
    for (int size = 300; size < 330; ++size)
        cache.bitmapForDiameter(size, 1, 11, true);
    EXPECT_EQ(cache.bitmapForDiameter(60, 2, 11, true), bitmap) << "kept, however many come";
}

TEST(HSBitmapCacheTest, GeneratesOnceHoweverManyAskAtOnce)
{
    constexpr int askers = 8;
    HSBitmapCache cache;
    for (int size = 300; size < 310; ++size) {
        std::vector<Bitmap> bitmaps(askers);
        std::barrier start(askers);
        std::vector<std::jthread> threads;
        for (Bitmap &bitmap : bitmaps)
            threads.emplace_back([&] {
                start.arrive_and_wait();
                bitmap = cache.bitmapForDiameter(size, 1, 11, true);
            });
        threads.clear(); // once they have ended
        ASSERT_NE(bitmaps.front(), nullptr);
        EXPECT_EQ(std::set<Bitmap>(bitmaps.begin(), bitmaps.end()).size(), 1U);
    }
}

TEST(HSBitmapCacheTest, HeavyEntriesPushOutOldOnesUnderALimit)
{
    HSBitmapCache cache(100);
    const Bitmap first = cache.bitmapForDiameter(40, 1, 11, true);
    const Bitmap second = cache.bitmapForDiameter(50, 1, 11, true);
    EXPECT_EQ(cache.bitmapForDiameter(40, 1, 11, true), first) << "90 fit; now 50 is the older";
    cache.bitmapForDiameter(60, 1, 11, true);
    EXPECT_NE(cache.bitmapForDiameter(50, 1, 11, true), second) << "generated anew";
}
} // namespace
