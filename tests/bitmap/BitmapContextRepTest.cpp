#include "bitmap/BitmapContextRep.h"

#include "bitmap/Pictures.h"

using namespace Pictures;

TEST(BitmapContextRepTest, KeepsRawPixelsAlphaFirstTopRowFirst)
{
    const Raw raw{10, 20, 30, 40};
    const auto rep = BitmapContextRep::initWithSize({3, 2});
    rep->setRawPixel(raw.data(), {1, 1});
    const std::uint8_t *stored = rep->bitmapData() + (1 + 1 * 3) * 4;
    EXPECT_EQ((Raw{stored[0], stored[1], stored[2], stored[3]}), (Raw{40, 10, 20, 30}));
    EXPECT_EQ(rawAt(*rep, 1, 1), raw);
    EXPECT_EQ(qAlpha(rep->CGImage().pixel(1, 1)), 40);
    EXPECT_EQ(rawAt(*rep, 1, 0), Raw{});

    EXPECT_EQ(BitmapContextRep::initWithSize({0, 10}), nullptr);
    EXPECT_EQ(BitmapContextRep::initWithSize({10, 0}), nullptr);
    testing::internal::CaptureStderr();
    const auto negative = BitmapContextRep::initWithSize({-3, 10}); // has no pixels
    testing::internal::GetCapturedStderr();
    negative->setRawPixel(raw.data(), {0, 0});
    EXPECT_EQ(rawAt(*negative, 0, 0), Raw{});
    EXPECT_TRUE(negative->CGImage().isNull());
}

TEST(BitmapContextRepTest, TakesASnapshotOnlyWhenSomethingMayHaveChanged)
{
    const auto rep = quartersRep(4, 4);
    const QImage first = rep->CGImage();
    EXPECT_EQ(rep->CGImage().cacheKey(), first.cacheKey());
    rep->setContext(rep->context()); // no change, and neither are these
    rep->setQuality(1.0);
    rep->rotate(0.0);
    EXPECT_EQ(rep->imageByRotating(0.0).cacheKey(), first.cacheKey());
    rawAt(*rep, 0, 0); // a read counts as one
    const QImage second = rep->CGImage();
    EXPECT_NE(second.cacheKey(), first.cacheKey());
    EXPECT_EQ(second, first);

    const Raw raw{255, 255, 255, 255};
    rep->setRawPixel(raw.data(), {0, 0});
    EXPECT_EQ(rep->croppedImageWithFrame(QRectF(0, 0, 4, 4)).pixel(0, 0), white);
    EXPECT_EQ(rep->CGImage().pixel(0, 0), white);
    EXPECT_EQ(first.pixel(0, 0), red) << "an old snapshot changed";

    // Behind the rep's back nothing is noticed until it is told, not by the manipulators either.
    rep->context().drawImage(quarters(4, 4), QRectF(0, 0, 4, 4));
    EXPECT_EQ(rep->CGImage().pixel(0, 0), white);
    EXPECT_EQ(rep->croppedImageWithFrame(QRectF(0, 0, 4, 4)), rep->CGImage());
    rep->setNeedsUpdate(true);
    EXPECT_EQ(rep->CGImage().pixel(0, 0), red);
}
