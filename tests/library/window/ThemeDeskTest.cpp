// Keeping, opening, sharing and exporting in the window.

#include "library/window/ThemeDesk.h"

#include "library/EditedTheme.h"
#include "library/ShareText.h"
#include "library/ThemeExport.h"
#include "library/window/NameController.h"
#include "library/window/OpenController.h"
#include "library/window/ShareController.h"
#include "platform/FilePanel.h"
#include "support/LibraryFixture.h"

#include <QClipboard>
#include <QQmlContext>

namespace
{
struct ThemeDeskTest : LibraryFixture {
    void SetUp() override
    {
        LibraryFixture::SetUp();
        putThemes(_resources, _records);
        start();
    }
    void more(const QString &entry)
    {
        // What covers the screen, a dialog or the busy box, may take the first tap.
        ASSERT_TRUE(QTest::qWaitFor([this] {
            if (!window().actionSheet())
                tap(item("_moreButton"));
            return window().actionSheet() != nullptr;
        }));
        choose(entry);
    }
    /// As a person who drags a file over the window and lets it go.
    bool dropOnWindow(const QMimeData &data)
    {
        QDragEnterEvent enter({160, 200}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &enter);
        QDropEvent drop({160, 200}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &drop);
        QDragLeaveEvent leave; // or the next one would be taken for the same
        QCoreApplication::sendEvent(&window(), &leave);
        return drop.isAccepted();
    }
    bool dropFile(const QString &path)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        return dropOnWindow(data);
    }
    QString foreignTheme()
    {
        PropertyDictionary info;
        info.setValue("name", "Foreign");
        info.setValue("plain", "#123456FF");
        info.setValue("strange", "kept");
        put(_folder.filePath("given/Foreign/Info.plist"), PropertyList::writeDictionary(info));
        return _folder.filePath("given/Foreign");
    }
    QString colorOf(const QString &kept)
    {
        return library()->read(kept).contents->info.find("plain")->toString();
    }
    QString problem() { return part("problem")->property("text").toString(); }
};
} // namespace

TEST_F(ThemeDeskTest, TheChoicesAreKeptUnderANameThatIsAskedFor)
{
    root().document().setColor(0, "#010203FF");
    key(Qt::Key_K, Qt::ControlModifier);
    ASSERT_TRUE(page<NameController>());
    key(Qt::Key_Return);
    EXPECT_FALSE(problem().isEmpty()); // no name is none
    type("Mine");
    EXPECT_TRUE(problem().isEmpty());
    key(Qt::Key_Return);
    ASSERT_TRUE(waitForNoPage());
    EXPECT_EQ(keptNames(), QStringList{"Mine"});
    EXPECT_EQ(colorOf("Mine"), "#010203FF");
    EXPECT_TRUE(waitForStrip("Mine"));
    EXPECT_EQ(window().title(), u"Mine \u2013 Tintloom*");

    // It proposes the theme that is edited, which is taken, and lets choose what to do.
    root().document().setColor(0, "#040506FF");
    more("Keep Theme\u2026");
    tap(part("accept"));
    ASSERT_TRUE(waitForPart("replace"));
    EXPECT_EQ(colorOf("Mine"), "#010203FF");
    tap(part("freeName"));
    ASSERT_TRUE(waitForNoPage());
    EXPECT_EQ(keptNames(), (QStringList{"Mine", "Mine 2"}));
    EXPECT_EQ(colorOf("Mine 2"), "#040506FF");

    root().document().setColor(0, "#0A0B0CFF");
    more("Keep Theme\u2026");
    tap(part("accept"));
    ASSERT_TRUE(waitForPart("replace"));
    key(Qt::Key_End);
    key(Qt::Key_Backspace); // another name, so that is no answer any more
    EXPECT_FALSE(part("replace")->isVisible());
    type("2");
    tap(part("accept"));
    ASSERT_TRUE(waitForPart("replace"));
    root().document().setColor(0, "#070809FF"); // the page keeps what was chosen when it came up
    tap(part("replace"));
    ASSERT_TRUE(waitForNoPage());
    EXPECT_EQ(keptNames(), (QStringList{"Mine", "Mine 2"}));
    EXPECT_EQ(colorOf("Mine"), "#010203FF");
    EXPECT_EQ(colorOf("Mine 2"), "#0A0B0CFF");

    key(Qt::Key_K, Qt::ControlModifier);
    key(Qt::Key_Escape);
    ASSERT_TRUE(waitForNoPage());
    EXPECT_EQ(keptNames(), (QStringList{"Mine", "Mine 2"}));
}

