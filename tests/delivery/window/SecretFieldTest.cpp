#include "delivery/window/SecretField.h"

#include "support/WindowFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

namespace
{
struct SecretFieldTest : OwnWindowFixture {
    void SetUp() override
    {
        show({200, 100});
        field.setParentItem(window().contentItem());
        field.setSize({200, 40});
        tap({100, 20});
        ASSERT_TRUE(field.hasActiveFocus());
    }
    std::string taken()
    {
        const Secret secret = field.take();
        EXPECT_EQ(field.length(), 0);
        return {secret.text(), secret.size()};
    }
    void commit(const QString &text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(&field, &event);
    }

    SecretField field;
};
} // namespace

TEST_F(SecretFieldTest, HoldsWhatIsTypedPastedAndCommittedInWholeCharacters)
{
    QSignalSpy entered(&field, &SecretField::entered);
    type("a b");
    key(Qt::Key_Delete);
    key(Qt::Key_A, Qt::ControlModifier);
    commit(QString::fromUtf8("\xC3\xA9\xF0\x9F\x94\x91"));
    EXPECT_EQ(field.length(), 5);
    key(Qt::Key_Backspace);
    EXPECT_EQ(field.length(), 4);
    QGuiApplication::clipboard()->setText("paste\r\n");
    key(Qt::Key_V, Qt::ControlModifier);
    key(Qt::Key_Return);
    EXPECT_EQ(entered.size(), 1);
    EXPECT_EQ(taken(), "a b\xC3\xA9paste");

    key(Qt::Key_Backspace);
    commit(QString(2000, 'x')); // more than it holds: not half a password
    EXPECT_EQ(taken(), "");
}

TEST_F(SecretFieldTest, IsEmptyOnceItHasLeftTheScreenAndTellsInputMethodsWhatItIs)
{
    type("secret");
    field.setVisible(false);
    EXPECT_EQ(field.length(), 0);
    EXPECT_EQ(taken(), "");
    const auto hints = Qt::InputMethodHints(field.inputMethodQuery(Qt::ImHints).toInt());
    EXPECT_TRUE(hints & Qt::ImhSensitiveData);
    EXPECT_TRUE(hints & Qt::ImhHiddenText);
}
