#include "HSColorPicker/ColorPickerClasses/HSBitmapCache.h"

#include <barrier>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <thread>

namespace
{
using Bitmap = std::shared_ptr<ANImageBitmapRep>;

TEST(HSBitmapCacheTest, SizesBelowAPixelGiveNothingAtOnce)
{
    HSBitmapCache cache;
    for (const double diameter : {0.0, -240.0, 0.4, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(cache.bitmapForDiameter(diameter, 2, 11, true), nullptr) << diameter;
    EXPECT_EQ(cache.bitmapForDiameter(240, -2, 11, true), nullptr);
}

TEST(HSBitmapCacheTest, SharesByPixelSizeAndPadding)
{
    HSBitmapCache cache;
    const Bitmap bitmap = cache.bitmapForDiameter(60, 2, 11, true);
    ASSERT_EQ(bitmap->bitmapSize(), (BMPoint{120, 120}));
    EXPECT_EQ(cache.bitmapForDiameter(60, 2, 11, true), bitmap);
    EXPECT_EQ(cache.bitmapForDiameter(60, 2, 11, false), bitmap) << "found, if not stored";
    EXPECT_EQ(cache.bitmapForDiameter(120, 1, 22, true), bitmap) << "the same pixels";
    EXPECT_EQ(cache.bitmapForDiameter(60.01, 2, 11, true), bitmap)
        << "one decimal tells sizes apart";
    EXPECT_NE(cache.bitmapForDiameter(60, 1, 11, true), bitmap);
    EXPECT_NE(cache.bitmapForDiameter(60, 2, 12, true), bitmap);
    EXPECT_NE(cache.bitmapForDiameter(70, 1, 11, false), cache.bitmapForDiameter(70, 1, 11, false));
}

TEST(HSBitmapCacheTest, GeneratesOnceHoweverManyAskAtOnce)
{
    constexpr int askers = 8;
    HSBitmapCache cache;
    for (int size = 300; size < 310; ++size) {
        std::vector<Bitmap> bitmaps(askers);
        std::barrier start(askers);
        std::vector<std::thread> threads;
        for (Bitmap &bitmap : bitmaps)
            threads.emplace_back([&] {
                start.arrive_and_wait();
                bitmap = cache.bitmapForDiameter(size, 1, 11, true);
            });
        for (std::thread &thread : threads)
            thread.join();
        ASSERT_NE(bitmaps.front(), nullptr);
        EXPECT_EQ(std::set<Bitmap>(bitmaps.begin(), bitmaps.end()).size(), 1U);
    }
}

TEST(HSBitmapCacheTest, HeavyEntriesPushOutOldOnes)
{
    HSBitmapCache cache(100);
    const Bitmap first = cache.bitmapForDiameter(40, 1, 11, true);
    const Bitmap second = cache.bitmapForDiameter(50, 1, 11, true);
    EXPECT_EQ(cache.bitmapForDiameter(40, 1, 11, true), first) << "90 fit; now 50 is the older";
    cache.bitmapForDiameter(60, 1, 11, true);
    EXPECT_EQ(cache.bitmapForDiameter(40, 1, 11, true), first);
    EXPECT_NE(cache.bitmapForDiameter(50, 1, 11, true), second) << "generated anew";
    EXPECT_EQ(second->image().pixel(25, 25), 0xFFFFFFFF) << "who holds a bitmap keeps it";

    const Bitmap heavy = cache.bitmapForDiameter(101, 1, 11, true);
    EXPECT_NE(cache.bitmapForDiameter(101, 1, 11, true), heavy) << "above the limit";
}

TEST(HSBitmapCacheTest, PreparesWhatAViewWillAskFor)
{
    const struct {
        void (*prepare)(HSBitmapCache &);
        double scale, padding;
    } cases[] = {
        {[](HSBitmapCache &cache) { cache.prepareForDiameter(60); }, 1, 11},
        {[](HSBitmapCache &cache) { cache.prepareForDiameterPadding(60, 7); }, 1, 7},
        {[](HSBitmapCache &cache) { cache.prepareForDiameterScale(60, 2); }, 2, 11},
        {[](HSBitmapCache &cache) { cache.prepareForDiameterScalePadding(60, 3, 5); }, 3, 5},
    };
    for (const auto &[prepare, scale, padding] : cases) {
        SCOPED_TRACE(testing::Message() << "scale " << scale << ", padding " << padding);
        HSBitmapCache cache;
        prepare(cache);
        // The background queue is serial: when this is done, so is what came before it.
        cache.prepareForDiameterScalePaddingInBackground(10, 1, 0, false);
        const Bitmap prepared = cache.bitmapForDiameter(60, scale, padding, false);
        EXPECT_EQ(cache.bitmapForDiameter(60, scale, padding, false), prepared)
            << "what is not stored is made anew each time";
    }
}

} // namespace
