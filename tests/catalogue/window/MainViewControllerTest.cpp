#include "catalogue/window/MainViewController.h"

#include "support/CatalogueFixture.h"

#include <QAccessible>

using MainViewControllerTest = CatalogueFixture;
using enum UITableViewCell::AccessoryType;

TEST_F(MainViewControllerTest, ListsThemesBySectionAtItsFrames)
{
    open({700, 500});
    EXPECT_TRUE(navigation().isNavigationBarHidden());
    EXPECT_EQ(sceneFrame(item("hiddenView")), QRectF(0, 20, 700, 20));
    EXPECT_EQ(sceneFrame(item("appVersion")), QRectF(0, 20, 700, 20));
    EXPECT_EQ(sceneFrame(item("tableView")), QRectF(0, 20, 700, 500));
    EXPECT_EQ(sceneFrame(cell({0, 0})), QRectF(0, 48, 700, 44));
    QStringList rows;
    for (int section = 0; section < catalogue().numberOfSectionsInTableView(); ++section)
        for (int row = 0; row < catalogue().numberOfRowsInSection(section); ++row)
            rows += catalogue().titleForHeaderInSection(section) + ": " +
                    cell({section, row})->textLabel()->text() + ", " +
                    cell({section, row})->detailTextLabel()->text();
    EXPECT_EQ(rows, (QStringList{"alpha: Later, Coming soon!", "alpha: Red, Warm",
                                 "alpha: Blue, Cold", "Custom: Build Your Own!, ",
                                 "Custom: Mine, Too", "Zebra: Stripes, Black and white"}));
    EXPECT_EQ(table().headerViewForSection(0)->tintColor().rgb(), qRgb(0, 214, 68));
    for (const QString name : {"Later", "Red", "Build Your Own!"}) {
        const bool isOwn = name == "Build Your Own!";
        EXPECT_EQ(row(name)->backgroundColor(), QColor(Qt::white)); // nothing was ever installed
        EXPECT_EQ(row(name)->accessoryType(), isOwn ? DisclosureIndicator : None);
        EXPECT_EQ(row(name)->isUserInteractionEnabled(), name != "Later");
        EXPECT_EQ(row(name)->gestureRecognizers().size(), isOwn ? 0U : 1U);
    }
    EXPECT_EQ(QAccessible::queryAccessibleInterface(row("Red"))->text(QAccessible::Name), "Red");
    tap(row("Later"));
    longPress("Later");
    EXPECT_FALSE(window().alert() || navigation().canGoBack());
    catalogue().setSelectedTheme("Later"); // one that was installed when it still could be
    settle();
    EXPECT_EQ(row("Later")->detailTextLabel()->text(), "Coming soon!");
    EXPECT_FALSE(row("Later")->isUserInteractionEnabled());
    scrollTo(50.0); // and a yellow row that scrolls out leaves the strip above the table white
    EXPECT_EQ(grab().pixelColor(10, 10), QColor(Qt::white));
}

TEST_F(MainViewControllerTest, TheUsersOwnRowKeepsWhatItsCellShowedBefore)
{
    for (const bool active : {false, true}) {
        _records = themeRecord("A", "First", "", active ? "Yes" : "No") +
                   themeRecord("A", "Filler").repeated(20) +
                   themeRecord("Custom", "Build Your Own!") +
                   themeRecord("Z", "Filler").repeated(20);
        open();
        catalogue().setSelectedTheme("First");
        settle();
        // Everything in sight is recycled, the first cell first, and the row comes first.
        UITableViewSubtitleCell *first = cell({0, 0});
        scrollTo(table().rectForHeader(1).top());
        ASSERT_EQ(cell({1, 0}), first);
        EXPECT_EQ(first->isUserInteractionEnabled(), active);
        EXPECT_EQ(first->selectionStyle(), UITableViewCell::SelectionStyle::None);
        // From being shown twice; none from this row.
        EXPECT_EQ(first->gestureRecognizers().size(), 2U);
        longPress(cell(NSIndexPath{1, 0}));
        EXPECT_EQ(window().alert() != nullptr, active);

        if (active)
            answer(0);
        scrollTo(0.0);
        EXPECT_EQ(first->gestureRecognizers().size(), 3U); // as another row now
    }
}

TEST_F(MainViewControllerTest, OpensOneEditorUnderAGreenBarAndComesBack)
{
    open();
    tap(row("Build Your Own!"));
    EXPECT_EQ(catalogue().view()->findChild<QQuickItem *>("tableView")->opacity(), 0.0);
    finishSlide();
    const CustomViewController *opened = &editor();
    EXPECT_FALSE(navigation().isNavigationBarHidden());
    EXPECT_FALSE(item("_hiddenView")->isVisible() || item("_topView")->isVisible());
    EXPECT_EQ(sceneFrame(item("_tableView")), QRectF(0, 64, 320, 504));
    EXPECT_EQ(sceneFrame(table().cellForRowAtIndexPath({0, 0})), QRectF(0, 64 + 28, 320, 50));
    EXPECT_EQ(navigation().navigationBarColor().rgb(), qRgb(0, 214, 68));
    EXPECT_EQ(navigation().view()->findChild<QQuickItem *>("title")->property("text"),
              "Custom Theme");
    goBack();
    EXPECT_TRUE(navigation().isNavigationBarHidden());
    EXPECT_EQ(item("tableView")->opacity() + item("hiddenView")->opacity(), 2.0);

    tap(row("Mine")); // as any row of that section does
    finishSlide();
    EXPECT_EQ(&editor(), opened);
}

TEST_F(MainViewControllerTest, KeysTapRowsAndPressThemLong)
{
    open();
    key(Qt::Key_Tab);
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, int> steps[] = {
        {Qt::Key_Home, {}, -1}, // to "Later", which takes neither
        {Qt::Key_Return, {}, -1},
        {Qt::Key_Menu, {}, -1},
        {Qt::Key_Down, {}, -1},
        {Qt::Key_Return, {}, 0},
        {Qt::Key_Return, Qt::ShiftModifier, 1},
    };
    for (const auto &[pressed, modifiers, tag] : steps) {
        key(pressed, modifiers);
        EXPECT_EQ(window().alert() ? window().alert()->tag() : -1, tag);
        key(Qt::Key_Escape);
    }
}
