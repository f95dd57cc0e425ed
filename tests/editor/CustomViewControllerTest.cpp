#include "editor/CustomViewController.h"

#include "platform/foundation/PropertyList.h"
#include "support/EditorFixture.h"
#include "theme/WorkingCopyKeeper.h"

#include <QAccessible>
#include <QThread>

#include <atomic>
#include <semaphore>

namespace
{
using CustomViewControllerTest = EditorFixture;

const QJsonObject yesOrNo{{"No", false}, {"Yes", true}};

struct Told : CustomViewDelegate {
    void setCustomTheme() override { ++saves; }
    std::atomic<int> saves = 0;
};
} // namespace

TEST_F(CustomViewControllerTest, StandsAtItsFramesUnderGreenHeaders)
{
    writeDocument(manyElements(30));
    const struct {
        QSize size;
        QRectF bottomView, saveButton, loadingView;
    } cases[] = {
        {{320, 480}, {0, 430, 320, 50}, {80, 435, 180, 40}, {85, 175, 150, 130}},
        {{1001, 568}, {0, 518, 1001, 50}, {250.25, 523, 180, 40}, {425.5, 219, 150, 130}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.size.width());
        start(c.size);
        const double w = c.size.width();
        EXPECT_TRUE(navigation().isNavigationBarHidden());
        for (const char *whole : {"_bgView", "_tableView"})
            EXPECT_EQ(sceneFrame(item(whole)), QRectF(QPointF(), c.size));
        for (const char *hidden : {"_hiddenView", "_appVersion"})
            EXPECT_EQ(sceneFrame(item(hidden)), QRectF(0, 20, w, 20));
        EXPECT_EQ(sceneFrame(item("_topView")), QRectF(0, 0, w, 20));
        EXPECT_EQ(sceneFrame(item("_bottomView")), c.bottomView);
        EXPECT_EQ(sceneFrame(item("_saveButton")), c.saveButton);
        EXPECT_EQ(sceneFrame(table().headerViewForSection(0)), QRectF(0, 20, w, 28));
        EXPECT_EQ(sceneFrame(cell({0, 0})), QRectF(0, 48, w, 50));
        editor().showLoaderWithLabel("Busy");
        EXPECT_EQ(sceneFrame(item("_loadingView")), c.loadingView);
        const QQuickItem *label = item("_loadingLabel");
        EXPECT_EQ(label->mapRectToScene({{}, label->size()}),
                  QRectF(c.loadingView.topLeft(), QSizeF(150, 80)));
        editor().removeLoader();
    }
    EXPECT_EQ(grab().pixelColor(300, 34).rgb(), qRgb(0, 214, 68));
    EXPECT_EQ(table().headerViewForSection(0)->textLabel()->textColor(), QColor(Qt::white));
    window().resize(400, 600);
    ASSERT_TRUE(QTest::qWaitFor([this] { return editor().view()->height() == 600; }));
    EXPECT_EQ(sceneFrame(item("_bottomView")), QRectF(0, 550, 400, 50));
    EXPECT_EQ(UIScreen::mainScreen().size(), QSizeF(400, 600));
}

TEST_F(CustomViewControllerTest, RowsShowColoursAndOptions)
{
    const std::tuple<QJsonObject, QColor, QString, QColor> cases[] = {
        {element("dark", "A", "#123456FF"), QColor("#123456"), "#123456FF", Qt::white},
        {element("short", "A", "#F00"), QColor("#FF0000"), "#F00", Qt::white},
        {element("thin black", "A", "#00000030"), QColor(0, 0, 0, 48), "#00000030", Qt::black},
        {element("none", "A"), Qt::white, "", Qt::black},
        {element("chosen", "A", {}, yesOrNo, true), Qt::white, "Yes", Qt::black},
        {element("nothing chosen", "A", {}, yesOrNo), Qt::white, "", Qt::black},
    };
    QJsonArray document;
    for (const auto &row : cases)
        document.append(std::get<QJsonObject>(row));
    writeDocument(document);
    start();
    for (int row = 0; row < int(std::size(cases)); ++row) {
        const auto &[source, background, caption, text] = cases[row];
        SCOPED_TRACE(source["key"].toString().toStdString());
        table().setContentOffset(row * 50.0); // reused cells must not keep what they showed before
        table().layoutIfNeeded();
        CustomTableCell *shown = cell({0, row});
        ASSERT_TRUE(shown);
        EXPECT_EQ(shown->name()->text(), source["name"].toString());
        EXPECT_EQ(shown->description()->text(), source["description"].toString());
        EXPECT_EQ(shown->backgroundColor().rgba(), background.rgba());
        EXPECT_EQ(shown->colorLabel()->text(), caption);
        for (UILabel *label : {shown->name(), shown->description(), shown->colorLabel()})
            EXPECT_EQ(label->textColor(), text);
    }
}

