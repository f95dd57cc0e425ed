#include "platform/UIButton.h"

#include <QKeyEvent>
#include <QMouseEvent>

UIButton::UIButton(QQuickItem *parent) : UIView(parent)
{
    setAcceptedMouseButtons(Qt::LeftButton); // a touch comes as one
    setActiveFocusOnTab(true);
}

void UIButton::setTitle(const QString &title)
{
    if (_title == title)
        return;
    _title = title;
    emit titleChanged();
}

void UIButton::setUsable(bool usable)
{
    if (_isUsable == usable)
        return;
    _isUsable = usable;
    setEnabled(usable);
    emit usableChanged();
}

void UIButton::setPressed(bool pressed)
{
    if (_isPressed == pressed)
        return;
    _isPressed = pressed;
    emit pressedChanged();
}

void UIButton::mousePressEvent(QMouseEvent *)
{
    setPressed(true);
}

void UIButton::mouseMoveEvent(QMouseEvent *event)
{
    setPressed(contains(event->position()));
}

void UIButton::mouseReleaseEvent(QMouseEvent *event)
{
    const bool isInside = _isPressed && contains(event->position());
    setPressed(false);
    if (isInside)
        emit touchUpInside();
}

void UIButton::mouseUngrabEvent()
{
    setPressed(false);
}

void UIButton::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            emit touchUpInside();
        return;
    default:
        event->ignore();
    }
}
