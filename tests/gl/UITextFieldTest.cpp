// The middle button pastes what is selected elsewhere: only a real window system has that.
#include "support/TextFieldFixture.h"

#include <QClipboard>
#include <QGuiApplication>

using UITextFieldGLTest = TextFieldFixture;

TEST_F(UITextFieldGLTest, AsksBeforeTheMiddleButtonPastes)
{
    ASSERT_TRUE(QGuiApplication::clipboard()->supportsSelection());
    QGuiApplication::clipboard()->setText("xy", QClipboard::Selection);
    for (const bool allows : {false, true}) {
        field().setText("abc");
        delegate->allows = allows;
        delegate->asked.clear();
        tap(QPointF(250, 20), Qt::MiddleButton);
        EXPECT_EQ(delegate->asked, QStringList{"3+0 xy in abc"});
        EXPECT_EQ(field().text(), allows ? "abcxy" : "abc");
    }
}
