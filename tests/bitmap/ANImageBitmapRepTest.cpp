#include "bitmap/ANImageBitmapRep.h"

#include "bitmap/Pictures.h"

#include <cmath>

namespace
{
using namespace Pictures;

TEST(ANImageBitmapRepTest, StoresPixelsPremultipliedAndRounded)
{
    const std::pair<BMPixel, Raw> cases[] = {
        {{0.5, 0, 0, 1}, {128, 0, 0, 255}},
        {{std::nan(""), 1, 1, 0}, {0, 0, 0, 0}},
        {{1.5 / 255, 0.49999 / 255, -0.5 / 255, 1}, {2, 0, 255, 255}}, // halves go away from zero
        {{256.0 / 255, 2, -1, 1}, {0, 254, 1, 255}},                   // the low eight bits
        {{1e300, -1e300, 0, 1}, {255, 0, 0, 255}},                     // the ends of 32 bits
        {{1, 0.25, 0.5, 0.5}, {128, 32, 64, 128}},
    };
    const auto rep = ANImageBitmapRep::imageBitmapRepWithCGSize({1.5, 0.6});
    ASSERT_EQ(rep->bitmapSize(), (BMPoint{2, 1})); // rounded as well
    for (const auto &[pixel, raw] : cases) {
        rep->setPixel(pixel, {1, 0});
        EXPECT_EQ(rawAt(*rep, 1, 0), raw) << pixel.red << ' ' << pixel.green << ' ' << pixel.alpha;
    }
    EXPECT_EQ(rep->getPixelAtPoint({1, 0}),
              (BMPixel{1, 32 / 255.0 / (128 / 255.0), 64 / 255.0 / (128 / 255.0), 128 / 255.0}));
    EXPECT_TRUE(std::isnan(rep->getPixelAtPoint({0, 0}).red)) << "nothing divided by nothing";
}

TEST(ANImageBitmapRepTest, ChangesAllPixels)
{
    const auto rep = ANImageBitmapRep::initWithSize({2, 2});
    rep->setPixel({0.6, 0.2, 0, 1}, {0, 0});
    rep->setPixel({1, 0, 0, 0.5}, {1, 1});
    rep->setBrightness(2.0);
    EXPECT_EQ(rawAt(*rep, 0, 0), (Raw{255, 102, 0, 255}));
    EXPECT_EQ(rawAt(*rep, 1, 1), (Raw{128, 0, 0, 128}));
    rep->CGImage(); // a snapshot that is not to be the last
    rep->invertColors();
    EXPECT_EQ(rep->CGImage().pixel(0, 0), 0xFF0099FF);
    EXPECT_EQ(rawAt(*rep, 1, 1), (Raw{127, 255, 255, 128})) << "colours may pass alpha";
}

TEST(ANImageBitmapRepTest, QualityCostsDetailButNotSize)
{
    const auto rep = quartersRep(50, 50);
    rep->setQuality(0.5); // to 25 and back
    EXPECT_EQ(rep->bitmapSize(), (BMPoint{50, 50}));
    EXPECT_EQ(corners(rep->CGImage()), coloured);
    EXPECT_NE(rep->CGImage().pixel(24, 0), red) << "a sharp seam";

    const auto point = ANImageBitmapRep::initWithImage(quarters(1, 1));
    point->setQuality(0.5); // half a pixel is one
    EXPECT_EQ(point->CGImage().pixel(0, 0), white);
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
    EXPECT_TRUE(rep->baseClasses().empty());
    call(*rep, "rotate", {90.0});
    EXPECT_EQ(rep->bitmapSize(), (BMPoint{2, 4}));
    int asked = 0;
    for (const char *operation : {"cropFrame", "setSize", "rotate", "drawImage"}) {
        Invocation without{operation, {}, {}}; // its arguments, which who has it will miss
        EXPECT_THROW(rep->baseClasses().at(asked++)->answer(without), std::invalid_argument);
    }

    // A manipulator stands in for the rep: its own operations, and those of its siblings.
    BitmapContextManipulator &crop = *rep->baseClasses()[0];
    call(crop, "setSize", {BMPoint{8, 8}});
    EXPECT_EQ(std::any_cast<BMPoint>(call(crop, "bitmapSize")), (BMPoint{8, 8}));

    EXPECT_THROW(call(*rep, "flip"), UnrecognisedOperation);
    EXPECT_THROW(call(crop, "flip"), UnrecognisedOperation);
    EXPECT_THROW(call(*rep, "rotate", {BMPoint{1, 1}}), std::bad_any_cast);
}

TEST(ANImageBitmapRepTest, CopiesHaveTheirOwnPixels)
{
    const auto rep = quartersRep(6, 4);
    rep->setSize({6, 4}); // makes the manipulators, which a copy must not share
    const auto copy = std::any_cast<std::shared_ptr<ANImageBitmapRep>>(
        call(*rep->baseClasses()[0], "copyWithZone"));
    EXPECT_EQ(copy->CGImage(), rep->CGImage());
    EXPECT_TRUE(copy->baseClasses().empty());
    copy->invertColors();
    EXPECT_EQ(rep->CGImage().pixel(0, 0), red);
    rep->setContext({});
    EXPECT_EQ(rep->bitmapData(), nullptr);
    EXPECT_EQ(rep->copyWithZone(), nullptr);
}
} // namespace
