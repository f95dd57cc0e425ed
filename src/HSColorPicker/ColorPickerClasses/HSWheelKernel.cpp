// The wheel in vectors, one quadrant for all four.
//
// A channel of the wheel is 1 - s w, with s the saturation and w in 0-1 the channel's distance from
// its own primary around the hue circle. Let h be the hue in sixths of a turn, and follow a point
// (X, Y) of the first quadrant, where h runs from 0 to 1.5:
//
//     red:   w = max(h - 1, 0)      green: w = max(1 - h, 0)      blue: w = 1
//
// Mirroring Y swaps green and blue. Going to the opposite point adds 3 to h and turns every w into
// 1 - w. So with u = s (h - 1), five values serve the four points (X, +-Y), (-X, +-Y):
//
//     a = 1 - max(u, 0)   b = 1 - max(-u, 0)   c = 1 - s   m = c + max(u, 0)   n = c + max(-u, 0)
//
//     (-X, Y): m 1 n      (X, Y): a b c
//     (-X,-Y): m n 1      (X,-Y): a c b        as red, green, blue
//
// The hue needs no arctangent of a large argument: with t = (Y - X) / (Y + X), which stays in
// -1..1, the angle is pi/4 + atan t, so h - 1 = (3/pi) atan t - 1/4. That is an odd polynomial in
// t.
//
// Rounding comes for free: adding 2^23 to a number below 2^23 pushes its fraction out of a single
// precision significand, rounding it, and leaves the integer in the low byte with zeros above it.
//
// Pixels lie at X = 0, 1, ... from the centre when the side is even, and at 0.5, 1.5, ... when it
// is odd. The leftmost column and the top row, at the full radius, have no partner on the other
// side.

#include "HSColorPicker/ColorPickerClasses/HSWheelKernel.h"

#include "HSColorPicker/ColorPickerClasses/HSWheelReference.h"

#include <QtGlobal>

#include <bit>
#include <cstring>
#include <limits>

// Compiled for the machines between which the choice below is made. The choice is ours because a
// program that links Highway's library for it waits 5 ms at each start while that measures a clock.
#ifdef __x86_64__
#define HWY_DISABLED_TARGETS (HWY_SSSE3 | HWY_AVX3_DL)
#else
#define HWY_COMPILE_ONLY_STATIC
#endif
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HSColorPicker/ColorPickerClasses/HSWheelKernel.cpp"
#include <hwy/foreach_target.h>
// After foreach_target.h, which includes this file once per instruction set.
#include <hwy/highway.h>

static_assert(std::endian::native == std::endian::little, "pixels are packed low byte first");

