#include "HSColorPicker/window/BGHSLoupeLayer.h"
#include "HSColorPicker/window/HSColorPickerView.h"
#include "HSColorPicker/window/LoupePixels.h"
#include "platform/QMLViews.h"
#include "support/WindowFixture.h"

#include <QQmlComponent>

namespace
{
using Touches = QList<QEventPoint>;

class TouchRecorder : public HSColorPickerViewDelegate
{
public:
    void colorPickerDidChangeSelection(HSColorPickerView &) override { log += "changed"; }
    void touchesBegan(HSColorPickerView &, const Touches &, const QPointerEvent &) override
    {
        log += "began";
    }
    void touchesEnded(HSColorPickerView &, const Touches &, const QPointerEvent &) override
    {
        log += "ended";
    }
    QStringList taken() { return std::exchange(log, {}); }

    QStringList log;
};

const QStringList nothing, began{"changed", "began"}, ended{"changed", "ended"};

/// A wheel of 200 points in a page that scrolls upward.
class HSColorPickerViewTouchesTest : public OwnWindowFixture
{
protected:
    void SetUp() override
    {
        QMLViews::prepareEngine(engine);
        QQmlComponent component(&engine);
        component.setData("import QtQuick; import Tintloom\n"
                          "Flickable { width: 300; height: 220; contentHeight: 1000\n"
                          "HSColorPickerView { width: 200; height: 200 } }",
                          {});
        page.reset(qobject_cast<QQuickItem *>(component.create()));
        ASSERT_TRUE(page) << component.errorString().toStdString();
        page->setParentItem(window().contentItem());
        show({300, 220});
        view = page->findChild<HSColorPickerView *>();
        view->setDelegate(recorder);
    }

    BGHSLoupeLayer *loupe() { return view->findChild<BGHSLoupeLayer *>(); }
    void endPopUp() { view->findChild<QAbstractAnimation *>("cp_l_appear")->setCurrentTime(350); }

    std::shared_ptr<TouchRecorder> recorder = std::make_shared<TouchRecorder>();
    QQmlEngine engine;
    std::unique_ptr<QQuickItem> page;
    HSColorPickerView *view = nullptr;
};

TEST_F(HSColorPickerViewTouchesTest, AMouseDragsTheSelection)
{
    press({40, 50});
    EXPECT_EQ(view->selection(), QPointF(40, 50));
    EXPECT_EQ(recorder->taken(), began);
    for (int y = 60; y <= 180; y += 20) // far enough for the page to take it for a flick
        move({60, y});
    EXPECT_EQ(view->selection(), QPointF(60, 180));
    EXPECT_EQ(page->property("contentY").toDouble(), 0.0);
    move({250, 90});
    recorder->taken();
    release({250, 90});
    EXPECT_EQ(view->selection(), QPointF(189, 90)) << "out of the view, along its edge";
    EXPECT_EQ(recorder->taken(), ended);
    tap(QPointF(70, 70), Qt::RightButton);
    EXPECT_EQ(recorder->taken(), nothing);
}

TEST_F(HSColorPickerViewTouchesTest, OneFingerAtATime)
{
    touch().press(3, {40, 50});
    EXPECT_EQ(recorder->taken(), began);
    touch().stationary(3).press(4, {100, 100});
    touch().stationary(3).move(4, {120, 100});
    press({150, 150});
    release({150, 150});
    EXPECT_EQ(recorder->taken(), nothing);
    EXPECT_EQ(view->selection(), QPointF(40, 50));

    for (int y = 60; y <= 180; y += 20)
        touch().move(3, {60, y}).stationary(4);
    // Moves of a finger wait for the next frame.
    EXPECT_TRUE(QTest::qWaitFor([this] { return view->selection() == QPointF(60, 180); }));
    EXPECT_EQ(page->property("contentY").toDouble(), 0.0);
    recorder->taken();
    touch().release(3, {70, 300}).stationary(4);
    EXPECT_EQ(view->selection(), QPointF(70, 189));
    EXPECT_EQ(recorder->taken(), ended);
    touch().release(4, {30, 30});
    EXPECT_EQ(recorder->taken(), nothing) << "the other finger came too late";
    press({20, 30});
    EXPECT_EQ(view->selection(), QPointF(20, 30)) << "free again";
}

TEST_F(HSColorPickerViewTouchesTest, ACancelledTouchLeavesTheSelection)
{
    const auto hide = [this] {
        view->setVisible(false);
        view->setVisible(true);
    };
    touch().press(0, {40, 50});
    QTouchEvent cancel(QEvent::TouchCancel, touchScreen());
    QCoreApplication::sendEvent(&window(), &cancel);
    touch().release(0, {90, 90});
    EXPECT_EQ(view->selection(), QPointF(40, 50)) << "cancelled by the system";
    EXPECT_TRUE(loupe()->isReadyToDismiss());
    touch().press(0, {60, 70});
    hide();
    touch().release(0, {90, 90});
    EXPECT_EQ(view->selection(), QPointF(60, 70)) << "by hiding";
    press({20, 30});
    hide();
    release({90, 90});
    EXPECT_EQ(view->selection(), QPointF(20, 30)) << "the mouse, by hiding";
    EXPECT_FALSE(recorder->log.contains("ended"));
}

TEST_F(HSColorPickerViewTouchesTest, OneLoupeFollowsEachFingerAndShowsTheColourThere)
{
    view->setShowLoupe(false);
    press({60, 140});
    release({60, 140});
    EXPECT_EQ(loupe(), nullptr);
    view->setShowLoupe(true);
    press({100, 120});
    EXPECT_EQ(view->childItems().last(), loupe()) << "above all layers";
    endPopUp();
    for (const QPoint point : {QPoint(141, 133), {80, 70}, {-20, 175}}) {
        move(point);
        const QPointF middle = loupe()->mapToScene(QPointF(48.5, 48.5));
        EXPECT_EQ(pixelAt(window().grabWindow(), middle - QPointF(4, 4)),
                  view->colorAtPoint(view->selection() + QPointF(-7, -7)).qColor().rgba());
    }
    EXPECT_EQ(loupe()->position(), QPointF(-38, 78)) << "from -37.5, away from zero";
    release({-20, 175});
    EXPECT_TRUE(loupe()->isReadyToDismiss());

    loupe()->appearInColorPicker(*view);
    view->setShowLoupe(false);
    press({60, 140});
    EXPECT_TRUE(loupe()->isReadyToDismiss()) << "a touch without a loupe sends it away";
    release({60, 140});
    view->setShowLoupe(true);
    press({60, 120});
    EXPECT_FALSE(loupe()->isReadyToDismiss());
    EXPECT_EQ(view->findChildren<BGHSLoupeLayer *>().size(), 1);
    endPopUp();
    page->setParentItem(nullptr);
    EXPECT_EQ(loupe()->parentItem(), nullptr) << "out of the window it is gone at once";
}
} // namespace
