// Pictures for the bitmap tests, and a way to look at them.
#pragma once

#include "bitmap/ANImageBitmapRep.h"

#include <QImage>
#include <QPainter>

#include <array>
#include <gtest/gtest.h>

namespace Pictures
{
using Raw = std::array<std::uint8_t, 4>;
using Corners = std::array<QRgb, 4>; // top left, top right, bottom left, bottom right

constexpr QRgb red = 0xFFFF0000;
constexpr QRgb green = 0xFF00FF00;
constexpr QRgb blue = 0xFF0000FF;
constexpr QRgb white = 0xFFFFFFFF;
constexpr QRgb clear = 0x00000000;
constexpr Corners coloured{red, green, blue, white};

/// Each quarter in the colour of its corner.
inline QImage quarters(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, coloured[2 * (y >= height / 2) + (x >= width / 2)]);
    return image;
}

inline std::unique_ptr<ANImageBitmapRep> quartersRep(int width, int height)
{
    return ANImageBitmapRep::initWithImage(quarters(width, height));
}

inline Raw rawAt(BitmapContextRep &rep, std::int64_t x, std::int64_t y)
{
    Raw raw{};
    rep.getRawPixel(raw.data(), {x, y});
    return raw;
}

/// The pixels at the corners of a picture, a little inside.
inline Corners corners(const QImage &image, int inset = 0)
{
    const int right = image.width() - 1 - inset;
    const int bottom = image.height() - 1 - inset;
    return {image.pixel(inset, inset), image.pixel(right, inset), image.pixel(inset, bottom),
            image.pixel(right, bottom)};
}

/// How many pixels are covered, those that are half transparent counting half.
inline double coverage(const QImage &image)
{
    double covered = 0.0;
    for (int i = 0; i < image.width() * image.height(); ++i)
        covered += qAlpha(image.pixel(i % image.width(), i / image.width())) / 255.0;
    return covered;
}
} // namespace Pictures
