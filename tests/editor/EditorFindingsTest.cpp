#include "editor/EditorFindings.h"

#include "editor/CheckController.h"
#include "platform/UITableViewSubtitleCell.h"
#include "support/EditorFixture.h"

#include <QAccessible>

namespace
{
struct EditorFindingsTest : EditorFixture {
    static constexpr int ground = 40, faint = 41, clear = 42, locked = 43;
    void SetUp() override
    {
        QJsonArray elements = manyElements(40);
        elements.append(element("ground", "All", "#FFFFFFFF"));
        for (const auto &[key, color] :
             {std::pair("faint", "#999999FF"), {"clear", "#000000FF"}, {"locked", "#AAAAAAFF"}}) {
            QJsonObject text = element(key, "All", color);
            text["on"] = QJsonObject{{"text", QJsonArray{"ground"}}};
            elements.append(text);
        }
        writeDocument(elements);
        start();
    }
    ThemeDocument &document() { return editor().document(); }
    void showRow(int row)
    {
        table().scrollToRow({0, row});
        settle();
    }
    QString markOn(int row) { return cell({0, row}) ? cell({0, row})->finding() : "not in sight"; }

    CheckController *page()
    {
        return qobject_cast<CheckController *>(window().presentedViewController());
    }
    template <typename Item = QQuickItem>
    Item *part(const char *name)
    {
        return page()->view()->findChild<Item *>(name);
    }
    UITableView &list() { return *page()->view()->findChild<UITableView *>(); }
    void openPage()
    {
        tap(item("_moreButton"));
        const QStringList entries = window().actionSheet()->buttonTitles();
        window().actionSheet()->click(int(entries.indexOf("Check Colors")));
        settle();
        ASSERT_TRUE(page());
        list().layoutIfNeeded();
    }
    QStringList listed()
    {
        list().layoutIfNeeded();
        QStringList rows;
        for (const NSIndexPath row : list().indexPathsForVisibleRows()) {
            auto *cell = qobject_cast<UITableViewSubtitleCell *>(list().cellForRowAtIndexPath(row));
            rows += cell->textLabel()->text() + " | " + cell->detailTextLabel()->text();
        }
        return rows;
    }
};

const QString faintOnWhite = "Hard to see: 2.84 on Name of ground, needs 4.50";
} // namespace

TEST_F(EditorFindingsTest, MarksFollowEveryChangeOfTheDocument)
{
    showRow(locked);
    EXPECT_EQ(markOn(faint), faintOnWhite);
    EXPECT_EQ(markOn(clear), "");
    EXPECT_EQ(markOn(ground), "");
    editor().setLocked(faint, true);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(cell({0, faint}))
                    ->text(QAccessible::Description)
                    .endsWith("#999999FF\nLocked\n" + faintOnWhite));

    const auto expectMarks = [this](bool onFaint, bool onClear) {
        settle();
        EXPECT_EQ(markOn(faint) != "", onFaint);
        EXPECT_EQ(markOn(clear) != "", onClear);
    };
    document().setColor(faint, "#666666FF");
    expectMarks(false, false);
    document().undo();
    expectMarks(true, false);
    document().showPassingColor(ground, "#000000FF"); // rows that have not changed themselves
    expectMarks(false, true);
    document().dropPassingColor();
    expectMarks(true, false);
    document().setColor(ground, ""); // nobody knows what the phone shows
    document().setColor(ground, "#000000FF");
    expectMarks(false, true);
    scrollTo(-20.0);
    document().undo();
    document().undo();
    showRow(locked);
    expectMarks(true, false);
}

TEST_F(EditorFindingsTest, ThePageListsLeadsAndCloses)
{
    openPage();
    EXPECT_EQ(sceneFrame(page()->view()), QRectF(0, 0, 320, 568));
    EXPECT_EQ(listed(), (QStringList{"Name of faint | 2.84 on Name of ground, needs 4.50",
                                     "Name of locked | 2.32 on Name of ground, needs 4.50"}));
    auto *first = qobject_cast<UITableViewSubtitleCell *>(list().cellForRowAtIndexPath({0, 0}));
    const QImage picture = first->picture();
    EXPECT_EQ(picture.pixel(picture.rect().center()), 0xFF999999);
    EXPECT_EQ(picture.pixel(picture.width() / 8, picture.height() / 2), 0xFFFFFFFF);

    tap(list().cellForRowAtIndexPath({0, 1}));
    EXPECT_FALSE(page());
    ASSERT_TRUE(cell({0, locked})) << "in sight";
    EXPECT_LE(sceneFrame(cell({0, locked})).bottom(), 518.0);
    EXPECT_EQ(table().focusedRow(), NSIndexPath({0, locked}));

    openPage();
    key(Qt::Key_Escape);
    EXPECT_FALSE(page());
    openPage();
    tap(part("close"));
    EXPECT_FALSE(page());
    openPage();
    key(Qt::Key_Down);
    key(Qt::Key_Return); // the first, by keys alone
    EXPECT_FALSE(page());
    EXPECT_EQ(table().focusedRow(), NSIndexPath({0, faint}));
}

TEST_F(EditorFindingsTest, FixAllIsOneStepAndSaysWhatIsLeftAndWhy)
{
    editor().setLocked(locked, true);
    editor().setLocked(ground, true);
    openPage();
    ASSERT_TRUE(part("fixAll")->isVisible());
    EXPECT_EQ(list().indexPathsForVisibleRows().size(), 2U);
    for (int i = 0; i < 4 && !part("fixAll")->hasActiveFocus(); ++i)
        key(Qt::Key_Tab);
    key(Qt::Key_Return);
    EXPECT_EQ(document().record(faint).color, "#767676FF");
    EXPECT_EQ(document().record(locked).color, "#AAAAAAFF");
    EXPECT_EQ(listed(), (QStringList{"Name of locked | 2.32 on Name of ground. Locked"}));
    EXPECT_FALSE(part("fixAll")->isVisible()) << "it can do no more";
    settle();
    EXPECT_TRUE(listed().front().endsWith("Locked")) << "its own change does not list it anew";
    EXPECT_EQ(document().undoName(), "Fix All");
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(document().record(faint).color, "#999999FF");
    EXPECT_EQ(listed().size(), 2);
    EXPECT_TRUE(part("fixAll")->isVisible());
    EXPECT_FALSE(part("summary")->property("text").toString().size());

    editor().setLocked(locked, false);
    tap(part("fixAll"));
    tap(part("undo"));
    EXPECT_EQ(listed().size(), 2);
    tap(part("fixAll"));
    EXPECT_TRUE(listed().isEmpty());
    EXPECT_EQ(part("summary")->property("text"), "No unreadable colors");
    key(Qt::Key_Escape);
    EXPECT_FALSE(page()) << "keys still reach the page";
    openPage();
    EXPECT_EQ(part("summary")->property("text"), "No unreadable colors");
    EXPECT_FALSE(part("fixAll")->isVisible() || part("undo")->isVisible());
}
