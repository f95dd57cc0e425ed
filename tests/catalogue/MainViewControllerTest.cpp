#include "catalogue/MainViewController.h"

#include "platform/UITableViewSubtitleCell.h"
#include "support/EditorFixture.h"
#include "support/Files.h"

#include <QAccessible>

#include <semaphore>

namespace
{
using Permissions = QFileDevice::Permissions;

class MainViewControllerTest : public EditorFixture
{
protected:
    void SetUp() override
    {
        writeDocument(QJsonArray{element("plain", "A", "#111111FF"),
                                 element("list-background-image", "A", "#222222FF"),
                                 element("unread-indicator-image", "A", "#333333FF")});
        record("Zebra", "Stripes", "Black and white");
        record("Custom", "Build Your Own!", "not shown");
        record("alpha", "Later", "not shown", "No");
        record("alpha", "Red", "Warm");
        record("alpha", "Blue", "Cold");
        // A property list in a folder that comes before the package's own is not the package's.
        put(theme("Red", "Info.plist"), info("#FF0000FF"));
        put(theme("Red", "Extra/Info.plist"), "inner");
        put(theme("Red", "UIKit/image.png"), "picture");
        put(theme("Blue", "Info.plist"), info("#0000FFFF"));
    }
    void TearDown() override
    {
        stop(); // while a hook that the program's threads may call still stands
        NSFileManager::setFaultHook({});
    }

    QString theme(const QString &name, const QString &file) const
    {
        return _resources + '/' + name + '/' + file;
    }
    static QByteArray info(const QString &color)
    {
        PropertyDictionary dictionary;
        dictionary.setValue("plain", color);
        return PropertyList::writeDictionary(dictionary);
    }
    void record(const QByteArray &section, const QByteArray &name, const QByteArray &details,
                const QByteArray &active = "Yes")
    {
        const auto entry = [](const QByteArray &key, const QByteArray &value) {
            return "<key>" + key + "</key><string>" + value + "</string>";
        };
        _records += "<dict>" + entry("section", section) + entry("name", name) +
                    entry("details", details) + entry("active", active) + "</dict>";
    }
    void open(QSize size = {320, 568})
    {
        put(_resources + "/themes.plist", "<plist><array>" + _records + "</array></plist>");
        start(size, AppDelegate::Root::Catalogue);
    }

    MainViewController &catalogue()
    {
        return *static_cast<MainViewController *>(navigation().viewControllers().front().get());
    }
    NSIndexPath rowOf(const QString &name)
    {
        for (int section = 0; section < catalogue().numberOfSectionsInTableView(); ++section)
            for (int row = 0; row < catalogue().numberOfRowsInSection(section); ++row)
                if (cell({section, row})->textLabel()->text() == name)
                    return {section, row};
        return {};
    }
    UITableViewSubtitleCell *cell(NSIndexPath indexPath)
    {
        return qobject_cast<UITableViewSubtitleCell *>(table().cellForRowAtIndexPath(indexPath));
    }
    UITableViewSubtitleCell *row(const QString &name) { return cell(rowOf(name)); }

    /// A finger that rests on a row until its press counts as long.
    void longPress(const QString &name) { longPress(row(name)); }
    void longPress(UITableViewCell *pressed)
    {
        const QPoint point = sceneFrame(pressed).center().toPoint();
        QTest::mousePress(&window(), Qt::LeftButton, {}, point);
        for (const auto &recognizer : pressed->gestureRecognizers()) {
            auto *timer = recognizer->findChild<QTimer *>("minimumPressDuration");
            if (timer->isActive()) {
                EXPECT_EQ(timer->interval(), 500);
                timer->setInterval(0); // for this press
            }
        }
        QTest::qWait(1); // timers run
        for (const auto &recognizer : pressed->gestureRecognizers())
            recognizer->setMinimumPressDuration(0.5);
        settle();
        QTest::mouseRelease(&window(), Qt::LeftButton, {}, point);
        settle();
    }
    void answer(int button)
    {
        window().alert()->click(button);
        settle();
    }
    bool waitForSaved()
    {
        const bool saved = QTest::qWaitFor(
            [this] { return window().alert() && window().alert()->title() == "Saved"; });
        settle();
        return saved;
    }
    void finishSlide()
    {
        auto *slide = navigation().findChild<QPropertyAnimation *>("slide");
        slide->setCurrentTime(slide->duration());
        settle();
    }
    void goBack()
    {
        tap(navigation().view()->findChild<QQuickItem *>("back"));
        finishSlide();
    }
    QString installed(const QString &file) const
    {
        return folders().theme.packageFolder() + '/' + file;
    }

