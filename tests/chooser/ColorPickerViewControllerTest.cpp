#include "support/ChooserFixture.h"

#include <QAccessible>

using ColorPickerViewControllerTest = ChooserFixture;

TEST_F(ColorPickerViewControllerTest, StandsAtItsFrames)
{
    const std::tuple<QSize, double, QRectF, QRectF> cases[] = {
        {{900, 700}, 396, {295, 120, 310, 310}, {147.5, 440, 605, 30}}, // as the tall phone
        {{320, 480}, 106, {40, 120, 240, 240}, {20, 370, 280, 30}},
    };
    for (const auto &[size, removeX, colorPicker, brightnessSlider] : cases) {
        SCOPED_TRACE(size.height());
        open("#336699FF", size);
        const double w = size.width();
        EXPECT_EQ(frame("_cancelButton"), QRectF(5, 20, 90, 40));
        EXPECT_EQ(frame("_removeButton"), QRectF(removeX, 20, 108, 40));
        EXPECT_EQ(frame("_saveButton"), QRectF(w - 95, 20, 90, 40));
        EXPECT_EQ(chooser->colorPatch()->frame(), QRectF(0, 70, w, 40));
        EXPECT_EQ(frame("_hexTextField"), QRectF(0, 70, w, 40));
        EXPECT_EQ(frame("_colorPicker"), colorPicker);
        EXPECT_EQ(frame("_brightnessSlider"), brightnessSlider);
        EXPECT_EQ(frame("_opacitySlider"), brightnessSlider.translated(0, 40));
        EXPECT_EQ(frame("quickButtons"), QRectF(4, brightnessSlider.y() + 78, 310, 30));
    }
    window().resize(320, 568); // the phone's height brings the large wheel
    ASSERT_TRUE(QTest::qWaitFor([this] { return frame("_colorPicker").width() == 310.0; }));
    EXPECT_EQ(frame("_brightnessSlider"), QRectF(2.5, 440, 315, 30));
    EXPECT_EQ(frame("quickButtons").y(), 518);
}

TEST_F(ColorPickerViewControllerTest, ShowsItsColourFromTheFirstLayoutOn)
{
    for (const auto &[spelled, textColor] :
         {std::pair("#336699FF", Qt::black), std::pair("#11111140", Qt::white)}) {
        SCOPED_TRACE(spelled);
        open(spelled);
        EXPECT_EQ(text(), spelled);
        EXPECT_EQ(chooser->hexTextField()->textColor(), textColor);
        const UIColor color = colorFromHexString(spelled);
        EXPECT_EQ(chooser->patchColor().rgba(), color.qColor().rgba());
        EXPECT_FLOAT_EQ(chooser->opacitySlider()->value(), float(color.components().alpha));
        EXPECT_FLOAT_EQ(chooser->brightnessSlider()->value(), float(color.getHue()->brightness));
    }
}

TEST_F(ColorPickerViewControllerTest, AllWaysOfPickingShowTheSameColour)
{
    open("#FFFFFFFF");
    const auto expect = [this](const QString &color) {
        EXPECT_EQ(text(), color);
        EXPECT_EQ(hexStringForColor(chooser->colorPicker()->selectionColor()), color);
        EXPECT_EQ(chooser->patchColor(), chooser->colorPicker()->selectionColor().qColor());
    };
    int quick = 0;
    for (const char *color :
         {"#000000FF", "#FFFFFFFF", "#FF0000FF", "#00FF00FF", "#0000FFFF", "#00000000"}) {
        tapQuick(quick++);
        expect(color);
    }
    tapQuick(1);
    tap(frame("_colorPicker").center() + QPointF(144, 0)); // on the rim, to the right
    expect("#FF0000FF");
    chooser->brightnessSlider()->moveTo(0.5f);
    expect("#7F0000FF");
    chooser->opacitySlider()->moveTo(0.25f);
    expect("#7F00003F");

    tap("_hexTextField");
    key(Qt::Key_A, Qt::ControlModifier);
    type("#12ab34ff"); // the "#" is refused and supplies itself
    EXPECT_EQ(text(), "#12AB34FF");
    key(Qt::Key_Return);
    expect("#12AB34FF");
    EXPECT_TRUE(delegate->answers.isEmpty());
}

TEST_F(ColorPickerViewControllerTest, TypingIsTakenCharacterByCharacter)
{
    open("#FFFFFFFF");
    tap("_hexTextField");
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_Backspace);
    EXPECT_EQ(text(), "");
    type("z");
    EXPECT_EQ(text(), "#");
    type("1g2");
    EXPECT_EQ(text(), "#12");
    key(Qt::Key_A, Qt::ControlModifier);
    type("f");
    EXPECT_EQ(text(), "#F");
    key(Qt::Key_Backspace);
    EXPECT_EQ(text(), "#");
    // Too short when it is left: white.
    key(Qt::Key_Tab);
    EXPECT_EQ(text(), "#FFFFFFFF");
    // A wheel that moves meanwhile writes over what is being typed.
    tap("_hexTextField");
    key(Qt::Key_Backspace);
    tap(frame("_colorPicker").center() + QPointF(144, 0));
    EXPECT_EQ(text(), "#FF0000FF");
    EXPECT_TRUE(chooser->hexTextField()->isEditing());
}

