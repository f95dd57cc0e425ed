#include "support/CatalogueFixture.h"

#include <semaphore>

namespace
{
constexpr QFileDevice::Permissions everything(0x7777); // Qt counts the owner twice
const QStringList filesOfRed{"Extra", "Extra/Info.plist", "Info.plist", "UIKit", "UIKit/image.png"};

using MainViewControllerFlowsTest = CatalogueFixture;
} // namespace

TEST_F(MainViewControllerFlowsTest, ATapAndOKInstallTheTheme)
{
    put(installed("old.txt"), "gone afterwards");
    open();
    tap(row("Red"));
    ASSERT_TRUE(window().alert());
    EXPECT_EQ(window().alert()->title(), "Selecting this will overwrite your current theme.");
    EXPECT_EQ(window().alert()->message(), "Are you sure you want to continue?");
    EXPECT_EQ(window().alert()->buttonTitles(), (QStringList{"Cancel", "OK"}));
    answer(0);
    EXPECT_EQ(tree(_packageRoot), (QStringList{"Tintloom", "Tintloom/old.txt"}));
    EXPECT_FALSE(catalogue().selectedTheme());

    tap(row("Red"));
    testing::internal::CaptureStderr();
    ASSERT_TRUE(agreeAndWait());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "SAVING THEME... Red\n");
    EXPECT_EQ(window().alert()->message(),
              "Red has been saved. Check biteSMS for \"Tintloom\" under themes then select "
              "\"Apply Theme\".");
    EXPECT_EQ(window().alert()->buttonTitles(), QStringList{"OK"});
    answer(0);
    EXPECT_FALSE(navigation().canGoBack() || item("notice"));
    EXPECT_EQ(tree(folders().theme.packageFolder()), filesOfRed);
    for (const QString &file : filesOfRed)
        EXPECT_EQ(QFileInfo(installed(file)).permissions(), everything) << file.toStdString();
    EXPECT_EQ(contents(installed("UIKit/image.png")), "picture");
    EXPECT_FALSE(QFileInfo::exists(folders().theme.workingCopy()));

    for (const bool restarted : {false, true}) {
        if (restarted)
            open();
        EXPECT_EQ(catalogue().selectedTheme(), "Red");
        EXPECT_EQ(row("Red")->backgroundColor(), QColor(255, 255, 210));
        EXPECT_EQ(row("Red")->accessoryType(), UITableViewCell::AccessoryType::Checkmark);
        EXPECT_EQ(row("Blue")->backgroundColor(), QColor(Qt::white));
    }
    put(installed("mine.txt"), "stays");
    tap(row("Red"));
    EXPECT_EQ(window().alert()->title(), "Red is already your chosen theme.");
    EXPECT_EQ(window().alert()->message(), "");
    answer(0);
    EXPECT_FALSE(window().alert());
    EXPECT_TRUE(QFileInfo::exists(installed("mine.txt")));
}

TEST_F(MainViewControllerFlowsTest, ALongPressAndYesSendTheThemeToTheEditor)
{
    put(folders().theme.workingCopy(), info("#00FF00FF"));
    put(folders().theme.workingCopyFolder() + "/other.txt", "stays");
    open();
    table().reloadData(); // a second recogniser on each cell, of which only one may fire
    settle();
    longPress("Red");
    ASSERT_TRUE(window().alert());
    EXPECT_EQ(window().alert()->title(),
              "Would you like to send this theme to the editor to edit?");
    EXPECT_EQ(window().alert()->message(), "Doing so will overwrite your current custom theme.");
    EXPECT_EQ(window().alert()->buttonTitles(), (QStringList{"No", "Yes"}));
    answer(0);
    EXPECT_FALSE(window().alert()); // there was one, and the row was not tapped besides
    EXPECT_EQ(contents(folders().theme.workingCopy()), info("#00FF00FF"));
    EXPECT_FALSE(QFileInfo::exists(_packageRoot));

    // The editor that a tap opened before shows the old working copy.
    tap(row("Build Your Own!"));
    finishSlide();
    const std::weak_ptr<CustomViewController> first = catalogue().customViewController();
    EXPECT_EQ(editor().source().record(0, 0).color, "#00FF00FF");
    goBack();

    longPress("Red");
    testing::internal::CaptureStderr();
    ASSERT_TRUE(agreeAndWait());
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "SAVING PREDEFINED THEME... Red\n-[CustomViewController dealloc]\n");
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(window().alert()->message(), "Red has been saved as your custom theme.");
    EXPECT_EQ(tree(folders().theme.packageFolder()), filesOfRed);
    EXPECT_EQ(contents(folders().theme.workingCopy()), info("#FF0000FF"));
    EXPECT_EQ(tree(folders().theme.workingCopyFolder()),
              (QStringList{"Info.plist", "Info.previous.plist", "other.txt"}));
    EXPECT_EQ(catalogue().selectedTheme(), "Build Your Own!");
    EXPECT_EQ(row("Build Your Own!")->accessoryType(), UITableViewCell::AccessoryType::Checkmark);

    answer(0);
    finishSlide();
    ASSERT_TRUE(navigation().canGoBack());
    EXPECT_EQ(editor().source().record(0, 0).color, "#FF0000FF");
}

