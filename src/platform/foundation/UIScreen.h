// The phone's screen.
//
// Its size is that of the window's stage, in points; its scale, in pixels per point, rules the
// images that are written into packages and has nothing to do with the display that the window is
// on.
#pragma once

#include <QSizeF>

#include <atomic>

class UIScreen
{
public:
    static UIScreen &mainScreen();

    /// Points. Main thread only.
    QSizeF size() const { return _size; }
    void setSize(QSizeF size) { _size = size; }

    /// Pixels per point; any thread.
    double scale() const { return _scale; }
    void setScale(double scale) { _scale = scale; }

private:
    QSizeF _size{320.0, 568.0};
    std::atomic<double> _scale{2.0};
};
