// What follows a finger, at a display's pace: a finger reports its moves faster than anybody can
// see.
#pragma once

#include <QTimer>

#include <functional>

class DisplayPace : public QObject
{
public:
    /// Does the action on the owner's thread, and no more often than a display shows frames.
    DisplayPace(std::function<void()> action, QObject *owner)
        : QObject(owner), _action(std::move(action))
    {
        constexpr int frame = 16; // milliseconds: a display shows hardly more of them
        _rest.setSingleShot(true);
        _rest.setInterval(frame);
        connect(&_rest, &QTimer::timeout, this, [this] {
            if (_isDue)
                act();
        });
    }

    /// At once, unless that has just been done; then when the frame is over, once for all askings.
    void act()
    {
        _isDue = _rest.isActive();
        if (_isDue)
            return;
        _rest.start();
        _action();
    }

private:
    const std::function<void()> _action;
    QTimer _rest{this}; // runs after each doing
    bool _isDue = false;
};
