#include "bitmap/BitmapScaleManipulator.h"

std::unique_ptr<BitmapScaleManipulator>
BitmapScaleManipulator::initWithContext(BitmapContextRep *context)
{
    return std::unique_ptr<BitmapScaleManipulator>(new BitmapScaleManipulator(context));
}

void BitmapScaleManipulator::setSize(BMPoint size)
{
    const QSizeF canvas{double(size.x), double(size.y)};
    setContext(newContextWithPicture(canvas, QRectF(QPointF(), canvas)));
}

void BitmapScaleManipulator::setSizeFittingFrame(BMPoint size)
{
    const auto [width, height] = ratiosTo(size);
    setSizeScaling(size, width < height ? width : height);
}

void BitmapScaleManipulator::setSizeFillingFrame(BMPoint size)
{
    const auto [width, height] = ratiosTo(size);
    setSizeScaling(size, width > height ? width : height);
}

// In single precision, as on the phone, so that ratios which are equal in it count as a tie.
BitmapScaleManipulator::Ratios BitmapScaleManipulator::ratiosTo(BMPoint size) const
{
    const auto [width, height] = bitmapSize();
    return {float(double(size.x) / double(width)), float(double(size.y) / double(height))};
}

void BitmapScaleManipulator::setSizeScaling(BMPoint size, double factor)
{
    const auto [width, height] = bitmapSize();
    const QSizeF canvas{double(size.x), double(size.y)};
    const QSizeF picture{double(width) * factor, double(height) * factor};
    const QPointF origin(canvas.width() / 2.0 - picture.width() / 2.0,
                         canvas.height() / 2.0 - picture.height() / 2.0);
    setContext(newContextWithPicture(canvas, QRectF(origin, picture)));
}

bool BitmapScaleManipulator::answer(Invocation &call)
{
    static const OperationTable<BitmapScaleManipulator> operations{
        {"setSize", operationEntry<&BitmapScaleManipulator::setSize>},
        {"setSizeFittingFrame", operationEntry<&BitmapScaleManipulator::setSizeFittingFrame>},
        {"setSizeFillingFrame", operationEntry<&BitmapScaleManipulator::setSizeFillingFrame>},
    };
    return answerFrom(operations, *this, call);
}
