// Holds the vector kernel against the plain reference: every size from 1 to 700, three paddings,
// every instruction set that this machine has.

#include "HSColorPicker/ColorPickerClasses/HSWheelKernel.h"

#include "HSColorPicker/ColorPickerClasses/HSWheelReference.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

namespace
{
// Longer than any vector, so that a store beyond the picture lands here.
constexpr std::size_t guardSize = 256;
constexpr std::uint8_t guardByte = 0xA5;

// The value that the reference rounded to the byte at this offset.
double unroundedByte(std::size_t offset, int side, double padding)
{
    const int pixel = int(offset / 4);
    const BMPixel colour = HSWheelPixel(pixel % side, pixel / side, side, padding);
    const double channels[] = {colour.alpha, colour.red, colour.green, colour.blue};
    return channels[offset % 4] * 255.0;
}

// All instruction sets, one size.
void expectWheels(int side, double padding)
{
    const std::size_t rowSize = std::size_t(side) * 4;
    std::vector<std::uint8_t> expected(rowSize * side);
    HSFillWheelScalar(expected.data(), side, side, padding);
    for (const HSWheelVectors &vectors : HSWheelVectorsOfThisMachine()) {
        SCOPED_TRACE(testing::Message() << "side " << side << ", padding " << padding << ", "
                                        << vectors.instructionSet);
        std::vector<std::uint8_t> actual(expected.size() + guardSize, guardByte);
        HSFillWheel(actual.data(), side, padding, vectors);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            // Almost every row is equal as a whole, which is quick to see.
            if (i % rowSize == 0 && std::memcmp(&actual[i], &expected[i], rowSize) == 0)
                i += rowSize - 1;
            else if (actual[i] != expected[i]) { // only what lies within 0.001 of a half may differ
                ASSERT_NEAR(actual[i], unroundedByte(i, side, padding), 0.501) << "byte " << i;
            }
        }
        for (std::size_t i = expected.size(); i < actual.size(); ++i)
            ASSERT_EQ(actual[i], guardByte) << "written beyond the picture";
    }
}

// A first side and a padding.
class HSWheelKernelTest : public testing::TestWithParam<std::tuple<int, double>>
{
};

TEST_P(HSWheelKernelTest, MatchesTheReferenceOnEveryInstructionSet)
{
    const auto [first, padding] = GetParam();
    for (int side = first; side < first + 50 && !HasFatalFailure(); ++side)
        expectWheels(side, padding);
}

TEST(HSWheelKernelRimTest, RimsAnywhere)
{
    // Beyond the corners, inside a pixel, at the centre, past it; and a side beyond a screen's.
    for (const double padding : {-60.0, -3.5, 31.75, 32.0, 40.0})
        expectWheels(64, padding);
    expectWheels(2048, 22);
}

// By these names tools/test-arm chooses among them.
INSTANTIATE_TEST_SUITE_P(Sizes, HSWheelKernelTest,
                         testing::Combine(testing::Range(1, 700, 50),
                                          testing::Values(0.0, 11.0, 22.0)),
                         [](const auto &info) {
                             return "from" + std::to_string(std::get<0>(info.param)) + "padding" +
                                    std::to_string(int(std::get<1>(info.param)));
                         });
} // namespace
