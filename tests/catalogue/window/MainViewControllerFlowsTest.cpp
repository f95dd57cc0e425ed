#include "support/CatalogueFixture.h"
#include "theme/WorkingCopyKeeper.h"

#include <QAccessible>
#include <QDesktopServices>
#include <QQmlComponent>
#include <QTimer>

namespace
{
using enum NSFileManager::Operation;

constexpr QFileDevice::Permissions everything(0x7777); // Qt counts the owner twice
const QStringList filesOfRed{"Info.plist", "Nested", "Nested/Info.plist", "UIKit",
                             "UIKit/image.png"};

struct MainViewControllerFlowsTest : CatalogueFixture {
    void expectAlert(const QString &title, const QString &message, const QStringList &buttons)
    {
        ASSERT_TRUE(window().alert());
        EXPECT_EQ(window().alert()->title(), title);
        EXPECT_EQ(window().alert()->message(), message);
        EXPECT_EQ(window().alert()->buttonTitles(), buttons);
    }
    QString notice() { return catalogue().overlays()->notice(); }
};
} // namespace

TEST_F(MainViewControllerFlowsTest, ATapAndOKInstallTheTheme)
{
    put(installed("old.txt"), "gone afterwards");
    open();
    tap(row("Red"));
    expectAlert("Selecting this will overwrite your current theme.",
                "Are you sure you want to continue?", {"Cancel", "OK"});
    EXPECT_FALSE(row("Red")->isSelected());
    answer(0);
    EXPECT_EQ(tree(_packageRoot), (QStringList{"Tintloom", "Tintloom/old.txt"}));

    tap(row("Red"));
    testing::internal::CaptureStderr();
    ASSERT_TRUE(agreeAndWait());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "SAVING THEME... Red\n");
    expectAlert("Saved",
                "Red has been saved. Check biteSMS for \"Tintloom\" under themes then select "
                "\"Apply Theme\".",
                {"OK"});
    answer(0);
    EXPECT_FALSE(navigation().canGoBack());
    EXPECT_EQ(tree(folders().theme.packageFolder()), filesOfRed);
    for (const QString &file : filesOfRed)
        EXPECT_EQ(QFileInfo(installed(file)).permissions(), everything) << file.toStdString();
    EXPECT_EQ(row("Red")->backgroundColor(), QColor(255, 255, 210));
    EXPECT_EQ(row("Red")->accessoryType(), UITableViewCell::AccessoryType::Checkmark);

    tap(row("Red"));
    expectAlert("Red is already your chosen theme.", "", {"OK"});
    answer(0);

    // The strip leads to the folder until it is dismissed.
    QQmlComponent desktop(qmlEngine(&table())); // anything that takes an URL
    QDesktopServices::setUrlHandler("file", &desktop, "loadUrl");
    ASSERT_TRUE(item("quietStrip"));
    EXPECT_EQ(sceneFrame(item("quietStrip")).bottom(), 568.0);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(item("quietStrip"))
                    ->text(QAccessible::Name)
                    .contains(_packageRoot));
    key(Qt::Key_Tab);
    key(Qt::Key_Return);
    EXPECT_EQ(desktop.url(), QUrl::fromLocalFile(_packageRoot));
    QDesktopServices::unsetUrlHandler("file");
    key(Qt::Key_Escape);
    EXPECT_FALSE(item("quietStrip"));
    EXPECT_TRUE(table().hasActiveFocus());
}

TEST_F(MainViewControllerFlowsTest, ALongPressAndYesSendTheThemeToTheEditor)
{
    put(folders().theme.workingCopy(), info("#00FF00FF"));
    open();
    table().reloadData(); // a second recogniser on each cell, of which only one may fire
    settle();
    longPress("Red");
    expectAlert("Would you like to send this theme to the editor to edit?",
                "Doing so will overwrite your current custom theme.", {"No", "Yes"});
    EXPECT_FALSE(row("Red")->isSelected());
    answer(0);
    EXPECT_FALSE(window().alert()); // there was one, and the row was not tapped besides
    EXPECT_FALSE(QFileInfo::exists(_packageRoot));

    // The editor that a tap opened before shows the old working copy.
    tap(row("Mine"));
    ASSERT_TRUE(navigation().canGoBack());
    finishSlide();
    EXPECT_EQ(editor().source().record(0, 0).color, "#00FF00FF");
    goBack();

    longPress("Red");
    testing::internal::CaptureStderr();
    ASSERT_TRUE(agreeAndWait());
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "SAVING PREDEFINED THEME... Red\n-[CustomViewController dealloc]\n");
    expectAlert("Saved", "Red has been saved as your custom theme.", {"OK"});
    EXPECT_EQ(tree(folders().theme.packageFolder()), filesOfRed);
    EXPECT_EQ(row("Build Your Own!")->accessoryType(), UITableViewCell::AccessoryType::Checkmark);
    navigation().setNavigationBarColor(Qt::gray);
    answer(0);
    finishSlide();
    ASSERT_TRUE(navigation().canGoBack());
    EXPECT_EQ(navigation().navigationBarColor(), QColor(Qt::gray)); // only a tap colours it
    EXPECT_EQ(editor().source().record(0, 0).color, "#FF0000FF");
}

