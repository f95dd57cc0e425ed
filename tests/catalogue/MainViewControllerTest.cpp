#include "catalogue/MainViewController.h"

#include "support/CatalogueFixture.h"

#include <QAccessible>

namespace
{
using AccessoryType = UITableViewCell::AccessoryType;

class MainViewControllerTest : public CatalogueFixture
{
protected:
    void scrollTo(double offset)
    {
        table().parentItem()->parentItem()->setProperty("contentY", offset);
        settle();
    }
};
} // namespace

TEST_F(MainViewControllerTest, ListsThemesBySectionAtItsFrames)
{
    for (const QSize size : {QSize(320, 568), QSize(700, 500)}) {
        open(size);
        const double w = size.width();
        EXPECT_TRUE(navigation().isNavigationBarHidden());
        EXPECT_EQ(sceneFrame(item("hiddenView")), QRectF(0, 20, w, 20));
        EXPECT_EQ(sceneFrame(item("appVersion")), QRectF(0, 20, w, 20));
        EXPECT_EQ(sceneFrame(item("tableView")), QRectF(0, 20, w, size.height()));
        EXPECT_EQ(sceneFrame(cell({0, 0})), QRectF(0, 48, w, 44));
    }
    QStringList rows;
    for (int section = 0; section < catalogue().numberOfSectionsInTableView(); ++section)
        for (int row = 0; row < catalogue().numberOfRowsInSection(section); ++row)
            rows += catalogue().titleForHeaderInSection(section) + ": " +
                    cell({section, row})->textLabel()->text() + ", " +
                    cell({section, row})->detailTextLabel()->text();
    EXPECT_EQ(rows,
              (QStringList{"alpha: Later, Coming soon!", "alpha: Red, Warm", "alpha: Blue, Cold",
                           "Custom: Build Your Own!, ", "Zebra: Stripes, Black and white"}));
    EXPECT_EQ(table().headerViewForSection(0)->tintColor().rgb(), qRgb(0, 214, 68));
    for (const QString name : {"Later", "Red", "Build Your Own!"}) {
        SCOPED_TRACE(name.toStdString());
        const bool isOwn = name == "Build Your Own!";
        EXPECT_EQ(row(name)->backgroundColor(), QColor(Qt::white)); // nothing was ever installed
        EXPECT_EQ(row(name)->accessoryType(),
                  isOwn ? AccessoryType::DisclosureIndicator : AccessoryType::None);
        EXPECT_EQ(row(name)->isUserInteractionEnabled(), name != "Later");
        EXPECT_EQ(row(name)->gestureRecognizers().size(), isOwn ? 0U : 1U);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(row(name))->text(QAccessible::Name), name);
    }
    // Rows that scroll out leave the strip above the table white.
    scrollTo(50.0);
    const QImage picture = grab();
    for (int x = 0; x < 320; ++x)
        ASSERT_EQ(picture.pixelColor(x, 10), QColor(Qt::white));
    scrollTo(0.0);

    tap(row("Later"));
    longPress("Later");
    EXPECT_FALSE(window().alert());
    EXPECT_FALSE(navigation().canGoBack());
}

TEST_F(MainViewControllerTest, TheUsersOwnRowKeepsWhatItsCellShowedBefore)
{
    for (const bool active : {false, true}) {
        SCOPED_TRACE(active);
        _records = themeRecord("A", "First", "", active ? "Yes" : "No") +
                   themeRecord("A", "Filler").repeated(20) +
                   themeRecord("Custom", "Build Your Own!") +
                   themeRecord("Z", "Filler").repeated(20);
        open();
        catalogue().setSelectedTheme("First");
        settle();
        // Everything in sight is recycled, the first cell first, and the row comes first.
        UITableViewSubtitleCell *first = cell({0, 0});
        EXPECT_EQ(first->gestureRecognizers().size(), 2U); // shown, and again as the installed one
        scrollTo(table().rectForHeader(1).top());
        ASSERT_EQ(cell({1, 0}), first);
        EXPECT_EQ(first->textLabel()->text(), "Build Your Own!");
        EXPECT_EQ(first->accessoryType(), AccessoryType::DisclosureIndicator);
        EXPECT_EQ(first->isUserInteractionEnabled(), active);
        EXPECT_EQ(first->selectionStyle(), UITableViewCell::SelectionStyle::None);
        EXPECT_EQ(first->gestureRecognizers().size(), 2U);
        longPress(cell(NSIndexPath{1, 0}));
        EXPECT_EQ(window().alert() != nullptr, active);

        if (active)
            answer(0);
        scrollTo(0.0);
        EXPECT_EQ(first->gestureRecognizers().size(), 3U); // as another row now
        EXPECT_EQ(first->selectionStyle(), UITableViewCell::SelectionStyle::None);
    }
}

TEST_F(MainViewControllerTest, OpensOneEditorUnderAGreenBarAndComesBack)
{
    open();
    const QColor grey = navigation().navigationBarColor();
    longPress("Blue");
    ASSERT_TRUE(agreeAndWait());
    answer(0);
    finishSlide();
    EXPECT_EQ(navigation().navigationBarColor(), grey); // an edit flow leaves the bar's colour
    goBack();

    tap(row("Build Your Own!"));
    EXPECT_EQ(catalogue().view()->findChild<QQuickItem *>("tableView")->opacity(), 0.0);
    finishSlide();
    const CustomViewController *opened = &editor();
    EXPECT_TRUE(opened->fromMainView());
    EXPECT_FALSE(navigation().isNavigationBarHidden());
    EXPECT_FALSE(item("_hiddenView")->isVisible() || item("_topView")->isVisible());
    EXPECT_EQ(sceneFrame(item("_tableView")), QRectF(0, 64, 320, 504));
    EXPECT_EQ(sceneFrame(table().cellForRowAtIndexPath({0, 0})), QRectF(0, 64 + 28, 320, 50));
    EXPECT_EQ(navigation().navigationBarColor().rgb(), qRgb(0, 214, 68));
    EXPECT_EQ(navigation().view()->findChild<QQuickItem *>("title")->property("text"),
              "Custom Theme");
    goBack();
    EXPECT_FALSE(navigation().canGoBack());
    EXPECT_TRUE(navigation().isNavigationBarHidden());
    EXPECT_EQ(item("tableView")->opacity(), 1.0);
    EXPECT_EQ(item("hiddenView")->opacity(), 1.0);

    // By keyboard, and to the same editor.
    press(Qt::Key_Tab);
    press(Qt::Key_Home);
    while (!row("Build Your Own!")->isFocused())
        press(Qt::Key_Down);
    press(Qt::Key_Return);
    finishSlide();
    EXPECT_EQ(&editor(), opened);
}

TEST_F(MainViewControllerTest, KeysPressRowsLong)
{
    open();
    press(Qt::Key_Tab);
    press(Qt::Key_Home); // "Later", which takes neither
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Menu})
        press(key);
    EXPECT_FALSE(window().alert());
    press(Qt::Key_Down);
    for (const auto &[key, modifiers] :
         {std::pair(Qt::Key_Return, Qt::ShiftModifier), std::pair(Qt::Key_Menu, Qt::NoModifier)}) {
        press(key, modifiers);
        ASSERT_TRUE(window().alert());
        EXPECT_EQ(window().alert()->tag(), 1);
        press(Qt::Key_Escape);
        EXPECT_FALSE(window().alert());
    }
    press(Qt::Key_Return);
    ASSERT_TRUE(window().alert());
    EXPECT_EQ(window().alert()->tag(), 0);
}
