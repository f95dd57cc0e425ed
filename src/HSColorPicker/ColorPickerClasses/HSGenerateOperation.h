// Generates one wheel bitmap, on whatever thread runs it, for any number of threads that wait.
#pragma once

#include "bitmap/ANImageBitmapRep.h"
#include "platform/foundation/ThreadAnnotations.h"

#include <atomic>
#include <memory>

/// Any thread may read or wait; one thread runs it, once.
class HSGenerateOperation
{
public:
    /// Both in pixels: the side of the square bitmap, and the distance from its edge to the rim of
    /// full saturation.
    static std::shared_ptr<HSGenerateOperation> initWithDiameter(double diameter, double padding);

    double diameter() const { return _diameter; }
    double padding() const { return _padding; }
    /// The result: null until `main` has stored it, and after it when the diameter is below one
    /// pixel. A diameter that is negative or past all memory gives a rep with a null context.
    std::shared_ptr<ANImageBitmapRep> bitmap() const;
    void setBitmap(std::shared_ptr<ANImageBitmapRep> bitmap);

    /// Computes and stores the bitmap.
    void main();
    /// Runs `main`, then releases those who wait, even where there is no bitmap to be had.
    void start();
    void waitUntilFinished() const;

    bool isConcurrent() const { return true; }
    /// While there is no bitmap, so also before the start, as on the phone.
    bool isExecuting() const { return !bitmap(); }
    bool isFinished() const { return !isExecuting(); }

private:
    HSGenerateOperation(double diameter, double padding) : _diameter(diameter), _padding(padding) {}

    const double _diameter;
    const double _padding;
    mutable Mutex _mutex; // makes _bitmap an atomic property
    std::shared_ptr<ANImageBitmapRep> _bitmap GUARDED_BY(_mutex);
    std::atomic<bool> _ended = false;
};