TEST_F(CustomViewControllerTest, FingersWheelsAndKeysScroll)
{
    writeDocument(manyElements(100));
    start();
    const auto waitUntilAbove = [this](double least) {
        return QTest::qWaitFor([=, this] { return table().contentOffset() > least; });
    };
    touch().press(1, QPoint(100, 400));
    for (int y = 390; y >= 200; y -= 10)
        touch().move(1, QPoint(100, y));
    touch().release(1, QPoint(100, 200));
    EXPECT_TRUE(waitUntilAbove(50.0));

    for (const int y : {300, 540, 10}) { // over the table, and over the bars that lie on it
        start();
        turnWheel({20, y}, -240);
        EXPECT_TRUE(waitUntilAbove(0.0)) << y;
    }

    start();
    for (int page = 0; page < 3; ++page)
        key(Qt::Key_PageDown);
    EXPECT_TRUE(waitUntilAbove(300.0));
    EXPECT_TRUE(cell({0, 27})->isFocused());          // three pages of 9 rows from the first
    EXPECT_LE(table().numberOfCells(), 2 * 568 / 50); // cells are used again
    key(Qt::Key_Tab);
    EXPECT_FALSE(cell({0, 27})->isFocused());
    key(Qt::Key_Space); // on the Save button
    EXPECT_TRUE(waitForAlert());
}

TEST_F(CustomViewControllerTest, PullingDownUncoversTheVersion)
{
    useShippedDocument();
    start();
    const auto darkPixels = [this] {
        int dark = 0;
        const QImage picture = grab();
        for (int y = 20; y < 40; ++y)
            for (int x = 100; x < 220; ++x)
                dark += qGray(picture.pixel(x, y)) < 200 && qGreen(picture.pixel(x, y)) < 200;
        return dark;
    };
    EXPECT_EQ(darkPixels(), 0); // the first header covers it
    QQuickItem *scroller = table().parentItem()->parentItem();
    scroller->setProperty("contentY", -60.0);
    EXPECT_GT(darkPixels(), 10);
}

TEST_F(CustomViewControllerTest, ATapOnSaveWritesAPackageAndSaysSo)
{
    writeDocument(manyElements(3));
    start();
    const auto told = std::make_shared<Told>();
    editor().setDelegate(told); // who hears of saves only where the catalogue has opened the editor
    const auto strays = std::make_shared<std::atomic<int>>(0);
    const FaultHookGuard guard([=](NSFileManager::Operation operation, const QString &) {
        // Files are written on the main thread.
        *strays += operation == NSFileManager::Operation::Write &&
                   QThread::currentThread() != qApp->thread();
        return std::error_code();
    });
    tapSave();
    ASSERT_TRUE(waitForAlert());
    EXPECT_EQ(window().alert()->title(), "Saved");
    EXPECT_EQ(window().alert()->message(),
              "Your theme has been saved. Check biteSMS for \"Tintloom\" under themes then select "
              "\"Apply Theme\".");
    EXPECT_EQ(window().alert()->buttonTitles(), QStringList{"OK"});
    EXPECT_EQ(*strays, 0);
    EXPECT_EQ(told->saves, 0);
    EXPECT_TRUE(editor().notice().isEmpty());
    EXPECT_EQ(QImage(folders().theme.listBackground()).size(), QSize(1280, 2272)); // for 2.0
}

