#include "bitmap/BitmapContextManipulator.h"

#include "bitmap/CGContextCreator.h"

std::unique_ptr<BitmapContextManipulator>
BitmapContextManipulator::initWithContext(BitmapContextRep *context)
{
    return std::unique_ptr<BitmapContextManipulator>(new BitmapContextManipulator(context));
}

bool BitmapContextManipulator::answer(Invocation &)
{
    return false;
}

void BitmapContextManipulator::forwardInvocation(Invocation &call)
{
    _bitmapContext->invoke(call);
}

CGContext BitmapContextManipulator::newContextWithPicture(const QSizeF &canvas, const QRectF &rect,
                                                          const QTransform &transform)
{
    CGContext context = CGContextCreator::newARGBBitmapContextWithSize(canvas);
    _bitmapContext->drawOn(context, rect, transform);
    return context;
}