    QByteArray _records;
};

constexpr Permissions everything(0x7777); // Qt counts the owner twice
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
    using enum UITableViewCell::AccessoryType;
    for (const QString name : {"Later", "Red", "Build Your Own!"}) {
        EXPECT_EQ(row(name)->backgroundColor(), QColor(Qt::white)); // nothing was ever installed
        EXPECT_EQ(row(name)->accessoryType(),
                  name == "Build Your Own!" ? DisclosureIndicator : None);
        EXPECT_EQ(row(name)->isUserInteractionEnabled(), name != "Later");
        EXPECT_EQ(row(name)->gestureRecognizers().size(), name == "Build Your Own!" ? 0U : 1U);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(row(name))->text(QAccessible::Name), name);
    }
    // Rows that scroll out leave the strip above the table white.
    table().parentItem()->parentItem()->setProperty("contentY", 50.0);
    settle();
    const QImage picture = grab();
    for (int x = 0; x < 320; ++x)
        ASSERT_EQ(picture.pixelColor(x, 10), QColor(Qt::white));
    table().parentItem()->parentItem()->setProperty("contentY", 0.0);
    settle();

    tap(row("Later"));
    longPress("Later");
    EXPECT_FALSE(window().alert());
    EXPECT_FALSE(navigation().canGoBack());
}

TEST_F(MainViewControllerTest, TheUsersOwnRowKeepsWhatItsCellShowedBefore)
{
    for (const bool active : {false, true}) {
        SCOPED_TRACE(active);
        _records.clear();
        record("A", "First", "", active ? "Yes" : "No");
        for (int i = 0; i < 20; ++i)
            record("A", "Filler", "");
        record("Custom", "Build Your Own!", "");
        for (int i = 0; i < 20; ++i)
            record("Z", "Filler", "");
        open();
        catalogue().setSelectedTheme("First");
        settle();
        const auto scrollTo = [this](double offset) {
            table().parentItem()->parentItem()->setProperty("contentY", offset);
            settle();
        };
        // Everything in sight is recycled, the first cell first, and the row comes first.
        UITableViewSubtitleCell *first = cell({0, 0});
        const std::size_t collected = first->gestureRecognizers().size();
        EXPECT_EQ(collected, 2U); // shown, and shown again as the installed one
        scrollTo(table().rectForHeader(1).top());
        ASSERT_EQ(cell({1, 0}), first);
        EXPECT_EQ(first->textLabel()->text(), "Build Your Own!");
        EXPECT_EQ(first->accessoryType(), UITableViewCell::AccessoryType::DisclosureIndicator);
        EXPECT_EQ(first->isUserInteractionEnabled(), active);
        EXPECT_EQ(first->selectionStyle(), UITableViewCell::SelectionStyle::None);
        EXPECT_EQ(first->gestureRecognizers().size(), collected);
        longPress(cell(NSIndexPath{1, 0}));
        EXPECT_EQ(window().alert() != nullptr, active);

        if (active)
            answer(0);
        scrollTo(0.0);
        EXPECT_EQ(first->gestureRecognizers().size(), collected + 1U); // as another row now
        EXPECT_EQ(first->selectionStyle(), UITableViewCell::SelectionStyle::None);
    }
}

TEST_F(MainViewControllerTest, ATapAndOKInstallTheTheme)
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
    answer(1);
    ASSERT_TRUE(waitForSaved());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "SAVING THEME... Red\n");
    EXPECT_EQ(window().alert()->message(),
              "Red has been saved. Check biteSMS for \"Tintloom\" under themes then select "
              "\"Apply Theme\".");
    EXPECT_EQ(window().alert()->buttonTitles(), QStringList{"OK"});
    answer(0);
    EXPECT_FALSE(navigation().canGoBack());
    EXPECT_FALSE(item("notice"));
    const QStringList files{"Extra", "Extra/Info.plist", "Info.plist", "UIKit", "UIKit/image.png"};
    EXPECT_EQ(tree(folders().theme.packageFolder()), files);
    for (const QString &file : files)
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

