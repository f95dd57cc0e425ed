// The user's own themes in the catalogue, started into and over the editor.

#include "catalogue/SelectedTheme.h"
#include "library/EditedTheme.h"
#include "library/window/NameController.h"
#include "support/LibraryFixture.h"

namespace
{
struct KeptThemesTest : LibraryFixture {
    void SetUp() override
    {
        LibraryFixture::SetUp();
        keep("Red", "#00FF00FF"); // as a ready-made one is called
        keep("Deep", "#0000AAFF");
    }
    bool waitForKept(const QStringList &names)
    {
        const bool came = QTest::qWaitFor([&] {
            settle();
            return shownKept() == names;
        });
        return came;
    }
    QStringList shownKept()
    {
        QStringList names;
        for (const NSIndexPath row : table().indexPathsForVisibleRows())
            if (shown().titleForHeaderInSection(row.section) == "My Themes")
                names += cell(row)->textLabel()->text();
        return names;
    }
    MainViewController &shown()
    {
        return *static_cast<MainViewController *>(navigation().topViewController());
    }
    UITableViewSubtitleCell *keptRow(const QString &name)
    {
        for (const NSIndexPath row : table().indexPathsForVisibleRows())
            if (shown().titleForHeaderInSection(row.section) == "My Themes" &&
                cell(row)->textLabel()->text() == name)
                return cell(row);
        return nullptr;
    }
    void openSheet(const QString &name)
    {
        tap(sceneFrame(keptRow(name)).center(), Qt::RightButton);
        ASSERT_TRUE(window().actionSheet());
    }
    /// Into the editor, and the catalogue over it.
    void openOverEditor()
    {
        putThemes(_resources, _records);
        start();
        key(Qt::Key_T, Qt::ControlModifier);
        ASSERT_TRUE(navigation().canGoBack());
        finishSlide();
        ASSERT_TRUE(waitForKept({"Deep", "Red"}));
    }
};
} // namespace

TEST_F(KeptThemesTest, StandInASectionOfTheirOwnAndInstallLikeReadyMadeOnes)
{
    open();
    ASSERT_TRUE(waitForKept({"Deep", "Red"}));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !keptRow("Deep")->picture().isNull(); }));
    tap(keptRow("Red"));
    ASSERT_TRUE(agreeAndWait());
    answer(0);
    const auto info = PropertyList::readDictionary(contents(installed("Info.plist")));
    EXPECT_EQ(*info->find("plain"), "#00FF00FF");
    EXPECT_EQ(*info->find("guest"), "stays");
    EXPECT_EQ(keptRow("Red")->accessoryType(), UITableViewCell::AccessoryType::Checkmark);
    for (const NSIndexPath path : table().indexPathsForVisibleRows())
        EXPECT_EQ(cell(path)->accessoryType() == UITableViewCell::AccessoryType::Checkmark,
                  cell(path) == keptRow("Red"))
            << "the ready-made one of that name is another";
    // It may have been replaced since, and is installed again.
    tap(keptRow("Red"));
    ASSERT_TRUE(window().alert());
    EXPECT_EQ(window().alert()->buttonTitles(), (QStringList{"Cancel", "OK"}));
}

TEST_F(KeptThemesTest, ASheetRenamesDuplicatesAndRemovesUndoably)
{
    ASSERT_FALSE(EditedTheme(folders().theme.preferences()).set("Deep"));
    ASSERT_FALSE(SelectedTheme(folders().theme.preferences()).set("Deep", true));
    open();
    ASSERT_TRUE(waitForKept({"Deep", "Red"}));
    openSheet("Deep");
    EXPECT_EQ(window().actionSheet()->buttonTitles(),
              (QStringList{"Rename", "Duplicate", "Export", "Share", "Send to Phone\u2026",
                           "Remove", "Cancel"}));
    choose("Rename");
    ASSERT_TRUE(page<NameController>());
    EXPECT_EQ(page<NameController>()->entry()->isReplaceable(), false);
    type("red"); // over what is selected
    key(Qt::Key_Return);
    ASSERT_TRUE(waitForPart("freeName"));
    EXPECT_FALSE(part("replace")->isVisible()); // another theme would be gone
    tap(part("freeName"));
    ASSERT_TRUE(waitForNoPage());
    ASSERT_TRUE(waitForKept({"Red", "red 2"}));
    EXPECT_EQ(EditedTheme(folders().theme.preferences()).name(), "red 2");
    EXPECT_EQ(SelectedTheme(folders().theme.preferences()).name(), "red 2");

    openSheet("Red");
    choose("Duplicate");
    ASSERT_TRUE(waitForKept({"Red", "red 2", "Red 3"}));
    openSheet("red 2");
    choose("Remove");
    ASSERT_TRUE(waitForKept({"Red", "Red 3"}));
    ASSERT_EQ(overlays().quietActions(), QStringList{"Undo"});
    overlays().performQuietAction(0);
    ASSERT_TRUE(waitForKept({"Red", "red 2", "Red 3"}));
    EXPECT_EQ(keptNames(), (QStringList{"Red", "red 2", "Red 3"}));
}

TEST_F(KeptThemesTest, OverTheEditorOneIsSentBackToThatEditorWhichStartsAnew)
{
    openOverEditor();
    EXPECT_GE(sceneFrame(&table()).top(), 64.0); // below the bar
    key(Qt::Key_Escape);
    finishSlide();
    ASSERT_FALSE(navigation().canGoBack());

    root().document().setColor(0, "#ABCDEFFF");
    key(Qt::Key_T, Qt::ControlModifier);
    finishSlide();
    ASSERT_TRUE(waitForKept({"Deep", "Red"}));
    longPress(keptRow("Deep"));
    ASSERT_TRUE(window().alert());
    EXPECT_TRUE(window().alert()->message().contains("not saved"));
    answer(0);
    EXPECT_EQ(root().document().record(0).color, "#ABCDEFFF");
    EXPECT_TRUE(root().document().hasUnsavedChanges());

    longPress(keptRow("Deep"));
    ASSERT_TRUE(agreeAndWait());
    answer(0);
    finishSlide();
    ASSERT_FALSE(navigation().canGoBack());
    EXPECT_EQ(root().document().record(0).color, "#0000AAFF");
    EXPECT_FALSE(root().document().hasUnsavedChanges() || root().document().canUndo());
    ASSERT_TRUE(QTest::qWaitFor([this] { return window().title() == u"Deep \u2013 Tintloom"; }));
    EXPECT_TRUE(QTest::qWaitFor([this] {
        return tree(folders().theme.documents + "/Drafts").isEmpty();
    })) << "a draft of what is gone";

    // Nothing that stood in the editor before takes part in what comes now.
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(root().document().record(0).color, "#0000AAFF");
}
