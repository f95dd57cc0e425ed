#include "platform/UIAlertView.h"

#include "platform/UIWindow.h"

#include <QTest>

#include <gtest/gtest.h>

namespace
{
// Notes which button of which alert was pressed.
struct Answers : UIAlertViewDelegate {
    void clickedButtonAtIndex(UIAlertView &alertView, int buttonIndex) override
    {
        pressed.push_back({alertView.tag(), buttonIndex});
    }
    std::vector<std::pair<int, int>> pressed;
};

void show(const std::shared_ptr<Answers> &delegate, int tag, const QStringList &buttons)
{
    auto alert = std::make_unique<UIAlertView>("Title", "A message", delegate, buttons);
    alert->setTag(tag);
    UIAlertView::show(std::move(alert));
}
} // namespace

TEST(UIAlertView, TheLatestComesFirstAndTellsItsDelegateTheButton)
{
    const auto answers = std::make_shared<Answers>();
    show(answers, 0, {"OK"}); // to no window, so nothing happens
    UIWindow window;
    window.makeKeyAndVisible();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    show(answers, 1, {"Cancel", "OK"});
    show(answers, 2, {"No", "Maybe", "Yes"});
    ASSERT_EQ(window.alert()->tag(), 2);

    window.alert()->click(3); // no such button
    EXPECT_EQ(window.alert()->tag(), 2);
    QTest::keyClick(&window, Qt::Key_Return); // the last button has the keyboard
    EXPECT_EQ(window.alert()->tag(), 1);
    QTest::keyClick(&window, Qt::Key_Escape); // the first one cancels
    EXPECT_EQ(window.alert(), nullptr);
    EXPECT_EQ(answers->pressed, (std::vector<std::pair<int, int>>{{2, 2}, {1, 0}}));

    // A delegate that is gone is not told, and Tab reaches every button.
    show(std::make_shared<Answers>(), 3, {"Alone"});
    QTest::keyClick(&window, Qt::Key_Space);
    show(answers, 4, {"No", "Maybe", "Yes"});
    QTest::keyClick(&window, Qt::Key_Backtab);
    QTest::keyClick(&window, Qt::Key_Space);
    EXPECT_EQ(answers->pressed.back(), std::pair(4, 1));

    show(answers, 5, {"Left", "Right"});
    window.grabWindow();                                          // lays the box out
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(2, 2)); // beside the box: nothing
    ASSERT_TRUE(window.alert());
    const auto *box = window.findChild<QQuickItem *>("alertBox");
    const QPointF inRight(box->width() / 2 + 60, box->height() - 22);
    QTest::mouseClick(&window, Qt::LeftButton, {}, box->mapToScene(inRight).toPoint());
    EXPECT_EQ(answers->pressed.back(), std::pair(5, 1));
}
