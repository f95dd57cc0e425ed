#include "bitmap/BitmapDrawManipulator.h"

#include <QPainter>

std::unique_ptr<BitmapDrawManipulator>
BitmapDrawManipulator::initWithContext(BitmapContextRep *context)
{
    return std::unique_ptr<BitmapDrawManipulator>(new BitmapDrawManipulator(context));
}

// By value, as a call by name hands it over.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void BitmapDrawManipulator::drawImage(QImage image, QRectF rect)
{
    const double bottom = double(bitmapSize().y) - (rect.y() + rect.height());
    context().drawImage(image, QRectF(QPointF(rect.x(), bottom), rect.size()));
    setNeedsUpdate(true);
}

void BitmapDrawManipulator::drawEllipseInFrame(QRectF frame, UIColor color)
{
    context().draw([&](QPainter &painter) {
        painter.scale(1.0, -1.0);
        painter.translate(0.0, double(-bitmapSize().y));
        painter.setPen(Qt::NoPen);
        painter.setBrush(color.patternImage().isNull() ? QBrush(color.qColor())
                                                       : QBrush(color.patternImage()));
        painter.drawEllipse(frame);
    });
    setNeedsUpdate(true);
}

bool BitmapDrawManipulator::answer(Invocation &call)
{
    static const OperationTable<BitmapDrawManipulator> operations{
        {"drawImage", operationEntry<&BitmapDrawManipulator::drawImage>},
        {"drawEllipseInFrame", operationEntry<&BitmapDrawManipulator::drawEllipseInFrame>},
    };
    return answerFrom(operations, *this, call);
}
