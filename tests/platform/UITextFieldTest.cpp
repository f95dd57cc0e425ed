#include "platform/UITextField.h"

#include "support/TextFieldFixture.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>

namespace
{
struct UITextFieldTest : TextFieldFixture {
    QQuickItem &input() { return *field().input(); }
    static QString withoutMarks(QString text) { return text.remove(QRegularExpression("[][|]")); }
    /// Text with "[" and "]" around the selection, or "|" at the cursor.
    void put(const QString &marked)
    {
        const qsizetype start = marked.indexOf(marked.contains('[') ? '[' : '|');
        const qsizetype end = marked.contains(']') ? marked.indexOf(']') - 1 : start;
        field().setText(withoutMarks(marked));
        QMetaObject::invokeMethod(&input(), "select", Q_ARG(int, int(start)), Q_ARG(int, int(end)));
        delegate->asked.clear();
    }
    QString marked()
    {
        QString text = field().text();
        const int start = input().property("selectionStart").toInt();
        const int end = input().property("selectionEnd").toInt();
        if (start == end)
            return text.insert(input().property("cursorPosition").toInt(), '|');
        return text.insert(end, ']').insert(start, '[');
    }
    void ctrl(Qt::Key with) { key(with, Qt::ControlModifier); }
    void commit(const QString &text, int from = 0, int length = 0)
    {
        QInputMethodEvent event;
        event.setCommitString(text, from, length);
        QCoreApplication::sendEvent(&input(), &event);
    }
    void dropAtTheEnd(const QString &text)
    {
        const QPointF end(299.0, 20.0);
        QMimeData data;
        data.setText(text);
        constexpr auto offered = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(end.toPoint(), offered, &data, Qt::LeftButton, Qt::ShiftModifier);
        QCoreApplication::sendEvent(&window(), &enter);
        QDropEvent drop(end, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
        QCoreApplication::sendEvent(&window(), &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "nothing is taken from where it was";
    }
};
} // namespace

TEST_F(UITextFieldTest, AsksWithTheTrueRangeWhicheverWayItIsEdited)
{
    const struct {
        const char *way;
        QString before;
        std::function<void()> edit;
        QString question, after;
    } cases[] = {
        {"type", "ab|c", [&] { key(Qt::Key_X); }, "2+0 x", "abx|c"},
        {"type over", "a[bb]c", [&] { key(Qt::Key_X); }, "1+2 x", "ax|c"},
        {"type the same", "a[b]c", [&] { key(Qt::Key_B); }, "1+1 b", "ab|c"},
        {"delete left", "aa|a", [&] { key(Qt::Key_Backspace); }, "1+1 ", "a|a"},
        {"delete right", "aa|a", [&] { key(Qt::Key_Delete); }, "2+1 ", "aa|"},
        {"delete a pair", "a\U0001F600|b", [&] { key(Qt::Key_Backspace); }, "1+2 ", "a|b"},
        {"delete a word", "one two|", [&] { ctrl(Qt::Key_Backspace); }, "4+3 ", "one |"},
        {"cut", "a[bc]d", [&] { ctrl(Qt::Key_X); }, "1+2 ", "a|d"},
        {"cut by menu", "a[bc]d", [&] { field().cut(); }, "1+2 ", "a|d"},
        {"paste", "a[bc]d", [&] { ctrl(Qt::Key_V); }, "1+2 pasted", "apasted|d"},
        {"paste by menu what is there", "[pasted]", [&] { field().paste(); }, "0+6 pasted",
         "pasted|"},
        {"clear", "ab|c", [&] { field().clear(); }, "0+3 ", "|"},
        {"drop", "|abc", [&] { dropAtTheEnd("xy"); }, "3+0 xy", "abcxy|"},
        {"compose", "a[b]c", [&] { commit("xy"); }, "1+1 xy", "axy|c"},
        {"compose over text before", "abc|d", [&] { commit("x", -2, 2); }, "1+2 x", "ax|d"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.way);
        for (const bool allows : {true, false}) {
            QGuiApplication::clipboard()->setText("pasted");
            put(c.before);
            delegate->allows = allows;
            c.edit();
            EXPECT_EQ(delegate->asked, QStringList{c.question + " in " + withoutMarks(c.before)});
            EXPECT_EQ(marked(), allows ? c.after : c.before);
        }
    }
}

TEST_F(UITextFieldTest, NothingSlipsPastTheQuestion)
{
    put("abc|");
    delegate->allows = false;
    ctrl(Qt::Key_Z); // the refusal itself must not be undone either
    key(Qt::Key_X);
    ctrl(Qt::Key_Z);
    key(Qt::Key_Home);
    ctrl(Qt::Key_X); // cuts nothing, where nothing is selected
    key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    ctrl(Qt::Key_Y);
    EXPECT_EQ(field().text(), "abc");
    EXPECT_EQ(delegate->asked.size(), 1);
    // Moving about is no edit.
    for (const Qt::Key k : {Qt::Key_Left, Qt::Key_Home, Qt::Key_End, Qt::Key_Escape})
        key(k);
    tap(QPointF(150, 20));
    field().selectAll();
    field().copy();
    EXPECT_EQ(delegate->asked.size(), 1);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "abc");
}

TEST_F(UITextFieldTest, TypesCapitalsWhereItsKeyboardIsAskedTo)
{
    input().setProperty("inputMethodHints", int(Qt::ImhUppercaseOnly));
    put("|");
    key(Qt::Key_A);
    commit("b");
    EXPECT_EQ(field().text(), "AB");
    QGuiApplication::clipboard()->setText("cd");
    field().paste();
    EXPECT_EQ(field().text(), "ABcd");
}

TEST_F(UITextFieldTest, EditingEndsWithTheFocusButNotWithTheWindow)
{
    QQuickWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(field().isEditing());
    window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    key(Qt::Key_Return);
    EXPECT_FALSE(field().isEditing());
    EXPECT_EQ(delegate->ends, 1);
}

TEST_F(UITextFieldTest, ItsButtonClearsAndItsMenuPastes)
{
    put("abc|");
    const auto click = [this](Qt::MouseButton button, QPoint point) { tap(point, button); };
    click(Qt::LeftButton, {282, 20});
    EXPECT_EQ(field().text(), "");
    EXPECT_TRUE(field().isEditing()); // a press on a button takes no focus

    const auto openMenu = [&] {
        click(Qt::RightButton, {150, 20});
        EXPECT_TRUE(field().isMenuShown());
        QCoreApplication::processEvents();
    };
    openMenu();
    click(Qt::LeftButton, {10, 150}); // beside it
    EXPECT_FALSE(field().isMenuShown());
    QGuiApplication::clipboard()->setText("menu");
    QString passed;
    for (const char *entry : {"Cut", "Paste", "Select All", "Copy", "Cut"}) {
        SCOPED_TRACE(entry);
        if (!field().isMenuShown())
            openMenu();
        const auto items = field().findChildren<QQuickItem *>();
        const auto button = std::ranges::find_if(
            items, [&](QQuickItem *item) { return item->property("title") == entry; });
        ASSERT_NE(button, items.end());
        click(Qt::LeftButton,
              (*button)->mapRectToScene((*button)->boundingRect()).center().toPoint());
        EXPECT_EQ(field().isMenuShown(), entry == QString("Select All"));
        passed += marked() + ' ';
    }
    EXPECT_EQ(passed, "| menu| [menu] [menu] | ");
}
