#include "HSColorPicker/ColorPickerClasses/BGHSLoupeLayer.h"
#include "HSColorPicker/ColorPickerClasses/HSColorPickerView.h"
#include "platform/QMLViews.h"

#include <QQmlComponent>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

namespace
{
class Recorder : public HSColorPickerViewDelegate
{
public:
    void colorPickerDidChangeSelection(HSColorPickerView &) override { log += "changed"; }
    void touchesBegan(HSColorPickerView &, const QList<QEventPoint> &touches,
                      const QPointerEvent &) override
    {
        log += QString("began %1").arg(touches.size());
    }
    void touchesEnded(HSColorPickerView &, const QList<QEventPoint> &touches,
                      const QPointerEvent &) override
    {
        log += QString("ended %1").arg(touches.size());
    }
    QStringList taken() { return std::exchange(log, {}); }

    QStringList log;
};

/// A wheel of 200 points, 10 points from the window's corner, in a page that scrolls upward.
class HSColorPickerViewTouchesTest : public testing::Test
{
protected:
    HSColorPickerViewTouchesTest()
    {
        QMLViews::prepareEngine(engine);
        QQmlComponent component(&engine);
        component.setData(R"(
            import QtQuick
            import Tintloom
            Flickable {
                width: 300; height: 220; contentHeight: 1000
                HSColorPickerView { x: 10; y: 10; width: 200; height: 200 }
            })",
                          {});
        page.reset(qobject_cast<QQuickItem *>(component.create()));
        if (!page) // the fixture is at fault, so no test can run
            qFatal("%s", qPrintable(component.errorString()));
        view = page->findChild<HSColorPickerView *>();
        view->setDelegate(recorder);
        page->setParentItem(window.contentItem());
        window.resize(300, 220);
        window.show();
        recorder->log.clear();
    }

    bool waitForWindow() { return QTest::qWaitForWindowExposed(&window); }
    /// Moves of a finger wait for the next frame.
    bool waitForSelection(QPointF point)
    {
        return QTest::qWaitFor([=, this] { return view->selection() == point; });
    }
    static QPoint inWindow(QPoint point) { return point + QPoint(10, 10); }
    void mouse(void (*event)(QWindow *, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int),
               QPoint point)
    {
        event(&window, Qt::LeftButton, {}, inWindow(point), -1);
    }
    void moveMouse(QPoint point) { QTest::mouseMove(&window, inWindow(point)); }
    QTest::QTouchEventSequence touch() { return QTest::touchEvent(&window, device()); }
    static QPointingDevice *device()
    {
        static QPointingDevice *screen = QTest::createTouchDevice();
        return screen;
    }
    BGHSLoupeLayer *loupe() { return view->findChild<BGHSLoupeLayer *>(); }

    std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>();
    QQmlEngine engine;
    QQuickWindow window;
    std::unique_ptr<QQuickItem> page;
    HSColorPickerView *view;
};

TEST_F(HSColorPickerViewTouchesTest, AMouseDragsTheSelection)
{
    ASSERT_TRUE(waitForWindow());
    mouse(QTest::mousePress, {40, 50});
    EXPECT_EQ(view->selection(), QPointF(40, 50));
    EXPECT_EQ(recorder->taken(), (QStringList{"changed", "began 1"}));
    for (int y = 60; y <= 180; y += 20) // far enough for the page to take it for a flick
        moveMouse({60, y});
    EXPECT_EQ(view->selection(), QPointF(60, 180));
    moveMouse({250, -30});
    EXPECT_EQ(view->selection(), QPointF(189, 11)) << "out of the view, along its edges";
    moveMouse({-8, 90});
    recorder->taken();
    mouse(QTest::mouseRelease, {-8, 90});
    EXPECT_EQ(view->selection(), QPointF(11, 90));
    EXPECT_EQ(recorder->taken(), (QStringList{"changed", "ended 1"}));
    EXPECT_EQ(page->property("contentY").toDouble(), 0.0);

    moveMouse({70, 70});
    QTest::mouseClick(&window, Qt::RightButton, {}, inWindow({70, 70}));
    EXPECT_EQ(recorder->taken(), QStringList());
}

TEST_F(HSColorPickerViewTouchesTest, OneFingerAtATime)
{
    ASSERT_TRUE(waitForWindow());
    touch().press(3, inWindow({40, 50}));
    EXPECT_EQ(recorder->taken(), (QStringList{"changed", "began 1"}));
    touch().stationary(3).press(4, inWindow({100, 100}));
    touch().stationary(3).move(4, inWindow({120, 100}));
    mouse(QTest::mousePress, {150, 150});
    mouse(QTest::mouseRelease, {150, 150});
    EXPECT_EQ(recorder->taken(), QStringList());
    EXPECT_EQ(view->selection(), QPointF(40, 50));

    for (int y = 60; y <= 180; y += 20)
        touch().move(3, inWindow({60, y})).stationary(4);
    EXPECT_TRUE(waitForSelection({60, 180}));
    recorder->taken();
    touch().release(3, inWindow({70, 300})).stationary(4);
    EXPECT_EQ(view->selection(), QPointF(70, 189));
    EXPECT_EQ(recorder->taken(), (QStringList{"changed", "ended 1"}));
    touch().move(4, inWindow({30, 30}));
    touch().release(4, inWindow({30, 30}));
    EXPECT_EQ(recorder->taken(), QStringList()) << "the other finger came too late";
    EXPECT_EQ(page->property("contentY").toDouble(), 0.0);

    mouse(QTest::mousePress, {20, 30});
    EXPECT_EQ(view->selection(), QPointF(20, 30)) << "free again";
    mouse(QTest::mouseRelease, {20, 30});
}

TEST_F(HSColorPickerViewTouchesTest, ACancelledTouchLeavesTheSelection)
{
    ASSERT_TRUE(waitForWindow());
    const std::pair<const char *, std::function<void()>> cancellations[] = {
        {"by the system",
         [this] {
             QTouchEvent cancel(QEvent::TouchCancel, device());
             QCoreApplication::sendEvent(&window, &cancel);
         }},
        {"by hiding", [this] { view->setVisible(false); }},
    };
    for (const auto &[what, cancel] : cancellations) {
        SCOPED_TRACE(what);
        touch().press(0, inWindow({40, 50}));
        touch().move(0, inWindow({50, 60}));
        EXPECT_TRUE(waitForSelection({50, 60}));
        recorder->taken();
        cancel();
        touch().release(0, inWindow({90, 90}));
        view->setVisible(true);
        EXPECT_EQ(view->selection(), QPointF(50, 60));
        EXPECT_EQ(recorder->taken(), QStringList());
        ASSERT_TRUE(loupe());
        EXPECT_TRUE(loupe()->isReadyToDismiss());
    }
    mouse(QTest::mousePress, {20, 30});
    view->setVisible(false);
    view->setVisible(true);
    mouse(QTest::mouseRelease, {70, 70});
    EXPECT_EQ(view->selection(), QPointF(20, 30));
}

} // namespace
