#include "HSColorPicker/ColorPickerClasses/HSGenerateOperation.h"

#include "HSColorPicker/ColorPickerClasses/HSWheelKernel.h"
#include "HSColorPicker/ColorPickerClasses/HSWheelReference.h"

std::shared_ptr<HSGenerateOperation> HSGenerateOperation::initWithDiameter(double diameter,
                                                                           double padding)
{
    return std::shared_ptr<HSGenerateOperation>(new HSGenerateOperation(diameter, padding));
}

std::shared_ptr<ANImageBitmapRep> HSGenerateOperation::bitmap() const
{
    const MutexLock lock(_mutex);
    return _bitmap;
}

void HSGenerateOperation::setBitmap(std::shared_ptr<ANImageBitmapRep> bitmap)
{
    const MutexLock lock(_mutex);
    _bitmap = std::move(bitmap);
}

void HSGenerateOperation::main()
{
    const std::int64_t side = BMRound(std::trunc(_diameter));
    std::shared_ptr<ANImageBitmapRep> rep = ANImageBitmapRep::initWithSize({side, side});
    if (rep && rep->bitmapData()) {
        // Only whole diameters have the symmetry that the kernel lives on.
        if (double(side) == _diameter)
            HSFillWheel(rep->bitmapData(), int(side), _padding);
        else
            HSFillWheelScalar(rep->bitmapData(), int(side), _diameter, _padding);
        rep->setNeedsUpdate(true);
    }
    setBitmap(std::move(rep));
}

void HSGenerateOperation::start()
{
    main();
    _ended = true;
    _ended.notify_all();
}

void HSGenerateOperation::waitUntilFinished() const
{
    _ended.wait(false);
}
