#include "editor/EditorActions.h"

#include "support/EditorFixture.h"

#include <QAccessible>
#include <QClipboard>

namespace
{
const QString sendEntry = u"Send to Phone…"_qs;

class EditorActionsTest : public EditorFixture
{
protected:
    void SetUp() override
    {
        const QJsonObject letters{{"A", 1}, {"B", 2}};
        QJsonArray elements = manyElements(40);
        elements.append(element("choice", "Zulu", {}, letters, 1));
        writeDocument(elements);
        start();
    }

    QString colorOf(int index) { return editor().document().record(index).color.toString(); }
    void choose(int index, const QString &color) { editor().document().setColor(index, color); }
    void secondaryClick(NSIndexPath indexPath)
    {
        tap(sceneFrame(cell(indexPath)).center(), Qt::RightButton);
    }
    QStringList entries()
    {
        return window().actionSheet() ? window().actionSheet()->buttonTitles() : QStringList();
    }
    void click(const QString &entry)
    {
        ASSERT_TRUE(entries().contains(entry)) << entries().join(" | ").toStdString();
        window().actionSheet()->click(int(entries().indexOf(entry)));
        settle();
    }
    QTimer *flash() { return table().findChild<QTimer *>("flash"); }
};
} // namespace

TEST_F(EditorActionsTest, KeysUndoAndRedoWhereTheScreenIsFree)
{
    EXPECT_EQ(window().title(), "Tintloom");
    choose(0, "#FF0000FF");
    choose(30, "#00FF00FF"); // far below
    EXPECT_EQ(window().title(), "Tintloom*");
    EXPECT_EQ(cell({0, 0})->backgroundColor(), QColor("#FF0000"));
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(colorOf(30), "#336699FF");
    ASSERT_TRUE(cell({0, 30}));
    EXPECT_TRUE(cell({0, 30})->isSelected()); // it flashes
    EXPECT_LE(sceneFrame(cell({0, 30})).bottom(), 518.0);
    flash()->start(0);
    QTest::qWait(1);
    EXPECT_FALSE(cell({0, 30})->isSelected());
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(colorOf(0), "#336699FF");
    EXPECT_EQ(cell({0, 0})->backgroundColor(), QColor("#336699"));
    EXPECT_EQ(window().title(), "Tintloom");
    key(Qt::Key_Z, Qt::ControlModifier); // nothing left
    key(Qt::Key_Y, Qt::ControlModifier);
    key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(colorOf(30), "#00FF00FF");

    const auto expectNoUndo = [this] {
        key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(colorOf(30), "#00FF00FF");
    };
    editor().showLoaderWithLabel("Busy");
    expectNoUndo();
    editor().removeLoader();
    tapSave();
    ASSERT_TRUE(waitForAlert());
    expectNoUndo();
    EXPECT_EQ(window().title(), "Tintloom");
    key(Qt::Key_Return);
    secondaryClick({0, 30});
    expectNoUndo();
    key(Qt::Key_Escape);
    editor().didSelectRowAtIndexPath({0, 30});
    expectNoUndo();
    key(Qt::Key_Escape);
    EXPECT_TRUE(editor().colorPickerView()); // fading out, it still keeps keys away
    expectNoUndo();
}

TEST_F(EditorActionsTest, MoreShowsWhatAppliesToTheTheme)
{
    tap(item("_moreButton"));
    const QStringList ofThemes{"Theme from a Color\u2026",
                               "From a Photo\u2026",
                               "Themes\u2026",
                               "Keep Theme\u2026",
                               "Open\u2026",
                               "Share\u2026",
                               "Export\u2026"};
    EXPECT_EQ(entries(), QStringList({"Preview", "Check Colors"}) + ofThemes +
                             QStringList({"Save Theme", sendEntry, "Cancel"}));
    key(Qt::Key_Escape);
    choose(0, "#FF0000FF");
    tap(item("_moreButton"));
    EXPECT_EQ(entries(), QStringList({"Undo Change Name of key-0", "Preview", "Check Colors"}) +
                             ofThemes + QStringList({"Save Theme", sendEntry, "Cancel"}));
    click("Undo Change Name of key-0");
    EXPECT_EQ(colorOf(0), "#336699FF");
    tap(item("_moreButton"));
    click("Redo Change Name of key-0");
    EXPECT_EQ(colorOf(0), "#FF0000FF");
    // 4 points from the Save button and from the edge.
    EXPECT_EQ(sceneFrame(item("_moreButton")), QRectF(264, 523, 52, 40));
}

