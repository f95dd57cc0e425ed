#include "bitmap/BitmapCropManipulator.h"

#include <QPainter>
#include <QPainterPath>

std::unique_ptr<BitmapCropManipulator>
BitmapCropManipulator::initWithContext(BitmapContextRep *context)
{
    return std::unique_ptr<BitmapCropManipulator>(new BitmapCropManipulator(context));
}

CGContext BitmapCropManipulator::newContextWithFrame(const QRectF &frame)
{
    const auto [width, height] = bitmapSize();
    return newContextWithPicture(frame.size(),
                                 QRectF(-frame.x(), -frame.y(), double(width), double(height)));
}

CGContext BitmapCropManipulator::newContextWithTopFrame(const QRectF &frame)
{
    const double bottom = double(bitmapSize().y) - (frame.y() + frame.height());
    return newContextWithFrame(QRectF(QPointF(frame.x(), bottom), frame.size()));
}

void BitmapCropManipulator::cropFrame(QRectF frame)
{
    setContext(newContextWithFrame(frame));
}

void BitmapCropManipulator::cropTopFrame(QRectF frame)
{
    setContext(newContextWithTopFrame(frame));
}

void BitmapCropManipulator::cropTopEllipse(QRectF frame)
{
    const QRectF rounded(std::round(frame.x()), std::round(frame.y()), std::round(frame.width()),
                         std::round(frame.height()));
    CGContext context = newContextWithTopFrame(rounded);
    // A painter's clip has hard edges; erasing what lies around the ellipse gives smooth ones.
    context.draw([&](QPainter &painter) {
        const QRectF canvas(QPointF(), rounded.size());
        QPainterPath around;
        around.addRect(canvas);
        around.addEllipse(canvas);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
        painter.fillPath(around, Qt::black);
    });
    setContext(std::move(context));
}

QImage BitmapCropManipulator::croppedImageWithFrame(QRectF frame)
{
    // The canvas's pixels are not freed here, as on the phone: the image takes them over.
    return newContextWithFrame(frame).releaseAsImage();
}

bool BitmapCropManipulator::answer(Invocation &call)
{
    static const OperationTable<BitmapCropManipulator> operations{
        {"cropFrame", operationEntry<&BitmapCropManipulator::cropFrame>},
        {"cropTopFrame", operationEntry<&BitmapCropManipulator::cropTopFrame>},
        {"cropTopEllipse", operationEntry<&BitmapCropManipulator::cropTopEllipse>},
        {"croppedImageWithFrame", operationEntry<&BitmapCropManipulator::croppedImageWithFrame>},
    };
    return answerFrom(operations, *this, call);
}
