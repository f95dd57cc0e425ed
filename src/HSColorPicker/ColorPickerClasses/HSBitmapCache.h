// The wheel bitmaps that every wheel view shares, and the queues that make them.
//
// The cache keeps operations rather than bitmaps: who asks for a size that is still being generated
// finds the operation and waits for it, so that each size is generated once. Entries weigh their
// diameter, and the least recently used go first when the whole grows too heavy; who holds a bitmap
// keeps it.
#pragma once

#include "HSColorPicker/ColorPickerClasses/HSGenerationQueue.h"
#include "platform/foundation/DispatchQueue.h"

#include <QCache>
#include <QString>

/// Any thread. Diameters and paddings are in points, scales in pixels per point.
class HSBitmapCache
{
public:
    /// Four wheels of 2048 pixels, which take 16 MB each, or a dozen of a phone's size.
    static constexpr qsizetype defaultCostLimit = 8192;
    /// A wheel view's distance from its edge to the rim.
    static constexpr double defaultPadding = 11.0;

    /// The one that the wheel views share.
    static HSBitmapCache &shared();

    /// The limit is a sum of diameters in pixels. A wheel above it is never kept.
    explicit HSBitmapCache(qsizetype costLimit = defaultCostLimit);

    /// Waits until the bitmap exists and returns it. Nothing, at once, when it would be smaller
    /// than a pixel. Without shouldCache a size that is not there is generated for this caller
    /// alone.
    std::shared_ptr<ANImageBitmapRep> bitmapForDiameter(double diameter, double scale,
                                                        double padding, bool shouldCache);

    // Make a bitmap ahead of time: in the background, one after another, unless told to wait.
    void prepareForDiameter(double diameter);
    void prepareForDiameterPadding(double diameter, double padding);
    void prepareForDiameterScale(double diameter, double scale);
    void prepareForDiameterScalePadding(double diameter, double scale, double padding);
    void prepareForDiameterScalePaddingInBackground(double diameter, double scale, double padding,
                                                    bool inBackground);

private:
    using OperationPointer = std::shared_ptr<HSGenerateOperation>;
    OperationPointer operationFor(double pixelDiameter, double pixelPadding, bool shouldCache);

    std::mutex _mutex;
    QCache<QString, OperationPointer> _generationCache;
    HSGenerationQueue _generationQueue;
    DispatchQueue _backgroundQueue; // last: its blocks use all of the above
};