TEST_F(EditorActionsTest, ARowsSheetResetsCopiesPastesAndShares)
{
    QGuiApplication::clipboard()->setText("nonsense");
    choose(1, "#FF0000FF");
    tapSave();
    ASSERT_TRUE(waitForAlert());
    key(Qt::Key_Return);
    choose(1, "#00FF00FF");

    secondaryClick({0, 1});
    EXPECT_EQ(window().actionSheet()->title(), "Name of key-1");
    EXPECT_EQ(entries(), (QStringList{"Undo Change Name of key-1", "Back to Saved",
                                      "Back to Default", "Copy Color", "Lock", "Cancel"}));
    click("Copy Color");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "#00FF00FF");
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    key(Qt::Key_Menu);
    click("Back to Saved");
    EXPECT_EQ(colorOf(1), "#FF0000FF");
    key(Qt::Key_Menu);
    click("Paste Color");
    EXPECT_EQ(colorOf(1), "#00FF00FF");
    key(Qt::Key_Menu);
    click("Back to Default");
    EXPECT_EQ(colorOf(1), "#336699FF");

    choose(1, "#ABCDEFFF");
    secondaryClick({0, 1});
    click("Use This Color for 39 More That Were #336699FF");
    EXPECT_EQ(colorOf(39), "#ABCDEFFF");
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(colorOf(39), "#336699FF");
    EXPECT_EQ(colorOf(1), "#ABCDEFFF");

    table().scrollToRow({1, 0});
    settle();
    secondaryClick({1, 0}); // a choice: no colour to copy or paste
    EXPECT_FALSE(entries().contains("Copy Color") || entries().contains("Paste Color"));
    EXPECT_TRUE(entries().contains("Lock"));
}

TEST_F(EditorActionsTest, ALockedRowKeepsItsColourThroughChangesOfMany)
{
    const QPoint row = sceneFrame(cell({0, 2})).center().toPoint();
    cell({0, 2})->gestureRecognizers().front()->setMinimumPressDuration(0.0);
    press(row);
    QTest::qWait(1);
    release(row);
    settle();
    EXPECT_FALSE(editor().isChooserOpen());
    click("Lock");
    EXPECT_TRUE(cell({0, 2})->isLocked());
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(cell({0, 2}))
                    ->text(QAccessible::Description)
                    .endsWith("Locked"));
    choose(1, "#ABCDEFFF");
    secondaryClick({0, 1});
    click("Use This Color for 38 More That Were #336699FF");
    EXPECT_EQ(colorOf(2), "#336699FF");
    tapSave();
    ASSERT_TRUE(waitForAlert());
    EXPECT_FALSE(contents(folders().theme.packageInfo()).contains("lock"));

    start(); // remembered
    EXPECT_TRUE(cell({0, 2})->isLocked());
    EXPECT_FALSE(cell({0, 1})->isLocked());
    secondaryClick({0, 2});
    click("Unlock");
    start();
    EXPECT_FALSE(cell({0, 2})->isLocked());
}

TEST_F(EditorActionsTest, ADraftIsOfferedUntilItIsAnsweredAndComesBackAsOneStep)
{
    choose(3, "#FF0000FF");
    start(); // ended with something unsaved
    EXPECT_EQ(colorOf(3), "#336699FF");
    ASSERT_TRUE(item("quietStrip"));
    tap(sceneFrame(item("quietStrip")).topRight() + QPointF(-22, 22)); // later
    EXPECT_FALSE(item("quietStrip"));
    tap(item("_moreButton"));
    click("Bring Back Unsaved Changes");
    EXPECT_EQ(colorOf(3), "#FF0000FF");
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(colorOf(3), "#336699FF");

    choose(3, "#00FF00FF");
    start();
    const QRectF strip = sceneFrame(item("quietStrip"));
    tap(strip.bottomLeft() + QPointF(120, -20)); // "Discard"
    EXPECT_FALSE(item("quietStrip"));
    start();
    EXPECT_FALSE(item("quietStrip"));
}
