// The two records of the bitmap toolkit, and its rounding.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

/// A pixel's position, or a size in pixels (x = width, y = height).
struct BMPoint {
    std::int64_t x = 0, y = 0;
    bool operator==(const BMPoint &) const = default;
};

/// A colour of four components, nominally 0-1, the colours not multiplied by alpha.
struct BMPixel {
    double red = 0.0, green = 0.0, blue = 0.0, alpha = 0.0;
    bool operator==(const BMPixel &) const = default;
};

constexpr BMPoint BMPointMake(std::int64_t x, std::int64_t y)
{
    return {x, y};
}

constexpr BMPixel BMPixelMake(double red, double green, double blue, double alpha)
{
    return {red, green, blue, alpha};
}

/// Rounds half away from zero. Not-a-number gives 0; what the type cannot hold gives its nearer
/// end.
template <class Integer = std::int64_t>
Integer BMRound(double value)
{
    constexpr auto low = std::numeric_limits<Integer>::min();
    constexpr auto high = std::numeric_limits<Integer>::max();
    const double rounded = std::round(value);
    if (std::isnan(rounded))
        return 0;
    if (rounded <= double(low))
        return low;
    return rounded >= double(high) ? high : Integer(rounded);
}

/// Writes the pixel as four bytes: red, green, blue, each multiplied by alpha, then alpha. Bytes
/// are component x 255, rounded half away from zero; a component out of range keeps the low eight
/// bits, as on the phone, and one that is not a number becomes 0.
inline void BMPixelGetRaw(const BMPixel &pixel, std::uint8_t *raw)
{
    const auto byte = [](double value) { return std::uint8_t(BMRound<std::int32_t>(value)); };
    raw[0] = byte(pixel.red * 255.0 * pixel.alpha);
    raw[1] = byte(pixel.green * 255.0 * pixel.alpha);
    raw[2] = byte(pixel.blue * 255.0 * pixel.alpha);
    raw[3] = byte(pixel.alpha * 255.0);
}