TEST_F(ColorPickerViewControllerTest, AnswersWithWhatTheTextSpells)
{
    open("#336699FF");
    tap("_saveButton");
    // Through hue, saturation and brightness, then truncated: a last digit may fall by one.
    const UIColor through =
        HSColorPickerState::initWithColor(colorFromHexString("#336699FF")).color();
    EXPECT_EQ(delegate->answers, QStringList{hexStringForColor(through) + " at 2, 7"});

    open("#336699FF");
    tap("_hexTextField");
    key(Qt::Key_A, Qt::ControlModifier);
    type("F00");
    tap("_saveButton"); // does not end the editing first, which would make it white
    EXPECT_EQ(delegate->answers, QStringList{"#FF0000FF at 2, 7"});

    open("#336699FF");
    auto *remove = chooser->view()->findChild<UIButton *>("_removeButton");
    for (const bool usable : {false, true}) {
        remove->setUsable(usable);
        tap("_removeButton");
    }
    tap("_cancelButton");
    EXPECT_EQ(delegate->answers, (QStringList{"removed at 2, 7", "cancel"}));

    open(ColorPickerViewController::initWithColorAndRow(UIColor::whiteColor(), 4));
    tap("_saveButton");
    chooser->setSelectedSection(3);
    chooser->setSelectedRow(5);
    tap("_removeButton");
    EXPECT_EQ(delegate->answers, (QStringList{"#FFFFFFFF at 0, 4", "removed at 3, 5"}));
}

TEST_F(ColorPickerViewControllerTest, TheKeyboardReachesEverything)
{
    open("#336699FF");
    const HSColorPickerView &wheel = *chooser->colorPicker();
    const QPointF start = wheel.selection();
    key(Qt::Key_Right);
    key(Qt::Key_Down, Qt::ShiftModifier);
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_Up);
    EXPECT_NEAR(wheel.selection().x() - start.x(), 1 - 10, 1e-9);
    EXPECT_NEAR(wheel.selection().y() - start.y(), 10 - 1, 1e-9);

    // Tab: cancel, remove, accept, field, wheel, brightness, opacity, six quick colours.
    for (int i = 0; i < 5; ++i)
        key(Qt::Key_Tab);
    EXPECT_TRUE(wheel.hasActiveFocus());
    key(Qt::Key_Tab);
    ASSERT_TRUE(chooser->brightnessSlider()->hasActiveFocus());
    key(Qt::Key_Home);
    EXPECT_EQ(wheel.brightness(), 0.0);
    key(Qt::Key_Right);
    EXPECT_FLOAT_EQ(float(wheel.brightness()), 0.01f);
    key(Qt::Key_Tab);
    key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_FLOAT_EQ(float(wheel.opacity()), 0.9f);
    key(Qt::Key_End);
    EXPECT_EQ(wheel.opacity(), 1.0);
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    key(Qt::Key_Return); // presses the button "White", and accepts nothing
    EXPECT_EQ(text(), "#FFFFFFFF");
    EXPECT_TRUE(delegate->answers.isEmpty());

    open("#00FF00FF");
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, {}, true); // since the row was opened
    QCoreApplication::sendEvent(&window(), &held);
    EXPECT_TRUE(delegate->answers.isEmpty());
    key(Qt::Key_Return);
    tap("_hexTextField");
    key(Qt::Key_Escape);
    EXPECT_EQ(delegate->answers, (QStringList{"#00FF00FF at 2, 7", "cancel"}));
}

TEST_F(ColorPickerViewControllerTest, SpeaksToAssistiveTechnology)
{
    open("#FF0000FF");
    const auto spoken = [this](const char *name) {
        return QAccessible::queryAccessibleInterface(
            chooser->view()->findChild<QQuickItem *>(name));
    };
    QAccessibleInterface *wheel = spoken("_colorPicker");
    EXPECT_EQ(wheel->role(), QAccessible::ColorChooser);
    EXPECT_EQ(wheel->text(QAccessible::Description), "Hue 0 degrees, saturation 100 percent");
    EXPECT_EQ(spoken("_saveButton")->text(QAccessible::Name), "Select Color");
    EXPECT_EQ(spoken("_colorPatch")->text(QAccessible::Description), "#FF0000FF");
    QAccessibleInterface *slider = spoken("_opacitySlider");
    EXPECT_EQ(slider->role(), QAccessible::Slider);
    ASSERT_TRUE(slider->valueInterface());
    EXPECT_EQ(slider->valueInterface()->currentValue().toDouble(), 1.0);
    EXPECT_EQ(slider->valueInterface()->maximumValue().toDouble(), 1.0);
    slider->valueInterface()->setCurrentValue(0.5);
    EXPECT_EQ(chooser->colorPicker()->opacity(), 0.5);
    slider->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
    EXPECT_FLOAT_EQ(float(chooser->colorPicker()->opacity()), 0.49f);
}

TEST_F(ColorPickerViewControllerTest, ScrollsAsAWholeInALowWindow)
{
    open("#336699FF", {320, 240});
    const QRectF before = frame("_saveButton");
    turnWheel({160, 30}, -480);
    EXPECT_TRUE(QTest::qWaitFor([&] { return frame("_saveButton").y() < before.y() - 20; }));
    const QQuickItem *page = chooser->colorPicker()->parentItem()->parentItem();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !page->property("moving").toBool(); }));
    // A finger on the wheel or a slider picks, and scrolls nothing.
    for (const char *name : {"_colorPicker", "_brightnessSlider"}) {
        const QRectF place = frame(name);
        const QPoint finger = place.intersected(QRectF(0, 0, 320, 240)).center().toPoint();
        press(finger);
        for (int i = 1; i <= 20; ++i)
            move(finger + QPoint(i, 4 * i));
        release(finger + QPoint(20, 80));
        EXPECT_EQ(frame(name), place);
    }
}
