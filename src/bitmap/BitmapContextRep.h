// A bitmap context with access to its raw pixels and a cached snapshot.
#pragma once

#include "bitmap/BMPixel.h"
#include "bitmap/CGContext.h"
#include "bitmap/Invocation.h"

#include <QImage>

#include <memory>

/// Owns its context and pixels. One thread at a time; it may be handed from one to another.
class BitmapContextRep : public InvocationTarget
{
public:
    /// A copy of the image's pixels. The rep has a null context when no context could be made.
    static std::unique_ptr<BitmapContextRep> initWithImage(const QImage &image);
    /// A transparent bitmap; nothing when a side is 0. A size that no context can have, a negative
    /// one among them, gives a rep with a null context.
    static std::unique_ptr<BitmapContextRep> initWithSize(BMPoint size);

    BitmapContextRep(const BitmapContextRep &) = delete;
    BitmapContextRep &operator=(const BitmapContextRep &) = delete;

    CGContext context() const { return _context; }
    /// Takes the context and its pixels over and lets the old ones go. Does nothing when given the
    /// context that it already holds.
    void setContext(CGContext context);
    /// The pixels of `context`, alpha, red, green, blue, top row first; null for the null context.
    std::uint8_t *bitmapData() const { return _bitmapData.get(); }

    /// Pixels; 0 x 0 for the null context.
    BMPoint bitmapSize() const { return {_context.width(), _context.height()}; }
    /// Whether the pixels may differ from the snapshot. Set it after writing through `bitmapData`
    /// or drawing on `context`.
    void setNeedsUpdate(bool needsUpdate) { _needsUpdate = needsUpdate; }

    /// Four bytes, red, green, blue, alpha, the colours multiplied by alpha as stored; row 0 is at
    /// the top. A read, too, makes the snapshot stale, as on the phone. Positions must lie inside
    /// the bitmap. On a null context nothing is read or written.
    void getRawPixel(std::uint8_t *rawPixel, BMPoint point);
    void setRawPixel(const std::uint8_t *rawPixel, BMPoint point);

    /// A snapshot, made anew only when the pixels may have changed: until then each call gives the
    /// same image (the same `QImage::cacheKey`). A null image for the null context.
    QImage CGImage();
    /// Draws what CGImage gives onto a canvas that is still transparent, at `rect` under
    /// `transform`; a stale snapshot stays stale.
    void drawOn(CGContext &canvas, const QRectF &rect, const QTransform &transform) const;

    bool answer(Invocation &call) override;
    /// Raises UnrecognisedOperation.
    void forwardInvocation(Invocation &call) override;

protected:
    explicit BitmapContextRep(CGContext context);

private:
    std::uint8_t *pixelAt(BMPoint point) const
    {
        Q_ASSERT(point.x >= 0 && point.x < _context.width());
        Q_ASSERT(point.y >= 0 && point.y < _context.height());
        return _bitmapData.get() + (point.x + _context.width() * point.y) * 4;
    }

    CGContext _context;
    CGContext::PixelBlock _bitmapData; // always the memory of _context
    QImage _lastImage;
    bool _needsUpdate = false;
};
