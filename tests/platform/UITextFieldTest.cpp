#include "platform/UITextField.h"

#include "platform/QMLViews.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

namespace
{
struct Question {
    qsizetype location;
    qsizetype length;
    QString replacement;
    QString text; // the field's, when it was asked

    bool operator==(const Question &) const = default;
};

void PrintTo(const Question &question, std::ostream *stream)
{
    *stream << question.location << "+" << question.length << " '"
            << question.replacement.toStdString() << "' in '" << question.text.toStdString() << "'";
}

struct Delegate : UITextFieldDelegate {
    bool shouldChangeCharactersInRange(UITextField &field, NSRange range,
                                       const QString &replacement) override
    {
        questions.push_back({range.location, range.length, replacement, field.text()});
        if (instead)
            field.setText(*instead);
        return allows;
    }
    bool textFieldShouldReturn(UITextField &field) override
    {
        field.resignFirstResponder();
        return false;
    }
    void textFieldDidEndEditing(UITextField &) override { ++ends; }

    std::vector<Question> questions;
    bool allows = true;
    std::optional<QString> instead;
    int ends = 0;
};

class UITextFieldTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QMLViews::prepareEngine(_engine);
        _view.reset(QMLViews::create(_engine, "platform/TextFieldView.qml"));
        _view->setParentItem(window.contentItem());
        field().setFrame({0, 0, 300, 40});
        field().setDelegate(delegate);
        window.resize(300, 200);
        window.show();
        window.requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        field().becomeFirstResponder();
    }

    UITextField &field() { return *qobject_cast<UITextField *>(_view.get()); }
    QQuickItem &input() { return *field().input(); }
    /// Text with "[" and "]" around the selection, or "|" at the cursor.
    void put(QString marked)
    {
        const qsizetype start = marked.indexOf(marked.contains('[') ? '[' : '|');
        const qsizetype end = marked.contains(']') ? marked.indexOf(']') - 1 : start;
        field().setText(marked.remove('[').remove(']').remove('|'));
        QMetaObject::invokeMethod(&input(), "select", Q_ARG(int, int(start)), Q_ARG(int, int(end)));
        delegate->questions.clear();
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
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&window, key, modifiers);
    }
    void commit(const QString &text, int from = 0, int length = 0)
    {
        QInputMethodEvent event;
        event.setCommitString(text, from, length);
        QCoreApplication::sendEvent(&input(), &event);
    }
    void drop(const QString &text, QPointF point)
    {
        QMimeData data;
        data.setText(text);
        const auto at = [&](QEvent::Type type) {
            return QDropEvent(point, Qt::CopyAction, &data, Qt::LeftButton, {}, type);
        };
        QDragEnterEvent enter(point.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window, &enter);
        QDropEvent event = at(QEvent::Drop);
        QCoreApplication::sendEvent(&window, &event);
    }
    QPointF end() { return {299.0, 20.0}; }

    QQmlEngine _engine;
    QQuickWindow window;
    std::shared_ptr<Delegate> delegate = std::make_shared<Delegate>();

private:
    std::unique_ptr<QQuickItem> _view;
};
} // namespace

