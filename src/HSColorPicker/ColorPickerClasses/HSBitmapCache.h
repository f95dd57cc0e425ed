// The wheel bitmaps that every wheel view shares, and the queues that make them.
//
// The cache keeps operations rather than bitmaps: who asks for a size that is still being generated
// finds the operation and waits for it, so that each size is generated once. Entries weigh their
// diameter; under a limit, the least recently used go first when the whole grows too heavy, and who
// holds a bitmap keeps it.
#pragma once

#include "HSColorPicker/ColorPickerClasses/HSGenerateOperation.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/ThreadAnnotations.h"

#include <QCache>
#include <QString>

#include <limits>

/// Any thread. Diameters and paddings are in points, scales in pixels per point.
class HSBitmapCache
{
public:
    static constexpr qsizetype noCostLimit = std::numeric_limits<qsizetype>::max();

    /// The one that the wheel views share; it has no limit, because a program shows few sizes.
    static HSBitmapCache &shared();

    /// The limit is a sum of diameters in pixels. A wheel above it is never kept.
    explicit HSBitmapCache(qsizetype costLimit = noCostLimit);

    /// Waits until the bitmap exists and returns it. Nothing, at once, when it would be smaller
    /// than a pixel. Without shouldCache a size that is not there is generated for this caller
    /// alone.
    std::shared_ptr<ANImageBitmapRep> bitmapForDiameter(double diameter, double scale,
                                                        double padding, bool shouldCache);

    /// Makes and stores a bitmap ahead of time, on the background queue; waits for it unless
    /// `inBackground`.
    void prepareForDiameter(double diameter, double scale, double padding, bool inBackground);
    /// Serial: bitmaps are prepared one after another.
    DispatchQueue &backgroundQueue() { return _backgroundQueue; }

private:
    using OperationPointer = std::shared_ptr<HSGenerateOperation>;
    OperationPointer operationFor(double pixelDiameter, double pixelPadding, bool shouldCache);

    Mutex _mutex;
    QCache<QString, OperationPointer> _generationCache GUARDED_BY(_mutex);
    DispatchQueue _generationQueue; // a thread for each processor
    DispatchQueue _backgroundQueue; // last: its blocks use all of the above
};
