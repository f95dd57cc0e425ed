#include "HSColorPicker/ColorPickerClasses/HSBitmapCache.h"

#include <algorithm>

HSBitmapCache &HSBitmapCache::shared()
{
    static HSBitmapCache cache;
    return cache;
}

HSBitmapCache::HSBitmapCache(qsizetype costLimit)
    : _generationCache(costLimit),
      _generationQueue("org.tintloom.HSColorPickerView.generation",
                       std::max(1U, std::thread::hardware_concurrency())),
      _backgroundQueue("org.tintloom.HSColorPickerView.background")
{
}

std::shared_ptr<ANImageBitmapRep> HSBitmapCache::bitmapForDiameter(double diameter, double scale,
                                                                   double padding, bool shouldCache)
{
    const double pixelDiameter = diameter * scale;
    if (!(pixelDiameter >= 1.0))
        return nullptr;
    const OperationPointer operation = operationFor(pixelDiameter, scale * padding, shouldCache);
    operation->waitUntilFinished();
    return operation->bitmap();
}

HSBitmapCache::OperationPointer HSBitmapCache::operationFor(double pixelDiameter,
                                                            double pixelPadding, bool shouldCache)
{
    // One decimal each, as on the phone: sizes that differ by less share a bitmap.
    const QString key = QString::asprintf("%.1f-%.1f", pixelDiameter, pixelPadding);
    const MutexLock lock(_mutex);
    if (const OperationPointer *found = _generationCache.object(key))
        return *found;
    const auto operation = HSGenerateOperation::initWithDiameter(pixelDiameter, pixelPadding);
    if (shouldCache)
        _generationCache.insert(key, new OperationPointer(operation),
                                qsizetype(BMRound(std::trunc(pixelDiameter))));
    _generationQueue.async([operation] { operation->start(); });
    return operation;
}

void HSBitmapCache::prepareForDiameter(double diameter, double scale, double padding,
                                       bool inBackground)
{
    const auto prepare = [=, this] { bitmapForDiameter(diameter, scale, padding, true); };
    if (inBackground)
        _backgroundQueue.async(prepare);
    else
        _backgroundQueue.sync(prepare);
}
