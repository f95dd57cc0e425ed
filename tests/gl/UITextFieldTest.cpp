// The middle button pastes what is selected elsewhere: only a real window system has that.
#include "platform/UITextField.h"

#include "platform/QMLViews.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

namespace
{
struct Delegate : UITextFieldDelegate {
    bool shouldChangeCharactersInRange(UITextField &, NSRange range,
                                       const QString &replacement) override
    {
        asked += QString("%1+%2 %3").arg(range.location).arg(range.length).arg(replacement);
        return allows;
    }
    bool textFieldShouldReturn(UITextField &) override { return false; }
    void textFieldDidEndEditing(UITextField &) override {}

    QStringList asked;
    bool allows = true;
};
} // namespace

TEST(UITextFieldGLTest, AsksBeforeTheMiddleButtonPastes)
{
    QQmlEngine engine;
    QMLViews::prepareEngine(engine);
    QQuickWindow window;
    const std::unique_ptr<QQuickItem> view(QMLViews::create(engine, "platform/TextFieldView.qml"));
    auto &field = *qobject_cast<UITextField *>(view.get());
    const auto delegate = std::make_shared<Delegate>();
    field.setDelegate(delegate);
    field.setParentItem(window.contentItem());
    field.setFrame({0, 0, 300, 40});
    window.resize(300, 40);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ASSERT_TRUE(QGuiApplication::clipboard()->supportsSelection());
    QGuiApplication::clipboard()->setText("xy", QClipboard::Selection);
    for (const bool allows : {false, true}) {
        field.setText("abc");
        delegate->allows = allows;
        delegate->asked.clear();
        QTest::mouseClick(&window, Qt::MiddleButton, {}, QPoint(250, 20));
        EXPECT_EQ(delegate->asked, QStringList{"3+0 xy"});
        EXPECT_EQ(field.text(), allows ? "abcxy" : "abc");
    }
}
