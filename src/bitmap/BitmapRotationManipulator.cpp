#include "bitmap/BitmapRotationManipulator.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
constexpr float degreesPerRadian = 57.29578f;
constexpr double radiansPerDegree = 0.017453292519943295;

// The angle of (x, y), in single precision as on the phone, turned by some degrees; radians.
double turnedAngle(double y, double x, double degrees)
{
    const float angle = float(std::atan2(y, x));
    return (double(angle * degreesPerRadian) + degrees) * radiansPerDegree;
}

// The bounding box of a turned w x h rectangle, from its four corners on the circle around it.
QSizeF rotatedSize(BMPoint size, double degrees)
{
    const double halfWidth = double(size.x) * 0.5;
    const double halfHeight = double(size.y) * 0.5;
    const double radius = std::sqrt(halfWidth * halfWidth + halfHeight * halfHeight);
    double minX = std::numeric_limits<double>::max();
    double minY = minX;
    // The smallest number above 0 to find the largest from, as on the phone: some corner is always
    // right of the centre, and one above it.
    double maxX = std::numeric_limits<double>::min();
    double maxY = maxX;
    const QPointF corners[] = {{halfWidth, halfHeight},
                               {-halfWidth, halfHeight},
                               {-halfWidth, -halfHeight},
                               {halfWidth, -halfHeight}};
    for (const QPointF &corner : corners) {
        const double angle = turnedAngle(corner.y(), corner.x(), degrees);
        const double x = radius * std::cos(angle);
        const double y = radius * std::sin(angle);
        minX = std::min(minX, x);
        maxX = std::max(maxX, x);
        minY = std::min(minY, y);
        maxY = std::max(maxY, y);
    }
    return {maxX - minX, maxY - minY};
}

// Where the canvas's origin must go so that its centre stays in place under the turn.
QPointF rotatedOrigin(const QSizeF &canvas, double degrees)
{
    const double x = canvas.width() * 0.5;
    const double y = canvas.height() * 0.5;
    const double radius = std::sqrt(x * x + y * y);
    const float angle = float(turnedAngle(y, x, degrees));
    return {std::round(float(x - radius * std::cos(angle))),
            std::round(float(y - radius * std::sin(angle)))};
}
} // namespace

std::unique_ptr<BitmapRotationManipulator>
BitmapRotationManipulator::initWithContext(BitmapContextRep *context)
{
    return std::unique_ptr<BitmapRotationManipulator>(new BitmapRotationManipulator(context));
}

CGContext BitmapRotationManipulator::newContextRotated(double degrees, const QSizeF &canvas)
{
    const auto [width, height] = bitmapSize();
    const QRectF picture(std::round(canvas.width() * 0.5 - double(width) * 0.5),
                         std::round(canvas.height() * 0.5 - double(height) * 0.5), double(width),
                         double(height));
    QTransform transform;
    const QPointF origin = rotatedOrigin(canvas, degrees);
    transform.translate(origin.x(), origin.y());
    transform.rotate(degrees);
    return newContextWithPicture(canvas, picture, transform);
}

void BitmapRotationManipulator::rotate(double degrees)
{
    if (degrees != 0.0)
        setContext(newContextRotated(degrees, rotatedSize(bitmapSize(), degrees)));
}

QImage BitmapRotationManipulator::imageByRotating(double degrees)
{
    if (degrees == 0.0)
        return CGImage();
    const QSizeF exact = rotatedSize(bitmapSize(), degrees);
    const QSizeF canvas(std::ceil(exact.width()), std::ceil(exact.height()));
    return newContextRotated(degrees, canvas).releaseAsImage();
}

bool BitmapRotationManipulator::answer(Invocation &call)
{
    static const OperationTable<BitmapRotationManipulator> operations{
        {"rotate", operationEntry<&BitmapRotationManipulator::rotate>},
        {"imageByRotating", operationEntry<&BitmapRotationManipulator::imageByRotating>},
    };
    return answerFrom(operations, *this, call);
}
