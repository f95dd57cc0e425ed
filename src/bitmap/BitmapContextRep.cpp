#include "bitmap/BitmapContextRep.h"

#include "bitmap/CGContextCreator.h"
#include "bitmap/CGImage.h"

std::unique_ptr<BitmapContextRep> BitmapContextRep::initWithImage(const QImage &image)
{
    return std::unique_ptr<BitmapContextRep>(new BitmapContextRep(
        CGContextCreator::newARGBBitmapContextWithImage(CGImageFromANImage(image))));
}

std::unique_ptr<BitmapContextRep> BitmapContextRep::initWithSize(BMPoint size)
{
    if (size.x == 0 || size.y == 0)
        return nullptr;
    return std::unique_ptr<BitmapContextRep>(new BitmapContextRep(
        CGContextCreator::newARGBBitmapContextWithSize(QSizeF(double(size.x), double(size.y)))));
}

BitmapContextRep::BitmapContextRep(CGContext context)
    : _context(std::move(context)), _bitmapData(_context.data()), _lastImage(_context.makeImage())
{
}

void BitmapContextRep::setContext(CGContext context)
{
    if (context == _context)
        return;
    _context = std::move(context);
    _bitmapData = _context.data();
    setNeedsUpdate(true);
}

void BitmapContextRep::getRawPixel(std::uint8_t *rawPixel, BMPoint point)
{
    if (!_bitmapData)
        return;
    const std::uint8_t *stored = pixelAt(point);
    rawPixel[0] = stored[1];
    rawPixel[1] = stored[2];
    rawPixel[2] = stored[3];
    rawPixel[3] = stored[0];
    setNeedsUpdate(true);
}

void BitmapContextRep::setRawPixel(const std::uint8_t *rawPixel, BMPoint point)
{
    if (!_bitmapData)
        return;
    std::uint8_t *stored = pixelAt(point);
    stored[1] = rawPixel[0];
    stored[2] = rawPixel[1];
    stored[3] = rawPixel[2];
    stored[0] = rawPixel[3];
    setNeedsUpdate(true);
}

QImage BitmapContextRep::CGImage()
{
    if (_needsUpdate) {
        _lastImage = _context.makeImage();
        _needsUpdate = false;
    }
    return CGImageReturnAutoreleased(_lastImage);
}

void BitmapContextRep::drawOn(CGContext &canvas, const QRectF &rect,
                              const QTransform &transform) const
{
    // The snapshot that would be made now would show the context: draw that, and copy nothing.
    if (_needsUpdate)
        canvas.drawFirst(_context, rect, transform);
    else
        canvas.drawFirst(_lastImage, rect, transform);
}

bool BitmapContextRep::answer(Invocation &call)
{
    static const OperationTable<BitmapContextRep> operations{
        {"context", operationEntry<&BitmapContextRep::context>},
        {"setContext", operationEntry<&BitmapContextRep::setContext>},
        {"bitmapSize", operationEntry<&BitmapContextRep::bitmapSize>},
        {"setNeedsUpdate", operationEntry<&BitmapContextRep::setNeedsUpdate>},
        {"getRawPixel", operationEntry<&BitmapContextRep::getRawPixel>},
        {"setRawPixel", operationEntry<&BitmapContextRep::setRawPixel>},
        {"CGImage", operationEntry<&BitmapContextRep::CGImage>},
    };
    return answerFrom(operations, *this, call);
}

void BitmapContextRep::forwardInvocation(Invocation &call)
{
    throw UnrecognisedOperation(call.operation);
}
