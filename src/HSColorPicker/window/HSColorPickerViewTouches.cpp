// How people reach the wheel: by touch or mouse, one finger at a time, wherever it goes; by arrow
// keys.
#include "HSColorPicker/window/HSColorPickerView.h"

#include <QKeyEvent>

#include <algorithm>

namespace
{
constexpr int mouseId = -1; // no finger has it

QList<QEventPoint> touchesIn(const QTouchEvent &event, QEventPoint::State state)
{
    QList<QEventPoint> touches;
    std::ranges::copy_if(event.points(), std::back_inserter(touches),
                         [=](const QEventPoint &point) { return point.state() == state; });
    return touches;
}
} // namespace

void HSColorPickerView::touchesBegan(const QList<QEventPoint> &touches, const QPointerEvent &event)
{
    if (_showLoupe)
        showLoupeLayer();
    else
        hideLoupeLayer(true);
    updateStateForTouchPoint(touches.first().position());
    if (const auto delegate = _delegate.lock())
        delegate->touchesBegan(*this, touches, event);
}

void HSColorPickerView::touchesMoved(const QEventPoint &touch)
{
    updateStateForTouchPoint(touch.position());
}

void HSColorPickerView::touchesEnded(const QList<QEventPoint> &touches, const QPointerEvent &event)
{
    updateStateForTouchPoint(touches.first().position());
    hideLoupeLayer(true);
    if (const auto delegate = _delegate.lock())
        delegate->touchesEnded(*this, touches, event);
}

void HSColorPickerView::touchesCancelled()
{
    _touchId.reset();
    hideLoupeLayer(true);
}

void HSColorPickerView::mousePressEvent(QMouseEvent *event)
{
    if (_touchId)
        return;
    _touchId = mouseId;
    setKeepMouseGrab(true); // a page that scrolls would take the drag over
    touchesBegan(event->points(), *event);
}

void HSColorPickerView::mouseMoveEvent(QMouseEvent *event)
{
    if (_touchId == mouseId)
        touchesMoved(event->points().first());
}

void HSColorPickerView::mouseReleaseEvent(QMouseEvent *event)
{
    if (_touchId != mouseId)
        return;
    _touchId.reset();
    touchesEnded(event->points(), *event);
}

void HSColorPickerView::mouseUngrabEvent()
{
    if (_touchId == mouseId)
        touchesCancelled();
}

void HSColorPickerView::touchEvent(QTouchEvent *event)
{
    if (event->type() == QEvent::TouchCancel) {
        touchUngrabEvent();
        return;
    }
    const QList<QEventPoint> pressed = touchesIn(*event, QEventPoint::Pressed);
    if (!_touchId && !pressed.isEmpty()) {
        _touchId = pressed.first().id();
        setKeepTouchGrab(true);
        touchesBegan(pressed, *event);
        return;
    }
    const auto touch = std::ranges::find(event->points(), _touchId, &QEventPoint::id);
    if (touch == event->points().end())
        return; // some other finger
    if (touch->state() == QEventPoint::Updated) {
        touchesMoved(*touch);
    } else if (touch->state() == QEventPoint::Released) {
        _touchId.reset();
        touchesEnded({*touch}, *event);
    }
}

void HSColorPickerView::touchUngrabEvent()
{
    if (_touchId && _touchId != mouseId)
        touchesCancelled();
}

bool HSColorPickerView::moveByKey(int key, int modifiers)
{
    const double stride = modifiers & Qt::ShiftModifier ? 10.0 : 1.0;
    switch (key) {
    case Qt::Key_Left:
        updateStateForTouchPoint(selection() - QPointF(stride, 0.0));
        return true;
    case Qt::Key_Right:
        updateStateForTouchPoint(selection() + QPointF(stride, 0.0));
        return true;
    case Qt::Key_Up:
        updateStateForTouchPoint(selection() - QPointF(0.0, stride));
        return true;
    case Qt::Key_Down:
        updateStateForTouchPoint(selection() + QPointF(0.0, stride));
        return true;
    default:
        return false;
    }
}

void HSColorPickerView::keyPressEvent(QKeyEvent *event)
{
    event->setAccepted(moveByKey(event->key(), event->modifiers()));
}