TEST_F(MainViewControllerFlowsTest, ASaveInTheEditorMarksTheUsersOwnTheme)
{
    open();
    put(installed("old.txt"), "to be removed");
    catalogue().setSelectedTheme("Blue");
    settle();
    tap(row("Build Your Own!"));
    finishSlide();
    NSFileManager::setFaultHook([this](NSFileManager::Operation operation, const QString &path) {
        if (operation == Remove && path == folders().theme.packageFolder()) {
            EXPECT_EQ(catalogue().selectedTheme(), "Build Your Own!"); // before anything is removed
        }
        if (path == folders().theme.listBackground()) {
            EXPECT_EQ(QThread::currentThread(), qApp->thread());
        }
        return std::error_code();
    });
    editor().save();
    EXPECT_EQ(sceneFrame(item("_loadingView")), QRectF(85, 175, 150, 130));
    // Not now: the catalogue could begin an installation into the same folder.
    navigation().goBack();
    EXPECT_TRUE(navigation().canGoBack());
    ASSERT_TRUE(waitForSaved());
    answer(0);
    tap(table().cellForRowAtIndexPath({0, 0}));
    EXPECT_FALSE(item("quietStrip")->isEnabled()); // under the chooser nothing takes input
    key(Qt::Key_Escape);
    editor().findChild<QAbstractAnimation *>("fade")->stop();
    goBack();
    EXPECT_EQ(row("Blue")->backgroundColor(), QColor(Qt::white));
    EXPECT_EQ(row("Build Your Own!")->backgroundColor(), QColor(255, 255, 210));
}

TEST_F(MainViewControllerFlowsTest, AnEditorWithoutElementsEndsTheProgram)
{
    writeDocument(R"([{"key": "k"}])");
    open();
    QTimer::singleShot(0, &catalogue(), [this] { tap(row("Build Your Own!")); });
    QTimer::singleShot(10'000, &catalogue(), &QCoreApplication::quit); // it goes on
    EXPECT_EQ(QCoreApplication::exec(), EXIT_FAILURE);
}

TEST_F(MainViewControllerFlowsTest, TheListIsFrozenWhileItWorks)
{
    open();
    auto other = WorkingCopyKeeper::open(folders().theme); // for whom the queue waits
    ASSERT_TRUE(other->lock());
    tap(row("Red"));
    answer(1);
    EXPECT_EQ(sceneFrame(catalogue().loadingView()), QRectF(85, 219, 150, 130));
    EXPECT_EQ(sceneFrame(catalogue().spinningIndicator()), QRectF(142, 284, 37, 37));
    EXPECT_EQ(catalogue().loadingLabel()->property("text"), "Saving theme...");
    EXPECT_FALSE(table().isScrollEnabled() || table().allowsSelection());
    tap(row("Blue"));
    longPress("Blue");
    key(Qt::Key_Return);
    EXPECT_FALSE(window().alert());
    other.reset();
    ASSERT_TRUE(waitForSaved());
    EXPECT_FALSE(catalogue().loadingView());
    EXPECT_TRUE(table().isScrollEnabled() && table().allowsSelection());
}

TEST_F(MainViewControllerFlowsTest, WhatCouldNotBeCopiedIsSaidUntilDismissed)
{
    _records += themeRecord("alpha", "../Red");
    open();
    NSFileManager::setFaultHook(failing(Copy, "/UIKit"));
    tap(row("Red"));
    ASSERT_TRUE(agreeAndWait());
    answer(0);
    EXPECT_TRUE(notice().contains(installed("UIKit") + ": No space left on device"));
    EXPECT_TRUE(notice().contains("image.png") && !notice().contains("Info.plist"));
    ASSERT_TRUE(item("notice") && !item("quietStrip"));
    tap(sceneFrame(item("notice")).topRight() + QPointF(-22, 22));
    EXPECT_FALSE(item("notice"));

    // No folder of that name: an empty theme folder, as it is, and the strip says so.
    NSFileManager::setFaultHook({});
    tap(row("Stripes"));
    ASSERT_TRUE(agreeAndWait());
    EXPECT_EQ(tree(_packageRoot), QStringList{"Tintloom"});
    EXPECT_TRUE(notice().contains(_resources + "/Stripes: No such file"));
    answer(0);

    // No folder can have that name: there is nothing to empty the theme folder for.
    tap(row("../Red"));
    answer(1);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !catalogue().loadingView(); }));
    EXPECT_FALSE(window().alert());
    EXPECT_TRUE(notice().startsWith("Nothing was saved.\n"));
}

TEST_F(MainViewControllerFlowsTest, ClosingTheWindowFinishesAnInstallation)
{
    open();
    tap(row("Blue"));
    answer(1);
    stop();
    EXPECT_TRUE(QFileInfo::exists(installed("Info.plist")));
    open();
    EXPECT_EQ(catalogue().selectedTheme(), "Blue");
}
