// The base of the classes that change the picture of a bitmap rep.
//
// A rep owns its manipulators; a manipulator refers back to its rep and never keeps it alive. It
// stands in for the rep, too: the rep's own operations are members here, and any other operation
// called by name goes to the rep when the manipulator does not have it.
#pragma once

#include "bitmap/BitmapContextRep.h"

#include <QSizeF>

class BitmapContextManipulator : public InvocationTarget
{
public:
    /// The rep must outlive the manipulator, or be replaced before the next call.
    static std::unique_ptr<BitmapContextManipulator> initWithContext(BitmapContextRep *context);

    BitmapContextRep *bitmapContext() const { return _bitmapContext; }
    void setBitmapContext(BitmapContextRep *context) { _bitmapContext = context; }

    CGContext context() const { return _bitmapContext->context(); }
    void setContext(CGContext context) { _bitmapContext->setContext(std::move(context)); }
    BMPoint bitmapSize() const { return _bitmapContext->bitmapSize(); }
    void setNeedsUpdate(bool needsUpdate) { _bitmapContext->setNeedsUpdate(needsUpdate); }
    void getRawPixel(std::uint8_t *raw, BMPoint point) { _bitmapContext->getRawPixel(raw, point); }
    void setRawPixel(const std::uint8_t *raw, BMPoint at) { _bitmapContext->setRawPixel(raw, at); }
    QImage CGImage() { return _bitmapContext->CGImage(); }

    bool answer(Invocation &call) override;
    /// Hands the call to the rep, whatever it is.
    void forwardInvocation(Invocation &call) override;

protected:
    explicit BitmapContextManipulator(BitmapContextRep *context) : _bitmapContext(context) {}

    /// A new canvas with the rep's snapshot drawn into the rectangle under the transform,
    /// bottom-left origin.
    CGContext newContextWithPicture(const QSizeF &canvas, const QRectF &rect,
                                    const QTransform &transform = {});

private:
    BitmapContextRep *_bitmapContext;
};