TEST_F(MainViewControllerTest, ALongPressAndYesSendTheThemeToTheEditor)
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
    answer(1);
    ASSERT_TRUE(waitForSaved());
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "SAVING PREDEFINED THEME... Red\n-[CustomViewController dealloc]\n");
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(window().alert()->message(), "Red has been saved as your custom theme.");
    EXPECT_EQ(tree(folders().theme.packageFolder()),
              (QStringList{"Extra", "Extra/Info.plist", "Info.plist", "UIKit", "UIKit/image.png"}));
    EXPECT_EQ(contents(folders().theme.workingCopy()), info("#FF0000FF"));
    EXPECT_EQ(tree(folders().theme.workingCopyFolder()), (QStringList{"Info.plist", "other.txt"}));
    EXPECT_EQ(catalogue().selectedTheme(), "Build Your Own!");
    EXPECT_EQ(row("Build Your Own!")->accessoryType(), UITableViewCell::AccessoryType::Checkmark);

    answer(0);
    finishSlide();
    ASSERT_TRUE(navigation().canGoBack());
    EXPECT_EQ(editor().source().record(0, 0).color, "#FF0000FF");
}

TEST_F(MainViewControllerTest, OpensOneEditorUnderAGreenBarAndComesBack)
{
    open();
    const QColor grey = navigation().navigationBarColor();
    longPress("Blue");
    answer(1);
    ASSERT_TRUE(waitForSaved());
    answer(0);
    finishSlide();
    EXPECT_EQ(navigation().navigationBarColor(), grey); // an edit flow leaves the bar's colour
    goBack();

    tap(row("Build Your Own!"));
    EXPECT_EQ(navigation()
                  .viewControllers()
                  .front()
                  ->view()
                  ->findChild<QQuickItem *>("tableView")
                  ->opacity(),
              0.0);
    finishSlide();
    const CustomViewController *opened = &editor();
    EXPECT_TRUE(opened->fromMainView());
    EXPECT_FALSE(navigation().isNavigationBarHidden());
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

TEST_F(MainViewControllerTest, ASaveInTheEditorMarksTheUsersOwnTheme)
{
    open();
    tap(row("Blue"));
    answer(1);
    ASSERT_TRUE(waitForSaved());
    answer(0);
    tap(row("Build Your Own!"));
    finishSlide();
    const auto gate = std::make_shared<std::binary_semaphore>(0);
    NSFileManager::setFaultHook([=, this](NSFileManager::Operation operation, const QString &path) {
        if (operation == NSFileManager::Operation::Remove &&
            path == folders().theme.packageFolder())
            gate->acquire();
        return std::error_code();
    });
    tapSave();
    goBack(); // not now: the catalogue could begin an installation into the same folder
    EXPECT_TRUE(navigation().canGoBack());
    gate->release();
    ASSERT_TRUE(waitForSaved());
    answer(0);
    goBack();
    EXPECT_EQ(row("Blue")->backgroundColor(), QColor(Qt::white));
    EXPECT_EQ(row("Build Your Own!")->backgroundColor(), QColor(255, 255, 210));
    EXPECT_EQ(PropertyList::readDictionary(contents(folders().theme.preferences()))
                  .value_or(PropertyDictionary())
                  .find("selectedTheme")
                  ->toString(),
              "Build Your Own!");
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

TEST_F(MainViewControllerTest, TheListIsFrozenWhileItWorks)
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

TEST_F(MainViewControllerTest, WhatCouldNotBeCopiedIsSaidUntilDismissed)
{
    open();
    NSFileManager::setFaultHook([](NSFileManager::Operation operation, const QString &path) {
        return operation == NSFileManager::Operation::Copy && path.contains("UIKit")
                   ? std::make_error_code(std::errc::no_space_on_device)
                   : std::error_code();
    });
    tap(row("Red"));
    answer(1);
    ASSERT_TRUE(waitForSaved());
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
    answer(1);
    ASSERT_TRUE(waitForSaved());
    EXPECT_EQ(tree(_packageRoot), QStringList{"Tintloom"});
    EXPECT_TRUE(catalogue().overlays()->notice().contains(_resources + "/Stripes: No such file"));
}

TEST_F(MainViewControllerTest, ClosingTheWindowFinishesAnInstallation)
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
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(opened.expired());
}