HWY_BEFORE_NAMESPACE();
namespace wheel_kernel::HWY_NAMESPACE
{
namespace hn = hwy::HWY_NAMESPACE;

// (3/pi) atan t on -1..1, the odd polynomial of degree 13 whose largest error is least, found by
// the Remez exchange: 2.4e-7, which is 6e-5 of a byte's step.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V hueFromDiagonal(D d, V t)
{
    const V t2 = hn::Mul(t, t);
    V sum = hn::Set(d, 0.00650478344f);
    sum = hn::MulAdd(sum, t2, hn::Set(d, -0.0320896669f));
    sum = hn::MulAdd(sum, t2, hn::Set(d, 0.0760350063f));
    sum = hn::MulAdd(sum, t2, hn::Set(d, -0.126369108f));
    sum = hn::MulAdd(sum, t2, hn::Set(d, 0.189150706f));
    sum = hn::MulAdd(sum, t2, hn::Set(d, -0.318157429f));
    sum = hn::MulAdd(sum, t2, hn::Set(d, 0.954925945f));
    return hn::Mul(sum, t);
}

// The pixels at (X, +-Y) and (-X, +-Y), each vector in the order of growing X. They are no struct
// to be returned because a vector whose length is known only as the program runs can be no member
// of one. `saturationScale` takes a distance in pixels to a saturation of 255.
template <class D, class V = hn::Vec<D>, class DU = hn::RebindToUnsigned<D>, class U = hn::Vec<DU>>
HWY_INLINE void pixelsAt(D d, V x, V y, V saturationScale, U &rightUpper, U &rightLower,
                         U &leftUpper, U &leftLower)
{
    const V white = hn::Set(d, 255.0f);
    const V distance = hn::Sqrt(hn::MulAdd(x, x, hn::Mul(y, y)));
    const V s = hn::Min(hn::Mul(distance, saturationScale), white);
    const V t = hn::Div(hn::Sub(y, x), hn::Add(y, x));
    const V u = hn::Mul(s, hn::Sub(hueFromDiagonal(d, t), hn::Set(d, 0.25f)));
    const V above = hn::Max(u, hn::Zero(d));
    const V below = hn::Sub(above, u);

    const DU du;
    const V roundedWhite = hn::Set(d, 8388608.0f + 255.0f); // 2^23
    const auto byteBelowWhite = [&](V dip) { return hn::BitCast(du, hn::Sub(roundedWhite, dip)); };
    const auto a = byteBelowWhite(above);
    const auto b = byteBelowWhite(below);
    const auto c = byteBelowWhite(s);
    const auto m = byteBelowWhite(hn::Sub(s, above));
    const auto n = byteBelowWhite(hn::Sub(s, below));

    // Memory holds alpha, red, green, blue.
    const auto right = hn::Or(hn::ShiftLeft<8>(a), hn::Set(du, 0x000000FFu));
    const auto left = hn::ShiftLeft<8>(m);
    rightUpper = hn::Or3(right, hn::ShiftLeft<16>(b), hn::ShiftLeft<24>(c));
    rightLower = hn::Or3(right, hn::ShiftLeft<16>(c), hn::ShiftLeft<24>(b));
    leftUpper = hn::Or3(left, hn::ShiftLeft<24>(n), hn::Set(du, 0x00FF00FFu));
    leftLower = hn::Or3(left, hn::ShiftLeft<16>(n), hn::Set(du, 0xFF0000FFu));
}

// The two rows at distance Y above and below the centre. Needs at least one vector's worth of
// distances, which are 0, 1, ... side / 2 (plus a half when the side is odd).
template <class D, class V = hn::Vec<D>>
void fillRows(D d, std::uint32_t *upper, std::uint32_t *lower, int side, const V &firstX, float y,
              float scale)
{
    const hn::RebindToUnsigned<D> du;
    const int lanes = int(hn::Lanes(d));
    const int distances = side / 2 + 1;
    const int firstRight = (side + 1) / 2;
    const auto yVector = hn::Set(d, y);
    const auto scaleVector = hn::Set(d, scale);

    hn::Vec<decltype(du)> rightUpper, rightLower, leftUpper, leftLower;
    const auto computeFrom = [&](int k) HWY_ATTR {
        pixelsAt(d, hn::Add(firstX, hn::Set(d, float(k))), yVector, scaleVector, rightUpper,
                 rightLower, leftUpper, leftLower);
    };
    const auto storeLeft = [&](int k) HWY_ATTR {
        const int column = side / 2 - k - (lanes - 1);
        hn::StoreU(hn::Reverse(du, leftLower), du, lower + column);
        hn::StoreU(hn::Reverse(du, leftUpper), du, upper + column);
    };
    int k = 0;
    for (; k + lanes < distances; k += lanes) {
        computeFrom(k);
        hn::StoreU(rightLower, du, lower + firstRight + k);
        hn::StoreU(rightUpper, du, upper + firstRight + k);
        storeLeft(k);
    }
    // The last vector ends at the full radius, which on the right is one pixel too far.
    k = distances - lanes;
    computeFrom(k);
    HWY_ALIGN std::uint32_t row[hn::MaxLanes(d)];
    const std::size_t size = std::size_t(lanes - 1) * sizeof(std::uint32_t);
    hn::Store(rightLower, du, row);
    std::memcpy(lower + firstRight + k, row, size);
    hn::Store(rightUpper, du, row);
    std::memcpy(upper + firstRight + k, row, size);
    storeLeft(k);
}

template <class D>
void fillWith(D d, std::uint32_t *pixels, int side, float scale)
{
    const auto row = [&](int index) { return pixels + std::ptrdiff_t(index) * side; };
    const float first = side % 2 ? 0.5f : 0.0f;
    const auto firstX = hn::Iota(d, first);
    for (int k = 0; k <= side / 2; ++k) {
        std::uint32_t *upper = row(side / 2 - k);
        // The top row's partner lies outside: it is written first and then written over.
        std::uint32_t *lower = k < side / 2 ? row((side + 1) / 2 + k) : upper;
        fillRows(d, upper, lower, side, firstX, first + float(k), scale);
    }
}

void fill(std::uint32_t *pixels, int side, float scale)
{
    const hn::ScalableTag<float> d;
    if (side / 2 + 1 >= int(hn::Lanes(d)))
        fillWith(d, pixels, side, scale);
    else
        fillWith(hn::CappedTag<float, 1>(), pixels, side, scale);
}
} // namespace wheel_kernel::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace wheel_kernel
{
std::vector<HSWheelVectors> findVectors()
{
    std::vector<HSWheelVectors> found;
#ifdef __x86_64__
    const bool hasAVX2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") &&
                         __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2");
    if (hasAVX2 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl") &&
        __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512bw"))
        found.push_back({"AVX-512", N_AVX3::fill});
    if (hasAVX2)
        found.push_back({"AVX2", N_AVX2::fill});
    if (__builtin_cpu_supports("sse4.2"))
        found.push_back({"SSE4", N_SSE4::fill});
#endif
    found.push_back({"baseline", HWY_STATIC_DISPATCH(fill)});
    return found;
}
} // namespace wheel_kernel

const std::vector<HSWheelVectors> &HSWheelVectorsOfThisMachine()
{
    static const std::vector<HSWheelVectors> vectors = wheel_kernel::findVectors();
    return vectors;
}

void HSFillWheel(std::uint8_t *pixels, int side, double padding, const HSWheelVectors &vectors)
{
    Q_ASSERT(side >= 1);
    const double rim = side * 0.5 - padding;
    const double scale = rim > 0.0 ? 255.0 / rim : std::numeric_limits<double>::infinity();
    vectors.fill(reinterpret_cast<std::uint32_t *>(pixels), side, float(scale));
    if (side % 2 == 0) {
        // The centre has no direction, and the division above gave it none.
        const int middle = side / 2;
        std::uint8_t raw[4];
        BMPixelGetRaw(HSWheelPixel(middle, middle, side, padding), raw);
        const std::uint8_t stored[4] = {raw[3], raw[0], raw[1], raw[2]};
        std::memcpy(pixels + (std::ptrdiff_t(middle) * side + middle) * 4, stored, 4);
    }
}
#endif
