#include "HSColorPicker/ColorPickerClasses/BGHSLoupeLayer.h"

#include "support/Canvas.h"

#include <gtest/gtest.h>
#include <utility>

namespace
{
// A wheel on a canvas at scale 2, touched in the middle. No event loop runs: time stands still
// unless a test sets it.
class BGHSLoupeLayerTest : public testing::Test
{
protected:
    BGHSLoupeLayerTest() { wheel.setFrame({20, 120, 240, 240}); }

    /// As the wheel does at a touch down.
    void touchDown() { loupe.appearInColorPicker(wheel); }
    void show()
    {
        touchDown();
        popUp.setCurrentTime(350);
    }
    bool isAttached() const { return loupe.parentItem() == &wheel; }

    Canvas canvas{{280, 380}, 2.0};
    HSColorPickerView wheel{canvas.contentItem()};
    BGHSLoupeLayer loupe;
    QPropertyAnimation &popUp = *loupe.findChild<QPropertyAnimation *>("cp_l_appear");
    QPropertyAnimation &shrinking = *loupe.findChild<QPropertyAnimation *>("cp_l_disappear");
};

TEST_F(BGHSLoupeLayerTest, PopsUpAndShrinks)
{
    touchDown();
    EXPECT_TRUE(isAttached());
    EXPECT_TRUE(loupe.isRunningInitialAnimation());
    EXPECT_EQ(popUp.duration(), 350);
    // Eased times at a quarter, a half and three quarters of the way: 0.1292, 0.5, 0.8708.
    const struct {
        int time;
        double scale, tolerance;
    } steps[] = {{0, 0.1, 1e-9}, {87, 0.6, 0.01}, {175, 1.175, 1e-3}, {263, 0.98, 0.01}};
    for (const auto &step : steps) {
        popUp.setCurrentTime(step.time);
        EXPECT_NEAR(loupe.scale(), step.scale, step.tolerance) << step.time;
        EXPECT_EQ(loupe.mapToItem(&wheel, QPointF(48.5, 97)), loupe.position() + QPointF(48.5, 97))
            << "it grows out of the finger";
    }
    popUp.setCurrentTime(350);
    EXPECT_EQ(loupe.scale(), 1.0);
    EXPECT_FALSE(loupe.isRunningInitialAnimation());
    EXPECT_EQ(shrinking.state(), QAbstractAnimation::Stopped);

    loupe.disappear();
    EXPECT_EQ(shrinking.duration(), 100);
    shrinking.setCurrentTime(25);
    EXPECT_NEAR(loupe.scale(), 1.0 - 0.99 * 0.1292, 1e-3);
    EXPECT_TRUE(isAttached());
    shrinking.setCurrentTime(100);
    EXPECT_FALSE(isAttached());
    EXPECT_EQ(loupe.scale(), 1.0);
    loupe.disappear();
    EXPECT_EQ(shrinking.state(), QAbstractAnimation::Stopped) << "there is nothing to shrink";

    show();
    loupe.disappearAnimated(false);
    EXPECT_FALSE(isAttached());
    EXPECT_EQ(shrinking.state(), QAbstractAnimation::Stopped);
}

TEST_F(BGHSLoupeLayerTest, AShortTouchLetsThePopUpEnd)
{
    for (const bool animated : {true, false}) {
        touchDown();
        popUp.setCurrentTime(100);
        loupe.disappearAnimated(animated);
        EXPECT_TRUE(loupe.isReadyToDismiss());
        EXPECT_EQ(popUp.state(), QAbstractAnimation::Running);
        popUp.setCurrentTime(350);
        EXPECT_TRUE(isAttached());
        EXPECT_EQ(shrinking.state(), QAbstractAnimation::Running);
        shrinking.setCurrentTime(100);
        EXPECT_FALSE(isAttached());
    }
}

TEST_F(BGHSLoupeLayerTest, ATouchDownStartsOverFromEveryState)
{
    const struct {
        int appearedFor;
        bool isReleased;
    } states[] = {{0, false}, {200, false}, {350, false}, {0, true}, {200, true}, {350, true}};
    for (const auto &[appearedFor, isReleased] : states) {
        SCOPED_TRACE(testing::Message() << appearedFor << ", " << isReleased);
        touchDown();
        popUp.setCurrentTime(appearedFor);
        if (isReleased)
            loupe.disappear();
        shrinking.setCurrentTime(50);
        touchDown();
        EXPECT_TRUE(isAttached());
        EXPECT_TRUE(loupe.isRunningInitialAnimation());
        EXPECT_FALSE(loupe.isReadyToDismiss());
        EXPECT_EQ(loupe.scale(), 0.1);
        popUp.setCurrentTime(350);
        EXPECT_EQ(shrinking.state(), QAbstractAnimation::Stopped);
        EXPECT_EQ(loupe.scale(), 1.0);
        loupe.disappearAnimated(false);
    }
}

TEST_F(BGHSLoupeLayerTest, InterruptedShrinkingLeavesItTiny)
{
    show();
    loupe.disappear();
    shrinking.setCurrentTime(40);
    shrinking.stop();
    EXPECT_TRUE(isAttached());
    EXPECT_EQ(loupe.scale(), 0.01);
    show();
    EXPECT_EQ(loupe.scale(), 1.0);

    touchDown();
    loupe.disappear();
    popUp.setCurrentTime(100);
    popUp.stop(); // an interrupted pop-up has ended as well
    EXPECT_EQ(shrinking.state(), QAbstractAnimation::Running);
}

TEST_F(BGHSLoupeLayerTest, DrawsOnlyWhenACellChanges)
{
    loupe.setContentsScale(2.0);
    show();
    canvas.draw();
    qint64 shown = loupe.pixels().cacheKey();
    const auto isRedrawn = [&] {
        loupe.setNeedsDisplay();
        canvas.draw();
        return std::exchange(shown, loupe.pixels().cacheKey()) != shown;
    };
    EXPECT_FALSE(isRedrawn());
    wheel.setSelection({100, 90});
    EXPECT_TRUE(isRedrawn());
    wheel.setBrightness(0.0);
    EXPECT_TRUE(isRedrawn());
    wheel.setSelection({60, 120});
    EXPECT_FALSE(isRedrawn()) << "black is black everywhere";
    loupe.setContentsScale(3.0);
    EXPECT_TRUE(isRedrawn());
    EXPECT_EQ(loupe.pixels().size(), QSize(291, 291));
}
} // namespace
