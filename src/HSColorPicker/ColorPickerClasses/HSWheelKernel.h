// The colour wheel's picture, computed with the widest vectors that the machine has.
#pragma once

#include <cstdint>
#include <vector>

/// The kernel in one instruction set. `fill` takes a distance in pixels to a saturation of 255 by
/// `scale`, and leaves the centre of an even side to the caller.
struct HSWheelVectors {
    const char *instructionSet;
    void (*fill)(std::uint32_t *pixels, int side, float scale);
};

/// What this machine can run, the widest first; never empty.
const std::vector<HSWheelVectors> &HSWheelVectorsOfThisMachine();

/// Writes the picture that HSFillWheelScalar describes. Every byte is within 1 of it, and differs
/// only where the unrounded value lies within 0.001 of a half. `side` must be at least 1 and
/// `diameter` must be `side`; any padding will do.
void HSFillWheel(std::uint8_t *pixels, int side, double padding,
                 const HSWheelVectors &vectors = HSWheelVectorsOfThisMachine().front());
