// Resamples a rep's picture to another size.
#pragma once

#include "bitmap/BitmapContextManipulator.h"

/// Sizes are in pixels. A size that no context can have leaves the rep with a null context.
class BitmapScaleManipulator : public BitmapContextManipulator
{
public:
    static std::unique_ptr<BitmapScaleManipulator> initWithContext(BitmapContextRep *context);

    /// Stretches the picture; the proportions are not kept.
    void setSize(BMPoint size);
    /// Shows all of the picture in its proportions, centred on a canvas of that size.
    void setSizeFittingFrame(BMPoint size);
    /// Covers a canvas of that size with the picture in its proportions, centred; the rest is cut
    /// off.
    void setSizeFillingFrame(BMPoint size);

    bool answer(Invocation &call) override;

private:
    using BitmapContextManipulator::BitmapContextManipulator;
    void setSizeScaling(BMPoint size, double factor);
    struct Ratios {
        float width, height;
    };
    Ratios ratiosTo(BMPoint size) const;
};
