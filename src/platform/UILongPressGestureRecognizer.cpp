#include "platform/UILongPressGestureRecognizer.h"

#include <cmath>

UILongPressGestureRecognizer::UILongPressGestureRecognizer(Action action)
    : _action(std::move(action)), _timer(this)
{
    _timer.setObjectName("minimumPressDuration");
    _timer.setSingleShot(true);
    setMinimumPressDuration(0.5);
    connect(&_timer, &QTimer::timeout, this, &UILongPressGestureRecognizer::begin);
}

void UILongPressGestureRecognizer::setMinimumPressDuration(double seconds)
{
    _timer.setInterval(int(std::lround(seconds * 1000.0)));
}

void UILongPressGestureRecognizer::touchesBegan()
{
    _state = State::Possible;
    _timer.start();
}

void UILongPressGestureRecognizer::touchesEnded()
{
    leaveFor(State::Ended);
}

void UILongPressGestureRecognizer::touchesCancelled()
{
    leaveFor(State::Cancelled);
}

void UILongPressGestureRecognizer::perform()
{
    touchesBegan();
    begin();
    touchesEnded();
}

void UILongPressGestureRecognizer::begin()
{
    _timer.stop();
    _state = State::Began;
    emit began();
    _action(*this);
}

void UILongPressGestureRecognizer::leaveFor(State afterBegan)
{
    _timer.stop();
    if (_state != State::Began) {
        _state = State::Failed;
        return;
    }
    _state = afterBegan;
    _action(*this);
}
