#include "editor/EditorColors.h"

#include "chooser/ColorsController.h"
#include "platform/UITableViewSubtitleCell.h"
#include "support/EditorFixture.h"

#include <QAccessible>

namespace
{
struct EditorColorsTest : EditorFixture {
    void SetUp() override
    {
        writeDocument(QJsonArray{element("first", "All", "#FF0000FF"),
                                 element("second", "All", "#00FF00FF"),
                                 element("third", "All", "#FF0000FF")});
        start();
    }
    UIViewController *page() { return window().presentedViewController(); }
    UITableView &list() { return *page()->view()->findChild<UITableView *>(); }
    void openPage()
    {
        tap(chooser()->view()->findChild<QQuickItem *>("themeColors"));
        ASSERT_TRUE(page());
        list().layoutIfNeeded();
    }
    QStringList listed()
    {
        QStringList rows;
        for (const NSIndexPath row : list().indexPathsForVisibleRows())
            rows += qobject_cast<UITableViewSubtitleCell *>(list().cellForRowAtIndexPath(row))
                        ->textLabel()
                        ->text();
        return rows;
    }
    QString text() { return chooser()->hexTextField()->text(); }
};
} // namespace

TEST_F(EditorColorsTest, OneTapPicksWhatTheThemeHasOrWhatWasUsedLast)
{
    open(1);
    EXPECT_EQ(sceneFrame(chooser()->view()->findChild<QQuickItem *>("themeColors")),
              QRectF(0, 0, 102, 20));
    openPage();
    EXPECT_EQ(listed(), (QStringList{"#FF0000FF", "#00FF00FF"}));
    QAccessibleInterface *row =
        QAccessible::queryAccessibleInterface(list().cellForRowAtIndexPath({0, 0}));
    EXPECT_EQ(row->text(QAccessible::Name), "#FF0000FF");
    EXPECT_TRUE(row->text(QAccessible::Description).startsWith("Name of first, Name of third"));
    tap(list().cellForRowAtIndexPath({0, 0}));
    EXPECT_FALSE(page());
    EXPECT_EQ(text(), "#FF0000FF");
    EXPECT_EQ(editor().document().record(1).color, "#00FF00FF") << "only picked";
    chooser()->selectBlue();
    leave("_saveButton");
    open(0);
    chooser()->selectWhite();
    leave("_cancelButton"); // not used
    open(0);
    leave("_removeButton");

    start(); // remembered
    open(2);
    openPage();
    EXPECT_EQ(listed(), (QStringList{"#0000FFFF", "#FF0000FF", "#00FF00FF"}));
    EXPECT_EQ(list().headerViewForSection(0)->textLabel()->text(), "Used last");
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_FALSE(page());
    EXPECT_EQ(text(), "#0000FFFF");
    key(Qt::Key_Return); // the chooser has the keyboard again
    EXPECT_EQ(editor().document().record(2).color, "#0000FFFF");
}

TEST_F(EditorColorsTest, EscapeLeadsBackToTheChooserAsItWas)
{
    open(0);
    chooser()->selectWhite();
    openPage();
    key(Qt::Key_Escape);
    EXPECT_FALSE(page());
    ASSERT_TRUE(chooser());
    EXPECT_EQ(text(), "#FFFFFFFF");
    openPage();
    stop(); // under the page
}
