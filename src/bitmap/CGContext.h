// A bitmap drawing context: a block of pixels, and the means to draw on it.
//
// A pixel is four bytes, in memory order alpha, red, green, blue, the colours multiplied by alpha.
// Rows follow one another without padding, the top row first: pixel (x, y) starts at byte
// (x + y * width) * 4. QImage has no such format, so drawing swaps the bytes of every pixel into
// Format_ARGB32_Premultiplied, paints, and swaps them back; that happens here and nowhere else.
//
// Drawing coordinates have their origin at the bottom left, y growing upward, one unit per pixel.
#pragma once

#include <QImage>
#include <QRectF>
#include <QTransform>

#include <cstdint>
#include <functional>
#include <memory>

class QPainter;

/// A value that refers to its pixels: copies draw on the same block. One thread at a time.
class CGContext
{
public:
    using PixelBlock = std::shared_ptr<std::uint8_t[]>;

    /// The null context. It has no pixels, its size is 0 x 0, and drawing on it does nothing.
    CGContext() = default;
    /// A context over `byteCount` bytes of memory. Null when a side is 0, when the block is too
    /// small for the rows, or when a side passes what an image can have (2^31 - 1 pixels).
    static CGContext overMemory(PixelBlock data, std::uint64_t byteCount, std::uint64_t width,
                                std::uint64_t height);

    explicit operator bool() const { return _data != nullptr; }
    /// True when both draw on the same block.
    bool operator==(const CGContext &other) const { return _data == other._data; }

    int width() const { return _width; }
    int height() const { return _height; }
    /// The pixels; whoever holds the block keeps it alive.
    const PixelBlock &data() const { return _data; }

    /// Calls `paint` with a painter in the context's coordinates, smoothing edges and images.
    void draw(const std::function<void(QPainter &)> &paint);
    /// Draws the image, upright, stretched into the rectangle. Sizes are resampled smoothly in both
    /// directions. A null image, or a rectangle that is empty or not finite, draws nothing.
    void drawImage(const QImage &image, const QRectF &rect);
    /// Draws an image in Format_ARGB32_Premultiplied, at `rect` under `transform`, onto this
    /// context, which must still be transparent. As drawImage does it, but quicker.
    void drawFirst(const QImage &picture, const QRectF &rect, const QTransform &transform);
    /// The same with another context's picture as it is now, without swapping a byte.
    void drawFirst(const CGContext &picture, const QRectF &rect, const QTransform &transform);

    /// A copy of the pixels as they are now; a null image for the null context.
    QImage makeImage() const;
    /// The pixels themselves as an image, without a copy: the image takes the block over and this
    /// becomes the null context. No other reference to the block may be in use.
    QImage releaseAsImage();

private:
    /// The block as an image, whatever order its bytes are in.
    QImage wrapped() const;
    void paintOn(QImage canvas, const std::function<void(QPainter &)> &paint) const;
    void paintFirst(const QImage &picture, const QRectF &rect, const QTransform &transform);
    qsizetype pixelCount() const { return qsizetype(_width) * _height; }

    PixelBlock _data;
    int _width = 0;
    int _height = 0;
};