TEST_F(ThemeDeskTest, WhatIsDroppedIsShownAndChangesNothingUntilItIsKept)
{
    EXPECT_FALSE(dropOnWindow(QMimeData())); // nothing that could be a theme
    ASSERT_TRUE(dropFile(foreignTheme()));
    ASSERT_TRUE(waitForPage<OpenController>());
    EXPECT_EQ(part("name")->property("text"), "Foreign");
    EXPECT_TRUE(part("remarks")->property("text").toString().contains("strange"));
    EXPECT_FALSE(dropFile(foreignTheme())); // one at a time
    tap(part("cancel"));
    ASSERT_TRUE(waitForNoPage());
    EXPECT_TRUE(keptNames().isEmpty());
    EXPECT_FALSE(QFileInfo::exists(_packageRoot));

    ASSERT_TRUE(dropFile(foreignTheme()));
    ASSERT_TRUE(waitForPage<OpenController>());
    tap(part("keep"));
    ASSERT_TRUE(waitForNoPage());
    EXPECT_EQ(keptNames(), QStringList{"Foreign"});
    EXPECT_EQ(library()->read("Foreign").contents->info.find("strange")->toString(), "kept");
    EXPECT_EQ(root().document().record(0).color, "#111111FF");

    // A second one of that name takes no place unasked.
    ASSERT_TRUE(dropFile(foreignTheme()));
    ASSERT_TRUE(waitForPage<OpenController>());
    EXPECT_EQ(part("name")->property("text"), "Foreign 2");
    root().document().setColor(0, "#ABCDEFFF");
    tap(part("keepAndEdit"));
    ASSERT_TRUE(waitForAlert()); // for there is something unsaved
    answer(0);
    EXPECT_EQ(root().document().record(0).color, "#ABCDEFFF");
    EXPECT_EQ(keptNames(), (QStringList{"Foreign", "Foreign 2"}));
}

TEST_F(ThemeDeskTest, ACopiedTextIsOpenedAndEdited)
{
    PropertyDictionary info;
    info.setValue("plain", "#0A0B0CFF");
    QGuiApplication::clipboard()->setText("nothing of ours");
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(overlays().isLoading());
    QGuiApplication::clipboard()->setText("Look: " + ShareText::write(info, "Sent"));
    tap(item("_moreButton"));
    EXPECT_TRUE(window().actionSheet()->buttonTitles().contains("Open Copied Theme"));
    choose("Cancel");
    key(Qt::Key_V, Qt::ControlModifier);
    ASSERT_TRUE(waitForPage<OpenController>());
    tap(part("keepAndEdit"));
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return root().document().record(0).color == "#0A0B0CFF"; }));
    EXPECT_EQ(window().title(), u"Sent \u2013 Tintloom");
    EXPECT_FALSE(root().document().hasUnsavedChanges() || root().document().canUndo());

    QGuiApplication::clipboard()->setText("tintloom:1:AAAA");
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(waitForStrip("cannot be opened"));
    EXPECT_FALSE(window().presentedViewController());
}

TEST_F(ThemeDeskTest, AFileGivenAtTheStartIsShownWhenTheWindowIsUp)
{
    start(AppDelegate::Start{.open = foreignTheme()});
    ASSERT_TRUE(waitForPage<OpenController>());
    start(AppDelegate::Start{.root = AppDelegate::Root::Catalogue, .open = foreignTheme()});
    ASSERT_TRUE(waitForPage<OpenController>());
    start(AppDelegate::Start{.open = _folder.filePath("none")});
    EXPECT_TRUE(waitForStrip("cannot be opened"));
}

