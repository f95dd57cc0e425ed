#include "bitmap/UIImage+ANImageBitmapRep.h"

namespace
{
QImage imageResized(const QImage &image, const QSizeF &size,
                    void (ANImageBitmapRep::*resize)(BMPoint))
{
    const auto rep = imageBitmapRep(image);
    ((*rep).*resize)({BMRound(size.width()), BMRound(size.height())});
    return rep->image();
}
} // namespace

QImage imageFromImageBitmapRep(ANImageBitmapRep &rep)
{
    return rep.image();
}

std::unique_ptr<ANImageBitmapRep> imageBitmapRep(const QImage &image)
{
    return ANImageBitmapRep::initWithImage(image);
}

QImage imageByScalingToSize(const QImage &image, const QSizeF &size)
{
    return imageResized(image, size, &ANImageBitmapRep::setSize);
}

QImage imageFittingFrame(const QImage &image, const QSizeF &size)
{
    return imageResized(image, size, &ANImageBitmapRep::setSizeFittingFrame);
}

QImage imageFillingFrame(const QImage &image, const QSizeF &size)
{
    return imageResized(image, size, &ANImageBitmapRep::setSizeFillingFrame);
}
