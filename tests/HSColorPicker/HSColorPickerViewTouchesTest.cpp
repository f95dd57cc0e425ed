#include "HSColorPicker/ColorPickerClasses/BGHSLoupeLayer.h"
#include "HSColorPicker/ColorPickerClasses/HSColorPickerView.h"
#include "HSColorPicker/LoupePixels.h"
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
    void SetUp() override
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
        ASSERT_TRUE(page) << component.errorString().toStdString();
        view = page->findChild<HSColorPickerView *>();
        view->setDelegate(recorder);
        page->setParentItem(window.contentItem());
        window.resize(300, 220);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        recorder->log.clear();
    }

    /// Moves of a finger wait for the next frame.
    bool waitForSelection(QPointF point)
    {
        return QTest::qWaitFor([=, this] { return view->selection() == point; });
    }
    static QPoint inWindow(QPoint point) { return point + QPoint(10, 10); }
    void press(QPoint point) { QTest::mousePress(&window, Qt::LeftButton, {}, inWindow(point)); }
    void move(QPoint point) { QTest::mouseMove(&window, inWindow(point)); }
    void release(QPoint point)
    {
        QTest::mouseRelease(&window, Qt::LeftButton, {}, inWindow(point));
    }
    QTest::QTouchEventSequence touch() { return QTest::touchEvent(&window, device()); }
    static QPointingDevice *device()
    {
        static QPointingDevice *screen = QTest::createTouchDevice();
        return screen;
    }
    BGHSLoupeLayer *loupe() { return view->findChild<BGHSLoupeLayer *>(); }
    QAbstractAnimation &popUp() { return *loupe()->findChild<QAbstractAnimation *>("cp_l_appear"); }
    QAbstractAnimation &shrinking()
    {
        return *loupe()->findChild<QAbstractAnimation *>("cp_l_disappear");
    }

    std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>();
    QQmlEngine engine;
    QQuickWindow window;
    std::unique_ptr<QQuickItem> page;
    HSColorPickerView *view = nullptr;
};

TEST_F(HSColorPickerViewTouchesTest, AMouseDragsTheSelection)
{
    press({40, 50});
    EXPECT_EQ(view->selection(), QPointF(40, 50));
    EXPECT_EQ(recorder->taken(), (QStringList{"changed", "began 1"}));
    for (int y = 60; y <= 180; y += 20) // far enough for the page to take it for a flick
        move({60, y});
    EXPECT_EQ(view->selection(), QPointF(60, 180));
    move({250, -30});
    EXPECT_EQ(view->selection(), QPointF(189, 11)) << "out of the view, along its edges";
    move({-8, 90});
    recorder->taken();
    release({-8, 90});
    EXPECT_EQ(view->selection(), QPointF(11, 90));
    EXPECT_EQ(recorder->taken(), (QStringList{"changed", "ended 1"}));
    EXPECT_EQ(page->property("contentY").toDouble(), 0.0);

    move({70, 70});
    QTest::mouseClick(&window, Qt::RightButton, {}, inWindow({70, 70}));
    EXPECT_EQ(recorder->taken(), QStringList());
}

TEST_F(HSColorPickerViewTouchesTest, OneFingerAtATime)
{
    touch().press(3, inWindow({40, 50}));
    EXPECT_EQ(recorder->taken(), (QStringList{"changed", "began 1"}));
    touch().stationary(3).press(4, inWindow({100, 100}));
    touch().stationary(3).move(4, inWindow({120, 100}));
    press({150, 150});
    release({150, 150});
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

    press({20, 30});
    EXPECT_EQ(view->selection(), QPointF(20, 30)) << "free again";
}

TEST_F(HSColorPickerViewTouchesTest, ACancelledTouchLeavesTheSelection)
{
    for (const bool bySystem : {true, false}) {
        SCOPED_TRACE(bySystem ? "by the system" : "by hiding");
        touch().press(0, inWindow({40, 50}));
        touch().move(0, inWindow({50, 60}));
        EXPECT_TRUE(waitForSelection({50, 60}));
        recorder->taken();
        QTouchEvent cancel(QEvent::TouchCancel, device());
        if (bySystem)
            QCoreApplication::sendEvent(&window, &cancel);
        else
            view->setVisible(false);
        touch().release(0, inWindow({90, 90}));
        view->setVisible(true);
        EXPECT_EQ(view->selection(), QPointF(50, 60));
        EXPECT_EQ(recorder->taken(), QStringList());
        EXPECT_TRUE(loupe()->isReadyToDismiss());
    }
    press({20, 30});
    view->setVisible(false);
    view->setVisible(true);
    release({70, 70});
    EXPECT_EQ(view->selection(), QPointF(20, 30));
}

TEST_F(HSColorPickerViewTouchesTest, OneLoupeFollowsEachFingerAndShowsTheColourThere)
{
    press({100, 120});
    ASSERT_TRUE(loupe());
    EXPECT_EQ(view->childItems().last(), loupe()) << "above all layers";
    popUp().setCurrentTime(350);
    for (const QPoint point : {QPoint(60, 150), {141, 133}, {80, 70}, {-20, 175}}) {
        move(point);
        const QPointF middle = loupe()->mapToScene(QPointF(48.5, 48.5));
        EXPECT_EQ(pixelAt(window.grabWindow(), middle - QPointF(4, 4)),
                  rgbOf(view->colorAtPoint(view->selection() + QPointF(-7, -7))));
    }
    EXPECT_EQ(loupe()->position(), QPointF(-38, 78)) << "from -37.5, away from zero";
    release({-20, 175});
    EXPECT_EQ(shrinking().state(), QAbstractAnimation::Running);

    press({60, 120});
    EXPECT_EQ(shrinking().state(), QAbstractAnimation::Stopped);
    EXPECT_EQ(view->findChildren<BGHSLoupeLayer *>().size(), 1);
    popUp().setCurrentTime(350);
    page->setParentItem(nullptr);
    EXPECT_EQ(loupe()->parentItem(), nullptr) << "out of the window it is gone at once";
}

TEST_F(HSColorPickerViewTouchesTest, TheLoupeGoesWithItsWheel)
{
    for (const int time : {100, 350}) { // dismissal pending, shrinking
        auto other = std::make_unique<HSColorPickerView>(window.contentItem());
        other->setFrame({10, 10, 200, 200});
        press({60, 140});
        release({60, 140});
        other->findChild<QAbstractAnimation *>("cp_l_appear")->setCurrentTime(time);
    }
    EXPECT_EQ(loupe(), nullptr) << "the wheel below was not touched";
}

TEST_F(HSColorPickerViewTouchesTest, TheLoupeStaysAwayWhenItIsNotWanted)
{
    view->setShowLoupe(false);
    press({60, 140});
    EXPECT_EQ(loupe(), nullptr);
    release({60, 140});
    view->setShowLoupe(true);
    press({60, 140});
    popUp().setCurrentTime(350);
    release({60, 140});
    shrinking().setCurrentTime(20);
    view->setShowLoupe(false);
    press({60, 140});
    EXPECT_EQ(popUp().state(), QAbstractAnimation::Stopped);
    EXPECT_EQ(shrinking().state(), QAbstractAnimation::Running);
    EXPECT_LT(shrinking().currentTime(), 20) << "every touch sends it away anew";
}
} // namespace
