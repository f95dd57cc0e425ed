#include "HSColorPicker/window/BGHSLoupeLayer.h"

#include <QSignalBlocker>

namespace
{
constexpr double vanishedScale = 0.01;

// The platform's curve for a start and an end at rest: a cubic Bezier with these control points.
QEasingCurve easeInEaseOut()
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment({0.42, 0.0}, {0.58, 1.0}, {1.0, 1.0});
    return curve;
}
} // namespace

BGHSLoupeLayer::BGHSLoupeLayer(QObject *parent)
    : _appear(this, "scale", this), _disappear(this, "scale", this)
{
    setParent(parent);
    setSize({side, side});
    setTransformOrigin(Bottom);

    prepareAnimation(_appear, QStringLiteral("cp_l_appear"), 350);
    _appear.setKeyValues({{0.0, 0.1}, {1.0 / 3.0, 1.4}, {2.0 / 3.0, 0.95}, {1.0, 1.0}});
    prepareAnimation(_disappear, QStringLiteral("cp_l_disappear"), 100);
    _disappear.setStartValue(1.0);
    _disappear.setEndValue(vanishedScale);
}

BGHSLoupeLayer::~BGHSLoupeLayer()
{
    removeAllAnimations(); // they would still report their end
}

void BGHSLoupeLayer::prepareAnimation(QPropertyAnimation &animation, const QString &name,
                                      int milliseconds)
{
    animation.setObjectName(name);
    animation.setDuration(milliseconds);
    animation.setEasingCurve(easeInEaseOut());
    connect(&animation, &QAbstractAnimation::stateChanged, this, [this, &animation](auto state) {
        if (state != QAbstractAnimation::Stopped)
            return;
        setScale(_transformScale);
        animationDidStop(animation, animation.currentTime() == animation.duration());
    });
}

void BGHSLoupeLayer::removeAllAnimations()
{
    // Silently: one that is taken away has neither run its course nor been interrupted.
    for (QPropertyAnimation *animation : {&_appear, &_disappear}) {
        const QSignalBlocker blocker(animation);
        animation->stop();
    }
}

void BGHSLoupeLayer::appearInColorPicker(HSColorPickerView &colorPicker)
{
    setColorPicker(&colorPicker);
    removeAllAnimations();
    _transformScale = 1.0;
    _isReadyToDismiss = false;
    setParentItem(&colorPicker);
    setNeedsDisplay();
    _isRunningInitialAnimation = true;
    _appear.start();
}

void BGHSLoupeLayer::disappearAnimated(bool animated)
{
    _isReadyToDismiss = true;
    if (_isRunningInitialAnimation)
        return;
    removeAllAnimations();
    if (animated && parentItem()) {
        _transformScale = vanishedScale;
        _disappear.start();
    } else {
        setParentItem(nullptr);
    }
}

void BGHSLoupeLayer::animationDidStop(const QAbstractAnimation &animation, bool finished)
{
    if (&animation == &_disappear) {
        if (!finished)
            return; // stays, tiny, until it appears again, as on the phone
        setParentItem(nullptr);
        _transformScale = 1.0;
        setScale(1.0);
    } else if (&animation == &_appear) {
        _isRunningInitialAnimation = false;
        if (_isReadyToDismiss)
            disappear();
    }
}

void BGHSLoupeLayer::setContentsScale(double scale)
{
    scale = scale > 0.0 ? scale : 1.0;
    if (scale == _contentsScale)
        return;
    _contentsScale = scale;
    dropStaticParts();
}

void BGHSLoupeLayer::setGridCirclePath(const QPainterPath &path)
{
    _gridCirclePath = path;
    dropStaticParts();
}

void BGHSLoupeLayer::dropStaticParts()
{
    _rim = {};
    _shownColors.reset();
    setNeedsDisplay();
}

void BGHSLoupeLayer::updatePolish()
{
    if (!_colorPicker)
        return;
    const CellColors colors = cellColors();
    if (colors == _shownColors)
        return;
    if (_rim.isNull())
        drawStaticParts();
    setPixels(pictureWithCells(colors), _contentsScale);
    _shownColors = colors;
}
