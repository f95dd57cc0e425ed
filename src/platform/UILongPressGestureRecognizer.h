// Recognises a finger that rests on a cell.
//
//   Possible --(the finger has rested long enough)--> Began --(it lifts)--> Ended
//      \--(it moves, lifts or is taken away)--> Failed     \--(taken away)--> Cancelled
//
// The action hears of Began, Ended and Cancelled. The table feeds the recognisers of the pressed
// cell; of several on one cell only the first to begin fires (UITableViewCell sees to that). Main
// thread only.
#pragma once

#include <QObject>
#include <QPointF>
#include <QTimer>

#include <functional>

class UITableViewCell;

class UILongPressGestureRecognizer final : public QObject
{
    Q_OBJECT

public:
    enum class State { Possible = 0, Began = 1, Changed = 2, Ended = 3, Cancelled = 4, Failed = 5 };
    using Action = std::function<void(UILongPressGestureRecognizer &)>;

    explicit UILongPressGestureRecognizer(Action action);

    /// Seconds; 0.5 unless set.
    double minimumPressDuration() const { return _timer.interval() / 1000.0; }
    void setMinimumPressDuration(double seconds);

    State state() const { return _state; }
    /// The cell that it was added to, or null.
    UITableViewCell *view() const { return _view; }
    void setView(UITableViewCell *view) { _view = view; }

    void touchesBegan();
    void touchesEnded();
    void touchesCancelled();
    /// A press without a finger, by a key: begins and ends at once.
    void perform();

signals:
    void began();

private:
    void begin();
    void leaveFor(State afterBegan);

    const Action _action;
    QTimer _timer; // named "minimumPressDuration", so that a test need not wait
    State _state = State::Possible;
    UITableViewCell *_view = nullptr;
};