TEST_F(UITextFieldTest, AsksWithTheTrueRangeWhicheverWayItIsEdited)
{
    QClipboard &clipboard = *QGuiApplication::clipboard();
    const struct {
        const char *way;
        QString before;
        std::function<void()> edit;
        Question question;
        QString after;
    } cases[] = {
        {"type", "ab|c", [&] { key(Qt::Key_X); }, {2, 0, "x", "abc"}, "abx|c"},
        {"type over", "a[bb]c", [&] { key(Qt::Key_X); }, {1, 2, "x", "abbc"}, "ax|c"},
        {"type the same", "a[b]c", [&] { key(Qt::Key_B); }, {1, 1, "b", "abc"}, "ab|c"},
        {"delete left", "aa|a", [&] { key(Qt::Key_Backspace); }, {1, 1, "", "aaa"}, "a|a"},
        {"delete right", "aa|a", [&] { key(Qt::Key_Delete); }, {2, 1, "", "aaa"}, "aa|"},
        {"delete a pair of surrogates",
         QString("a\U0001F600|b"),
         [&] { key(Qt::Key_Backspace); },
         {1, 2, "", QString("a\U0001F600b")},
         "a|b"},
        {"delete a word",
         "one two|",
         [&] { key(Qt::Key_Backspace, Qt::ControlModifier); },
         {4, 3, "", "one two"},
         "one |"},
        {"cut", "a[bc]d", [&] { key(Qt::Key_X, Qt::ControlModifier); }, {1, 2, "", "abcd"}, "a|d"},
        {"cut by menu", "a[bc]d", [&] { field().cut(); }, {1, 2, "", "abcd"}, "a|d"},
        {"paste",
         "a[bc]d",
         [&] { key(Qt::Key_V, Qt::ControlModifier); },
         {1, 2, "pasted", "abcd"},
         "apasted|d"},
        {"paste by menu", "|", [&] { field().paste(); }, {0, 0, "pasted", ""}, "pasted|"},
        {"paste what is there",
         "[pasted]",
         [&] { field().paste(); },
         {0, 6, "pasted", "pasted"},
         "pasted|"},
        {"clear", "ab|c", [&] { field().clear(); }, {0, 3, "", "abc"}, "|"},
        {"drop", "|abc", [&] { drop("xy", end()); }, {3, 0, "xy", "abc"}, "abcxy|"},
        {"compose", "a[b]c", [&] { commit("xy"); }, {1, 1, "xy", "abc"}, "axy|c"},
        {"compose over text before",
         "abc|d",
         [&] { commit("x", -2, 2); },
         {1, 2, "x", "abcd"},
         "ax|d"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.way);
        for (const bool allows : {true, false}) {
            clipboard.setText("pasted");
            put(c.before);
            delegate->allows = allows;
            c.edit();
            ASSERT_EQ(delegate->questions.size(), 1u);
            EXPECT_EQ(delegate->questions[0], c.question);
            EXPECT_EQ(marked(), allows ? c.after : c.before);
        }
    }
}

TEST_F(UITextFieldTest, TheAnswerMaySetAnotherText)
{
    delegate->instead = "#";
    const struct {
        bool allows;
        Qt::Key key;
        QString after;
    } cases[] = {
        {true, Qt::Key_X, "#x|"},
        {false, Qt::Key_X, "#|"},
        {true, Qt::Key_Backspace, "a|"},
        {false, Qt::Key_Backspace, "#|"},
    };
    for (const auto &c : cases) {
        put("ab|");
        delegate->allows = c.allows;
        key(c.key);
        EXPECT_EQ(marked(), c.after);
    }
}

TEST_F(UITextFieldTest, NothingSlipsPastTheQuestion)
{
    put("abc|");
    delegate->allows = false;
    key(Qt::Key_Z, Qt::ControlModifier); // the refusal itself must not be undone either
    key(Qt::Key_X);
    key(Qt::Key_Z, Qt::ControlModifier);
    key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(field().text(), "abc");
    EXPECT_EQ(delegate->questions.size(), 1u);
    // Moving about is no edit.
    for (const Qt::Key k : {Qt::Key_Left, Qt::Key_Home, Qt::Key_End, Qt::Key_Escape})
        key(k);
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(150, 20));
    field().selectAll();
    field().copy();
    EXPECT_EQ(delegate->questions.size(), 1u);
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
    EXPECT_TRUE(field().isEditing());
    QQuickWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(field().isEditing());
    EXPECT_EQ(delegate->ends, 0);
    window.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    key(Qt::Key_Return);
    EXPECT_FALSE(field().isEditing());
    EXPECT_EQ(delegate->ends, 1);
}

TEST_F(UITextFieldTest, ItsButtonClearsAndItsMenuPastes)
{
    put("abc|");
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(282, 20));
    EXPECT_EQ(field().text(), "");
    EXPECT_TRUE(field().isEditing()); // a press on a button takes no focus

    QGuiApplication::clipboard()->setText("menu");
    QTest::mouseClick(&window, Qt::RightButton, {}, QPoint(150, 20));
    ASSERT_TRUE(field().isMenuShown());
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(10, 150)); // beside it
    EXPECT_FALSE(field().isMenuShown());
    QTest::mouseClick(&window, Qt::RightButton, {}, QPoint(150, 20));
    QCoreApplication::processEvents();
    QQuickItem *paste = nullptr;
    const std::function<void(QQuickItem *)> look = [&](QQuickItem *item) {
        if (item->property("title").toString() == "Paste")
            paste = item;
        for (QQuickItem *child : item->childItems())
            look(child);
    };
    look(window.contentItem());
    ASSERT_TRUE(paste);
    QTest::mouseClick(&window, Qt::LeftButton, {},
                      paste->mapRectToScene(paste->boundingRect()).center().toPoint());
    EXPECT_EQ(field().text(), "menu");
    EXPECT_FALSE(field().isMenuShown());
}
