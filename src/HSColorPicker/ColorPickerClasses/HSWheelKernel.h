// The colour wheel's picture, computed with the widest vectors that the machine has.
#pragma once

#include <cstdint>

/// Writes the picture that HSFillWheelScalar describes. Every byte is within 1 of it, and differs
/// only where the unrounded value lies within 0.001 of a half. `side` must be at least 1 and
/// `diameter` must be `side`; any padding will do.
void HSFillWheel(std::uint8_t *pixels, int side, double padding);