TEST_F(MainViewControllerFlowsTest, ASaveInTheEditorMarksTheUsersOwnTheme)
{
    open();
    tap(row("Blue"));
    ASSERT_TRUE(agreeAndWait());
    answer(0);
    tap(row("Build Your Own!"));
    finishSlide();
    const auto reached = std::make_shared<std::binary_semaphore>(0);
    const auto gate = std::make_shared<std::binary_semaphore>(0);
    NSFileManager::setFaultHook([=, this](NSFileManager::Operation operation, const QString &path) {
        if (operation == NSFileManager::Operation::Remove &&
            path == folders().theme.packageFolder()) {
            reached->release();
            gate->acquire();
        }
        return std::error_code();
    });
    tapSave();
    reached->acquire();
    EXPECT_EQ(catalogue().selectedTheme(), "Build Your Own!"); // before anything is replaced
    EXPECT_EQ(sceneFrame(item("_loadingView")), QRectF(85, 175, 150, 130));
    goBack(); // not now: the catalogue could begin an installation into the same folder
    EXPECT_TRUE(navigation().canGoBack());
    gate->release();
    ASSERT_TRUE(waitForSaved());
    answer(0);
    goBack();
    EXPECT_EQ(row("Blue")->backgroundColor(), QColor(Qt::white));
    EXPECT_EQ(row("Build Your Own!")->backgroundColor(), QColor(255, 255, 210));
    open();
    EXPECT_EQ(catalogue().selectedTheme(), "Build Your Own!");
}

TEST_F(MainViewControllerFlowsTest, TheListIsFrozenWhileItWorks)
{
    open();
    const auto gate = std::make_shared<std::binary_semaphore>(0);
    NSFileManager::setFaultHook(
        [=, first = true](NSFileManager::Operation, const QString &) mutable {
            if (std::exchange(first, false))
                gate->acquire(); // the queue waits at its first operation
            return std::error_code();
        });
    tap(row("Red"));
    answer(1);
    EXPECT_EQ(sceneFrame(item("_loadingView")), QRectF(85, 219, 150, 130));
    EXPECT_FALSE(table().isScrollEnabled());
    tap(row("Blue"));
    longPress("Blue");
    press(Qt::Key_Return);
    EXPECT_FALSE(window().alert());
    gate->release();
    ASSERT_TRUE(waitForSaved());
    EXPECT_FALSE(item("_loadingView"));
    EXPECT_TRUE(table().isScrollEnabled() && table().allowsSelection());
}

TEST_F(MainViewControllerFlowsTest, WhatCouldNotBeCopiedIsSaidUntilDismissed)
{
    open();
    NSFileManager::setFaultHook([](NSFileManager::Operation operation, const QString &path) {
        return operation == NSFileManager::Operation::Copy && path.contains("UIKit")
                   ? std::make_error_code(std::errc::no_space_on_device)
                   : std::error_code();
    });
    tap(row("Red"));
    ASSERT_TRUE(agreeAndWait());
    answer(0);
    EXPECT_TRUE(catalogue().overlays()->notice().contains(installed("UIKit/image.png") +
                                                          ": No space left on device"));
    EXPECT_FALSE(catalogue().overlays()->notice().contains("Info.plist"));
    ASSERT_TRUE(item("notice"));
    EXPECT_EQ(sceneFrame(item("notice")).bottom(), 568.0);
    tap(sceneFrame(item("notice")).topRight() + QPointF(-22, 22));
    EXPECT_FALSE(item("notice"));

    // No folder of that name: an empty theme folder, as it is, and the strip says so.
    NSFileManager::setFaultHook({});
    tap(row("Stripes"));
    ASSERT_TRUE(agreeAndWait());
    EXPECT_EQ(tree(_packageRoot), QStringList{"Tintloom"});
    EXPECT_TRUE(catalogue().overlays()->notice().contains(_resources + "/Stripes: No such file"));
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
    // A catalogue and an editor that hold each other go with the window.
    tap(row("Build Your Own!"));
    const std::weak_ptr<CustomViewController> opened = catalogue().customViewController();
    stop();
    EXPECT_TRUE(opened.expired());
}
