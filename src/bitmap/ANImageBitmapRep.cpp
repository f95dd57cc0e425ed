#include "bitmap/ANImageBitmapRep.h"

#include "bitmap/BitmapCropManipulator.h"
#include "bitmap/BitmapDrawManipulator.h"
#include "bitmap/BitmapRotationManipulator.h"
#include "bitmap/BitmapScaleManipulator.h"
#include "bitmap/CGContextCreator.h"
#include "bitmap/CGImage.h"

std::unique_ptr<ANImageBitmapRep> ANImageBitmapRep::initWithImage(const QImage &image)
{
    return std::unique_ptr<ANImageBitmapRep>(new ANImageBitmapRep(
        CGContextCreator::newARGBBitmapContextWithImage(CGImageFromANImage(image))));
}

std::unique_ptr<ANImageBitmapRep> ANImageBitmapRep::initWithSize(BMPoint size)
{
    if (size.x == 0 || size.y == 0)
        return nullptr;
    return std::unique_ptr<ANImageBitmapRep>(new ANImageBitmapRep(
        CGContextCreator::newARGBBitmapContextWithSize(QSizeF(double(size.x), double(size.y)))));
}

std::unique_ptr<ANImageBitmapRep> ANImageBitmapRep::imageBitmapRepWithCGSize(const QSizeF &size)
{
    return initWithSize({BMRound(size.width()), BMRound(size.height())});
}

std::unique_ptr<ANImageBitmapRep> ANImageBitmapRep::imageBitmapRepWithImage(const QImage &image)
{
    return initWithImage(image);
}

BMPixel ANImageBitmapRep::getPixelAtPoint(BMPoint point)
{
    std::uint8_t raw[4] = {};
    getRawPixel(raw, point);
    const double alpha = raw[3] / 255.0;
    return {raw[0] / 255.0 / alpha, raw[1] / 255.0 / alpha, raw[2] / 255.0 / alpha, alpha};
}

void ANImageBitmapRep::setPixel(BMPixel pixel, BMPoint point)
{
    std::uint8_t raw[4];
    BMPixelGetRaw(pixel, raw);
    setRawPixel(raw, point);
}

QImage ANImageBitmapRep::image()
{
    return ANImageFromCGImage(CGImage());
}

void ANImageBitmapRep::invertColors()
{
    const auto [width, height] = bitmapSize();
    std::uint8_t *pixel = bitmapData();
    for (std::int64_t left = width * height; left > 0; --left, pixel += 4)
        for (int colour = 1; colour < 4; ++colour)
            pixel[colour] = std::uint8_t(~pixel[colour]);
    setNeedsUpdate(true);
}

void ANImageBitmapRep::setBrightness(double factor)
{
    const auto brightened = [factor](double component) {
        return component * factor > 1.0 ? 1.0 : component * factor; // lets not-a-number through
    };
    const auto [width, height] = bitmapSize();
    for (std::int64_t y = 0; y < height; ++y) {
        for (std::int64_t x = 0; x < width; ++x) {
            const auto [red, green, blue, alpha] = getPixelAtPoint({x, y});
            setPixel({brightened(red), brightened(green), brightened(blue), alpha}, {x, y});
        }
    }
}

void ANImageBitmapRep::setQuality(double quality)
{
    if (quality == 1.0)
        return;
    const BMPoint size = bitmapSize();
    setSize({BMRound(double(size.x) * quality), BMRound(double(size.y) * quality)});
    setSize(size);
}

std::shared_ptr<ANImageBitmapRep> ANImageBitmapRep::copyWithZone()
{
    const BMPoint size = bitmapSize();
    std::shared_ptr<ANImageBitmapRep> copy = initWithSize(size);
    if (copy) {
        copy->context().drawImage(CGImage(), QRectF(0.0, 0.0, double(size.x), double(size.y)));
        copy->setNeedsUpdate(true);
    }
    return copy;
}

void ANImageBitmapRep::generateBaseClasses()
{
    _baseClasses.clear();
    _baseClasses.push_back(BitmapCropManipulator::initWithContext(this));
    _baseClasses.push_back(BitmapScaleManipulator::initWithContext(this));
    _baseClasses.push_back(BitmapRotationManipulator::initWithContext(this));
    _baseClasses.push_back(BitmapDrawManipulator::initWithContext(this));
}

bool ANImageBitmapRep::answer(Invocation &call)
{
    static const OperationTable<ANImageBitmapRep> operations{
        {"getPixelAtPoint", operationEntry<&ANImageBitmapRep::getPixelAtPoint>},
        {"setPixel", operationEntry<&ANImageBitmapRep::setPixel>},
        {"image", operationEntry<&ANImageBitmapRep::image>},
        {"invertColors", operationEntry<&ANImageBitmapRep::invertColors>},
        {"setBrightness", operationEntry<&ANImageBitmapRep::setBrightness>},
        {"setQuality", operationEntry<&ANImageBitmapRep::setQuality>},
        {"copyWithZone", operationEntry<&ANImageBitmapRep::copyWithZone>},
        {"generateBaseClasses", operationEntry<&ANImageBitmapRep::generateBaseClasses>},
    };
    return answerFrom(operations, *this, call) || BitmapContextRep::answer(call);
}

void ANImageBitmapRep::forwardInvocation(Invocation &call)
{
    if (_baseClasses.empty())
        generateBaseClasses();
    for (const auto &manipulator : _baseClasses)
        if (manipulator->answer(call))
            return;
    BitmapContextRep::forwardInvocation(call);
}

template <class... Arguments>
std::any ANImageBitmapRep::route(const char *operation, Arguments &&...arguments)
{
    Invocation call{operation, {std::any(std::forward<Arguments>(arguments))...}, {}};
    forwardInvocation(call);
    return std::move(call.result);
}

void ANImageBitmapRep::cropFrame(QRectF frame)
{
    route("cropFrame", frame);
}

void ANImageBitmapRep::cropTopFrame(QRectF frame)
{
    route("cropTopFrame", frame);
}

void ANImageBitmapRep::cropTopEllipse(QRectF frame)
{
    route("cropTopEllipse", frame);
}

QImage ANImageBitmapRep::croppedImageWithFrame(QRectF frame)
{
    return std::any_cast<QImage>(route("croppedImageWithFrame", frame));
}

void ANImageBitmapRep::setSize(BMPoint size)
{
    route("setSize", size);
}

void ANImageBitmapRep::setSizeFittingFrame(BMPoint size)
{
    route("setSizeFittingFrame", size);
}

void ANImageBitmapRep::setSizeFillingFrame(BMPoint size)
{
    route("setSizeFillingFrame", size);
}

void ANImageBitmapRep::rotate(double degrees)
{
    route("rotate", degrees);
}

QImage ANImageBitmapRep::imageByRotating(double degrees)
{
    return std::any_cast<QImage>(route("imageByRotating", degrees));
}

void ANImageBitmapRep::drawImage(QImage image, QRectF rect)
{
    route("drawImage", std::move(image), rect);
}

void ANImageBitmapRep::drawEllipseInFrame(QRectF frame, UIColor color)
{
    route("drawEllipseInFrame", frame, std::move(color));
}
