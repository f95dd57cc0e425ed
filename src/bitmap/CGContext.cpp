#include "bitmap/CGContext.h"

#include <QPainter>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace
{
// A word with alpha in its top byte, stored big end first, is our byte order; stored as the machine
// does, it is Format_ARGB32_Premultiplied.
void swapIntoImageOrder(const void *pixels, qsizetype count, void *result)
{
    qFromBigEndian<quint32>(pixels, count, result);
}

void swapIntoMemoryOrder(const void *pixels, qsizetype count, void *result)
{
    qToBigEndian<quint32>(pixels, count, result);
}

bool isDrawable(const QRectF &rect)
{
    return std::isfinite(rect.x()) && std::isfinite(rect.y()) && std::isfinite(rect.width()) &&
           std::isfinite(rect.height()) && rect.width() > 0.0 && rect.height() > 0.0;
}

// A painter samples four neighbours, which skips pixels once a picture shrinks to less than half;
// so each side that shrinks is averaged down first, to the nearest whole size that is not too
// small. A side that passes a whole size only by the rounding of a single precision ratio is that
// size: one pixel more would have to be squeezed in, and blur the middle of the picture.
QImage shrunkFor(const QImage &image, const QSizeF &size)
{
    const auto shrunk = [](double side, int most) {
        constexpr double exact = 1.0 - std::numeric_limits<float>::epsilon();
        return int(std::min(std::ceil(side * exact), double(most)));
    };
    const int width = shrunk(size.width(), image.width());
    const int height = shrunk(size.height(), image.height());
    if (width == image.width() && height == image.height())
        return image;
    return image.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// For a painter whose y axis points upward; leaves it with the image's own coordinates.
void drawUpright(QPainter &painter, const QImage &image, const QRectF &rect)
{
    const QImage shrunk = shrunkFor(image, rect.size());
    painter.translate(rect.x(), rect.bottom()); // the upper edge
    painter.scale(1.0, -1.0);
    painter.drawImage(QRectF(QPointF(), rect.size()), shrunk, QRectF(shrunk.rect()));
}
} // namespace

CGContext CGContext::overMemory(PixelBlock data, std::uint64_t byteCount, std::uint64_t width,
                                std::uint64_t height)
{
    constexpr std::uint64_t most = std::numeric_limits<int>::max();
    CGContext context;
    if (width == 0 || height == 0 || width > most || height > most ||
        byteCount / 4 / width < height)
        return context;
    context._data = std::move(data);
    context._width = int(width);
    context._height = int(height);
    return context;
}

QImage CGContext::wrapped() const
{
    return {_data.get(), _width, _height, qsizetype(_width) * 4,
            QImage::Format_ARGB32_Premultiplied};
}

void CGContext::paintOn(QImage canvas, const std::function<void(QPainter &)> &paint) const
{
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(0.0, _height);
    painter.scale(1.0, -1.0);
    paint(painter);
}

void CGContext::draw(const std::function<void(QPainter &)> &paint)
{
    if (!_data)
        return;
    swapIntoImageOrder(_data.get(), pixelCount(), _data.get());
    paintOn(wrapped(), paint);
    swapIntoMemoryOrder(_data.get(), pixelCount(), _data.get());
}

void CGContext::drawImage(const QImage &image, const QRectF &rect)
{
    if (!image.isNull() && isDrawable(rect))
        draw([&](QPainter &painter) { drawUpright(painter, image, rect); });
}

void CGContext::drawFirst(const QImage &picture, const QRectF &rect, const QTransform &transform)
{
    if (!_data || picture.isNull() || !isDrawable(rect))
        return;
    paintFirst(picture, rect, transform);
    swapIntoMemoryOrder(_data.get(), pixelCount(), _data.get());
}

void CGContext::drawFirst(const CGContext &picture, const QRectF &rect, const QTransform &transform)
{
    if (_data && picture && isDrawable(rect))
        paintFirst(picture.wrapped(), rect, transform);
}

// Over nothing, drawing is replacing, and that treats the four bytes of a pixel alike: they end in
// the order in which the picture has them.
void CGContext::paintFirst(const QImage &picture, const QRectF &rect, const QTransform &transform)
{
    paintOn(wrapped(), [&](QPainter &painter) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.setTransform(transform, true);
        drawUpright(painter, picture, rect);
    });
}

QImage CGContext::makeImage() const
{
    QImage image(_width, _height, QImage::Format_ARGB32_Premultiplied);
    if (_data && !image.isNull())
        swapIntoImageOrder(_data.get(), pixelCount(), image.bits());
    return image;
}

QImage CGContext::releaseAsImage()
{
    if (!_data)
        return {};
    Q_ASSERT(_data.use_count() == 1);
    swapIntoImageOrder(_data.get(), pixelCount(), _data.get());
    const CGContext adopted = std::exchange(*this, {});
    return {adopted._data.get(),
            adopted._width,
            adopted._height,
            qsizetype(adopted._width) * 4,
            QImage::Format_ARGB32_Premultiplied,
            [](void *block) { delete static_cast<PixelBlock *>(block); },
            new PixelBlock(adopted._data)};
}
