#include "bitmap/BitmapContextRep.h"

#include "bitmap/CGContextCreator.h"
#include "bitmap/Pictures.h"

using namespace Pictures;

TEST(BitmapContextRepTest, RefusesASideOfZeroOnly)
{
    EXPECT_EQ(BitmapContextRep::initWithSize({0, 10}), nullptr);
    EXPECT_EQ(BitmapContextRep::initWithSize({10, 0}), nullptr);
    testing::internal::CaptureStderr();
    const auto negative = BitmapContextRep::initWithSize({-3, 10});
    const auto imageless = BitmapContextRep::initWithImage(QImage());
    testing::internal::GetCapturedStderr();
    for (const auto &rep : {negative.get(), imageless.get()}) {
        ASSERT_NE(rep, nullptr);
        EXPECT_EQ(rep->bitmapSize(), (BMPoint{0, 0}));
        EXPECT_TRUE(rep->CGImage().isNull());
        const Raw raw{1, 2, 3, 4};
        rep->setRawPixel(raw.data(), {0, 0});
        EXPECT_EQ(rawAt(*rep, 0, 0), Raw{});
    }
}

TEST(BitmapContextRepTest, KeepsRawPixelsAlphaFirstTopRowFirst)
{
    const auto rep = BitmapContextRep::initWithSize({3, 2});
    const Raw raw{10, 20, 30, 40};
    rep->setRawPixel(raw.data(), {1, 1});
    const std::uint8_t *stored = rep->bitmapData() + (1 + 1 * 3) * 4;
    EXPECT_EQ((Raw{stored[0], stored[1], stored[2], stored[3]}), (Raw{40, 10, 20, 30}));
    EXPECT_EQ(rawAt(*rep, 1, 1), raw);
    EXPECT_EQ(rep->CGImage().constScanLine(1)[4 * 1 + 3], 40);
    EXPECT_EQ(rawAt(*rep, 1, 0), Raw{});
}

TEST(BitmapContextRepTest, TakesASnapshotOnlyWhenSomethingMayHaveChanged)
{
    const auto rep = BitmapContextRep::initWithImage(quarters(4, 4));
    const QImage first = rep->CGImage();
    EXPECT_EQ(rep->CGImage().cacheKey(), first.cacheKey());

    rawAt(*rep, 0, 0); // a read counts as a change
    const QImage second = rep->CGImage();
    EXPECT_NE(second.cacheKey(), first.cacheKey());
    EXPECT_EQ(second, first);

    const Raw raw{255, 255, 255, 255};
    rep->setRawPixel(raw.data(), {0, 0});
    EXPECT_EQ(rep->CGImage().pixel(0, 0), white);
    EXPECT_EQ(first.pixel(0, 0), red) << "an old snapshot changed";

    // Behind the rep's back nothing is noticed until it is told.
    rep->context().drawImage(quarters(4, 4), QRectF(0, 0, 4, 4));
    EXPECT_EQ(rep->CGImage().pixel(0, 0), white);
    rep->setNeedsUpdate(true);
    EXPECT_EQ(rep->CGImage().pixel(0, 0), red);
}

TEST(BitmapContextRepTest, OwnsThePixelsOfItsContext)
{
    auto rep = BitmapContextRep::initWithImage(quarters(4, 4));
    const QImage before = rep->CGImage();
    const std::weak_ptr<std::uint8_t[]> oldBlock = rep->context().data();
    rep->setContext(rep->context());
    EXPECT_EQ(rep->CGImage().cacheKey(), before.cacheKey()) << "its own context is no change";

    CGContext context = CGContextCreator::newARGBBitmapContextWithSize({2, 3});
    const std::weak_ptr<std::uint8_t[]> newBlock = context.data();
    rep->setContext(std::move(context));
    EXPECT_TRUE(oldBlock.expired());
    EXPECT_EQ(rep->bitmapData(), newBlock.lock().get());
    EXPECT_EQ(rep->CGImage().size(), QSize(2, 3));
    EXPECT_EQ(before.pixel(0, 0), red) << "a snapshot outlives its context";

    rep.reset();
    EXPECT_TRUE(newBlock.expired());
}