TEST_F(ThemeDeskTest, TheSharePageSaysFirstWhatDoesNotComeAlong)
{
    more("Share\u2026");
    ASSERT_TRUE(waitForPage<ShareController>());
    const QString text = page<ShareController>()->text();
    EXPECT_EQ(ShareText::read(text).theme->info.find("plain")->toString(), "#111111FF");
    EXPECT_TRUE(page<ShareController>()->loss().isEmpty());
    EXPECT_FALSE(page<ShareController>()->code().isNull());
    // At an arm's length a scanner wants some 10 cm: most of the phone's width.
    EXPECT_GE(part("code")->width(), 280.0);
    tap(part("copy"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
    key(Qt::Key_Escape);
    ASSERT_TRUE(waitForNoPage());

    PackageContents contents;
    contents.info.setValue("plain", "#111111FF");
    contents.files["sounds/ping.caf"] = "ping";
    ASSERT_TRUE(library()->keep(contents, "Loud", ThemeLibrary::IfTaken::Refuse).isDone());
    ThemeDesk &desk = root().themes()->desk();
    desk.share(desk.packageOf(QString("Loud")));
    ASSERT_TRUE(waitForPage<ShareController>());
    EXPECT_TRUE(part("loss")->property("text").toString().contains("sounds/ping.caf"));
    EXPECT_LT(sceneFrame(part("loss")).bottom(), sceneFrame(part("text")).top());
}

// Where the desktop has none of its own; a stage is hardly wider than half of what Qt's is made
// for.
TEST_F(ThemeDeskTest, TheFileDialogFitsAPhoneAndTakesAPropertyList)
{
    const auto dialogPart = [this](const char *id) {
        std::vector<QQuickItem *> items{window().contentItem()};
        while (!items.empty()) {
            QQuickItem *item = items.back();
            items.pop_back();
            if (item->objectName() == "fileDialogListView")
                return qobject_cast<QQuickItem *>(qmlContext(item)->objectForName(id));
            std::ranges::copy(item->childItems(), std::back_inserter(items));
        }
        return static_cast<QQuickItem *>(nullptr);
    };
    more("Open\u2026");
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialogPart("buttonBox") != nullptr; }));
    const QRectF filter = sceneFrame(dialogPart("nameFiltersComboBox"));
    const QRectF buttons = sceneFrame(dialogPart("buttonBox"));
    EXPECT_GT(filter.width(), window().width() / 2);
    EXPECT_GE(buttons.top(), filter.bottom());
    EXPECT_TRUE(QRectF({}, window().size()).contains(buttons));
    root().themes()->desk().findChild<FilePanel *>()->accept(
        QUrl::fromLocalFile(foreignTheme() + "/Info.plist"), 0);
    ASSERT_TRUE(waitForPage<OpenController>());
    EXPECT_EQ(part("name")->property("text"), "Foreign");
}

TEST_F(ThemeDeskTest, AnExportIsWrittenWhereItWasAskedForAndOverwritesNothingUnasked)
{
    const QString file = _folder.filePath("out.tintloom");
    const auto exportTo = [&](const QString &path, int filter) {
        more("Export\u2026");
        auto *panel = root().themes()->desk().findChild<FilePanel *>();
        ASSERT_TRUE(panel);
        ASSERT_TRUE(panel->findChild<QObject *>()) << "no dialog";
        panel->accept(QUrl::fromLocalFile(path), filter);
        ASSERT_TRUE(
            QTest::qWaitFor([this] { return !root().themes()->desk().findChild<FilePanel *>(); }));
        settle();
    };
    exportTo(_folder.filePath("out"), 0);
    ASSERT_TRUE(waitForStrip("out.tintloom"));
    EXPECT_EQ(overlays().quietActions(), QStringList{"Show Folder"});
    const QByteArray first = contents(file);
    EXPECT_FALSE(first.isEmpty());

    root().document().setColor(0, "#010203FF");
    exportTo(file, 0);
    ASSERT_TRUE(waitForAlert());
    EXPECT_EQ(contents(file), first);
    answer(1);
    // The strip of the first one may be there still.
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return contents(file) != first && !overlays().isLoading(); }));
    settle();

    exportTo(_folder.filePath("folder"), 3);
    ASSERT_TRUE(waitForStrip("/folder"));
    EXPECT_TRUE(QFileInfo::exists(_folder.filePath("folder/Info.plist")));
}
