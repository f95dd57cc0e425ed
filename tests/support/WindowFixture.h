// What a person does at a window, for the fixtures that have one.
#pragma once

#include <QCoreApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

class WindowFixture : public testing::Test
{
protected:
    virtual QQuickWindow &window() = 0;
    /// Lets pending events run, and what is to be deleted go.
    virtual void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Points of the window.
    void press(QPoint point) { QTest::mousePress(&window(), Qt::LeftButton, {}, point); }
    void move(QPoint point) { QTest::mouseMove(&window(), point); }
    void release(QPoint point) { QTest::mouseRelease(&window(), Qt::LeftButton, {}, point); }
    void tap(QPointF point, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&window(), button, {}, point.toPoint());
        settle();
    }
    void tap(const QQuickItem *item) { tap(sceneFrame(item).center()); }
    /// Turns the mouse wheel, 120 a notch, down where negative.
    void turnWheel(QPoint point, int turn)
    {
        QWheelEvent wheel(point, window().mapToGlobal(point), {}, {0, turn}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&window(), &wheel);
    }
    static QPointingDevice *touchScreen()
    {
        static QPointingDevice *const device = QTest::createTouchDevice(); // Qt keeps it for good
        return device;
    }
    QTest::QTouchEventSequence touch() { return QTest::touchEvent(&window(), touchScreen()); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&window(), key, modifiers);
        settle();
    }
    void type(const char *text)
    {
        for (; *text; ++text)
            QTest::keyClick(&window(), *text);
    }

    static QRectF sceneFrame(const QQuickItem *item)
    {
        return item->mapRectToScene(item->boundingRect());
    }
};

/// With a window of its own.
class OwnWindowFixture : public WindowFixture
{
protected:
    QQuickWindow &window() override { return _window; }
    /// Shows the window, in front and with the keyboard.
    void show(QSize size)
    {
        _window.resize(size);
        _window.show();
        _window.requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&_window));
    }

private:
    QQuickWindow _window;
};