TEST_F(CustomViewControllerTest, NothingBelowALoaderOrAnAlertTakesInput)
{
    writeDocument(manyElements(30));
    start();
    const auto saves = std::make_shared<std::atomic<int>>(0);
    const auto gate = std::make_shared<std::binary_semaphore>(0);
    const FaultHookGuard guard(
        [=, first = true](NSFileManager::Operation operation, const QString &path) mutable {
            if (operation == NSFileManager::Operation::Write && path.endsWith(".jpg"))
                ++*saves;
            if (std::exchange(first, false))
                gate->acquire(); // the build step waits at its first operation
            return std::error_code();
        });
    tapSave();
    EXPECT_TRUE(editor().isLoading());
    EXPECT_TRUE(item("_loadingView"));
    EXPECT_FALSE(table().isScrollEnabled() || table().allowsSelection());
    const auto expectNothingTaken = [this] {
        tapSave();
        key(Qt::Key_S, Qt::ControlModifier);
        key(Qt::Key_End);
        EXPECT_EQ(table().contentOffset(), -20.0);
    };
    expectNothingTaken();
    gate->release();
    ASSERT_TRUE(waitForAlert());
    EXPECT_TRUE(table().isScrollEnabled() && table().allowsSelection());
    settle();
    EXPECT_FALSE(item("_loadingView"));
    expectNothingTaken();
    EXPECT_EQ(*saves, 1);
    ASSERT_TRUE(window().alert());

    key(Qt::Key_Escape);
    EXPECT_FALSE(window().alert());
    key(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(waitForAlert());
    EXPECT_EQ(*saves, 2);
    key(Qt::Key_Return);
    EXPECT_FALSE(window().alert());
    key(Qt::Key_End);
    EXPECT_GT(table().contentOffset(), 500.0);
}

TEST_F(CustomViewControllerTest, SavesNothingWhileAnotherProgramIsAtTheFiles)
{
    writeDocument(manyElements(3));
    start();
    FolderLocks::setPatience(std::chrono::milliseconds(0));
    auto other = WorkingCopyKeeper::open(folders().theme);
    ASSERT_TRUE(other->begin());
    tapSave();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !editor().isLoading(); }));
    EXPECT_FALSE(window().alert());
    EXPECT_TRUE(editor().notice().startsWith("Nothing was saved.\nanother Tintloom is busy"));
    EXPECT_FALSE(QFile::exists(folders().theme.packageFolder()));

    other.reset();
    FolderLocks::setPatience(std::chrono::milliseconds(5000));
    tapSave();
    ASSERT_TRUE(waitForAlert());
    EXPECT_TRUE(editor().notice().isEmpty());
}

TEST_F(CustomViewControllerTest, ClosingTheWindowWaitsForTheSave)
{
    useShippedDocument();
    start();
    tapSave();
    stop(); // long before the files are there
    EXPECT_TRUE(PropertyList::readDictionary(contents(folders().theme.packageInfo())));
    EXPECT_TRUE(QFileInfo::exists(folders().theme.workingCopy()));
}

TEST_F(CustomViewControllerTest, AMalformedDocumentShowsNothingAndSavesNothing)
{
    writeDocument("[{");
    put(folders().theme.workingCopy(), "precious");
    start();
    EXPECT_EQ(editor().numberOfSectionsInTableView(), 0);
    tapSave();
    EXPECT_FALSE(editor().isLoading());
    EXPECT_TRUE(item("notice"));
    EXPECT_EQ(contents(folders().theme.workingCopy()), "precious");
    EXPECT_FALSE(QFileInfo::exists(_packageRoot));
}

TEST_F(CustomViewControllerTest, TellsAssistiveToolsWhatItShows)
{
    useShippedDocument();
    start();
    const auto spoken = &QAccessible::queryAccessibleInterface;
    CustomTableCell *row = cell({0, 0});
    EXPECT_EQ(spoken(row)->text(QAccessible::Name), row->name()->text());
    const QString description = spoken(row)->text(QAccessible::Description);
    EXPECT_TRUE(description.contains(row->description()->text()));
    EXPECT_TRUE(description.contains(row->colorLabel()->text()));
    EXPECT_EQ(spoken(table().headerViewForSection(0))->text(QAccessible::Name),
              editor().titleForHeaderInSection(0));
    EXPECT_EQ(spoken(item("_saveButton"))->text(QAccessible::Name), "Save Theme");
    EXPECT_EQ(spoken(item("_saveButton"))->role(), QAccessible::Button);
}
