#include "bitmap/ANImageBitmapRep.h"

#include "bitmap/Pictures.h"

#include <cmath>
#include <limits>

namespace
{
using namespace Pictures;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(ANImageBitmapRepTest, StoresPixelsPremultipliedAndRounded)
{
    const struct {
        BMPixel pixel;
        Raw raw;
    } cases[] = {
        {{1, 1, 1, 1}, {255, 255, 255, 255}},
        {{0.5, 0, 0, 1}, {128, 0, 0, 255}},
        {{1, 0, 0, 0.5}, {128, 0, 0, 128}},
        {{1, 0.5, 0.25, 0}, {0, 0, 0, 0}},
        {{notANumber, notANumber, notANumber, 0}, {0, 0, 0, 0}},
        {{1.5 / 255, 0.49999 / 255, -0.5 / 255, 1}, {2, 0, 255, 255}}, // halves go away from zero
        {{256.0 / 255, 2, -1, 1}, {0, 254, 1, 255}},                   // the low eight bits
        {{1e300, -1e300, 0, 1}, {255, 0, 0, 255}},                     // the ends of 32 bits
    };
    const auto rep = ANImageBitmapRep::initWithSize({2, 1});
    for (const auto &[pixel, raw] : cases) {
        rep->setPixel(pixel, {1, 0});
        EXPECT_EQ(rawAt(*rep, 1, 0), raw) << pixel.red << ' ' << pixel.green << ' ' << pixel.alpha;
    }
}

TEST(ANImageBitmapRepTest, ReadsPixelsWithoutTheirAlpha)
{
    const auto rep = ANImageBitmapRep::imageBitmapRepWithCGSize({1.5, 0.6});
    ASSERT_EQ(rep->bitmapSize(), (BMPoint{2, 1}));
    rep->setPixel({1, 0, 0.5, 0.5}, {0, 0});
    EXPECT_EQ(rep->getPixelAtPoint({0, 0}),
              (BMPixel{1, 0, 64 / 255.0 / (128 / 255.0), 128 / 255.0}));
    EXPECT_TRUE(std::isnan(rep->getPixelAtPoint({1, 0}).red)) << "nothing divided by nothing";
}

TEST(ANImageBitmapRepTest, ChangesAllPixels)
{
    const auto rep = ANImageBitmapRep::initWithSize({2, 2});
    rep->setPixel({0.6, 0.2, 0, 1}, {0, 0});
    rep->setPixel({1, 0, 0, 0.5}, {1, 1});
    rep->setBrightness(2.0);
    EXPECT_EQ(rawAt(*rep, 0, 0), (Raw{255, 102, 0, 255}));
    EXPECT_EQ(rawAt(*rep, 1, 1), (Raw{128, 0, 0, 128}));
    EXPECT_EQ(rawAt(*rep, 1, 0), Raw{});
    rep->CGImage(); // a snapshot that is not to be the last
    rep->invertColors();
    EXPECT_EQ(rep->CGImage().pixel(0, 0), 0xFF0099FF);
    EXPECT_EQ(rawAt(*rep, 0, 0), (Raw{0, 153, 255, 255}));
    EXPECT_EQ(rawAt(*rep, 1, 1), (Raw{127, 255, 255, 128})) << "colours may pass alpha";
    EXPECT_EQ(rawAt(*rep, 0, 1), (Raw{255, 255, 255, 0}));
    rep->setPixel({0.5, 0, 0, 1}, {0, 0});
    rep->setBrightness(-1.0); // -128 keeps its low eight bits
    EXPECT_EQ(rawAt(*rep, 0, 0)[0], 128);
}

TEST(ANImageBitmapRepTest, QualityCostsDetailButNotSize)
{
    const auto rep = ANImageBitmapRep::initWithSize({100, 100});
    for (int i = 0; i < 100; ++i)
        rep->setPixel({1, 1, 1, 1}, {i, i});
    const QImage sharp = rep->CGImage();
    rep->setQuality(1.0);
    EXPECT_EQ(rep->CGImage().cacheKey(), sharp.cacheKey());
    rep->setQuality(0.5);
    EXPECT_EQ(rep->bitmapSize(), (BMPoint{100, 100}));
    EXPECT_LT(qAlpha(rep->CGImage().pixel(50, 50)), 200);
    EXPECT_GT(qAlpha(rep->CGImage().pixel(50, 51)), 40);

    testing::internal::CaptureStderr();
    rep->setQuality(0.0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed to create bitmap!\n");
    EXPECT_EQ(rep->bitmapSize(), (BMPoint{100, 100}));
    EXPECT_EQ(qAlpha(rep->CGImage().pixel(50, 50)), 0);
}

TEST(ANImageBitmapRepTest, CopiesHaveTheirOwnPixels)
{
    const auto rep = quartersRep(6, 4);
    EXPECT_TRUE(rep->baseClasses().empty());
    rep->setSize({6, 4}); // makes the manipulators, which a copy must not share
    const auto copy = rep->copyWithZone();
    EXPECT_EQ(copy->CGImage(), rep->CGImage());
    EXPECT_TRUE(copy->baseClasses().empty());
    copy->invertColors();
    EXPECT_EQ(rep->CGImage().pixel(0, 0), red);

    testing::internal::CaptureStderr();
    rep->setSize({0, 4});
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(rep->copyWithZone(), nullptr);
    EXPECT_TRUE(rep->image().isNull());
}

std::any call(InvocationTarget &target, const char *operation, std::vector<std::any> arguments = {})
{
    Invocation invocation{operation, std::move(arguments), {}};
    target.invoke(invocation);
    return invocation.result;
}

TEST(ANImageBitmapRepTest, RoutesCallsByNameBothWays)
{
    const auto rep = quartersRep(4, 2);
    call(*rep, "rotate", {90.0});
    EXPECT_EQ(rep->bitmapSize(), (BMPoint{2, 4}));
    // The crop manipulator stands in for the rep: its own operations, and those of its siblings.
    BitmapContextManipulator &crop = *rep->baseClasses()[0];
    EXPECT_EQ(std::any_cast<BMPoint>(call(crop, "bitmapSize")), (BMPoint{2, 4}));
    call(crop, "setSize", {BMPoint{8, 8}});
    EXPECT_EQ(crop.bitmapSize(), (BMPoint{8, 8}));
    const std::any image = call(*rep, "croppedImageWithFrame", {QRectF(0, 0, 3, 1)});
    EXPECT_EQ(std::any_cast<QImage>(image).size(), QSize(3, 1));

    EXPECT_THROW(call(*rep, "flip"), UnrecognisedOperation);
    EXPECT_THROW(call(crop, "flip"), UnrecognisedOperation);
    EXPECT_THROW(call(*rep, "rotate", {BMPoint{1, 1}}), std::bad_any_cast);
    EXPECT_THROW(call(*rep, "rotate"), std::invalid_argument);
}
} // namespace
