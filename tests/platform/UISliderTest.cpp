#include "platform/UISlider.h"

#include "support/WindowFixture.h"

#include <cmath>

namespace
{
// 230 points wide: the knob's middle travels from 15 to 215, a hundredth of the range every 2.
struct UISliderTest : OwnWindowFixture {
    UISliderTest()
    {
        slider.setFrame({10, 20, 230, 30});
        QObject::connect(&slider, &UISlider::moved, [this] { ++movements; });
        show({260, 120});
    }

    /// A point of the window with the knob's middle at that percentage below it.
    static QPoint at(int percent) { return {10 + 15 + 2 * percent, 20 + 15}; }

    UISlider slider{window().contentItem()};
    int movements = 0;
};

TEST_F(UISliderTest, ClampsWhatIsSetAndReportsNothing)
{
    for (const auto &[set, kept] : {std::pair(-1.0f, 0.0f), {7.0f, 1.0f}, {NAN, 0.0f}}) {
        slider.setValue(set);
        EXPECT_EQ(slider.value(), kept);
    }
    slider.setValue(1.0f);
    slider.setMinimumValue(2.0f); // a range turned over, for a moment
    EXPECT_EQ(slider.value(), 1.0f);
    slider.setMaximumValue(6.0f);
    EXPECT_EQ(slider.value(), 2.0f);
    slider.setValue(4.0f);
    EXPECT_EQ(slider.knobRect(), QRectF(101, 1, 28, 28));
    EXPECT_EQ(movements, 0);
}

TEST_F(UISliderTest, TheKnobFollowsTheMouse)
{
    slider.setValue(0.5f);
    press(at(50) + QPoint(9, 5)); // on the knob, but not in its middle
    EXPECT_TRUE(slider.isTracking());
    EXPECT_TRUE(slider.keepMouseGrab() && slider.keepTouchGrab()) << "from a page that scrolls";
    move(at(60) + QPoint(9, 40));
    EXPECT_FLOAT_EQ(slider.value(), 0.6f);
    move(at(110));
    move(at(112));
    EXPECT_EQ(slider.value(), 1.0f);
    EXPECT_EQ(movements, 2) << "at the end nothing changes any more";
    release(at(20) + QPoint(9, 0));
    EXPECT_FLOAT_EQ(slider.value(), 0.2f);
    EXPECT_FALSE(slider.isTracking());
    move(at(80));
    EXPECT_FLOAT_EQ(slider.value(), 0.2f);

    press(at(75)); // beside the knob
    EXPECT_FLOAT_EQ(slider.value(), 0.75f);
    release(at(75));
    tap(at(10), Qt::RightButton);
    slider.setEnabled(false);
    tap(at(10));
    EXPECT_FLOAT_EQ(slider.value(), 0.75f);
    EXPECT_EQ(movements, 4);
}

TEST_F(UISliderTest, ObeysOneFingerAtATime)
{
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    // One sequence, which knows where a finger that rests is.
    auto touches = QTest::touchEvent(&window(), screen.get(), false);
    touches.press(1, at(30), &window()).commit();
    EXPECT_FLOAT_EQ(slider.value(), 0.3f);
    touches.move(1, at(40), &window()).press(2, at(90), &window()).commit();
    EXPECT_FLOAT_EQ(slider.value(), 0.4f);
    press(at(5)); // nor does the mouse get hold of it
    touches.stationary(1).move(2, at(70), &window()).commit();
    EXPECT_FLOAT_EQ(slider.value(), 0.4f);
    touches.release(1, at(45), &window()).stationary(2).commit();
    EXPECT_FLOAT_EQ(slider.value(), 0.45f);
    EXPECT_FALSE(slider.isTracking());
    touches.release(2, at(70), &window()).commit();
    release(at(5));

    touches.press(3, at(45), &window()).commit();
    slider.setVisible(false); // takes the touch away
    EXPECT_FALSE(slider.isTracking());
    touches.release(3, at(80), &window()).commit();
    EXPECT_FLOAT_EQ(slider.value(), 0.45f);
    EXPECT_EQ(movements, 3);
}

TEST_F(UISliderTest, ShowsTrackAndKnob)
{
    slider.setValue(0.5f);
    const QImage picture = window().grabWindow();
    EXPECT_EQ(picture.pixelColor(at(50)), Qt::white);
    EXPECT_EQ(picture.pixelColor(at(10)), QColor(0, 122, 255));
    EXPECT_EQ(picture.pixelColor(at(90)), QColor(183, 183, 183));
    EXPECT_EQ(picture.pixelColor(at(10) + QPoint(0, 2)), Qt::white);
    EXPECT_LT(picture.pixelColor(at(50) + QPoint(0, 14)).lightness(), 240) << "the knob's shadow";
    slider.setFrame({10, 20, 10, 30}); // no room to travel
    EXPECT_TRUE(std::isfinite(slider.knobRect().x()));
    tap(QPointF(15, 35));
    EXPECT_TRUE(std::isfinite(slider.value()));
}
} // namespace
