#include "editor/CustomViewController.h"

#include "platform/NSFileManager.h"
#include "platform/PropertyList.h"
#include "support/EditorFixture.h"
#include "theme/WorkingCopyKeeper.h"
#include "views/CustomTableCell.h"

#include <QAccessible>
#include <QFileInfo>

#include <atomic>
#include <semaphore>

namespace
{
class CustomViewControllerTest : public EditorFixture
{
protected:
    CustomTableCell *cell(NSIndexPath indexPath)
    {
        return qobject_cast<CustomTableCell *>(table().cellForRowAtIndexPath(indexPath));
    }
    std::optional<PropertyDictionary> packageInfo() const
    {
        return PropertyList::readDictionary(
            NSFileManager::contentsAtPath(folders().theme.packageInfo()).bytes);
    }
};

const QJsonObject yesOrNo{{"No", false}, {"Yes", true}};
} // namespace

TEST_F(CustomViewControllerTest, StandsAtItsFramesInTheWindow)
{
    writeDocument(manyElements(30));
    for (const QSize size : {QSize(320, 568), QSize(320, 480), QSize(900, 700)}) {
        SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height());
        start(size);
        EXPECT_TRUE(navigation().isNavigationBarHidden());
        const EditorLayout layout = EditorLayout::make(size, 44.0, false);
        EXPECT_EQ(sceneFrame(item("_bgView")), layout.bgView);
        EXPECT_EQ(sceneFrame(item("_tableView")), layout.tableView);
        EXPECT_EQ(sceneFrame(item("_hiddenView")), layout.hiddenView);
        EXPECT_EQ(sceneFrame(item("_appVersion")), layout.hiddenView);
        EXPECT_EQ(sceneFrame(item("_topView")), layout.topView);
        EXPECT_EQ(sceneFrame(item("_bottomView")), layout.bottomView);
        EXPECT_EQ(sceneFrame(item("_saveButton")),
                  layout.saveButton.translated(layout.bottomView.topLeft()));
        EXPECT_EQ(sceneFrame(table().headerViewForSection(0)), QRectF(0, 20, size.width(), 28));
        EXPECT_EQ(sceneFrame(cell({0, 0})), QRectF(0, 48, size.width(), 50));
    }
    window().resize(400, 600);
    ASSERT_TRUE(QTest::qWaitFor([this] { return editor().view()->height() == 600; }));
    EXPECT_EQ(sceneFrame(item("_bottomView")), QRectF(0, 550, 400, 50));
    EXPECT_EQ(UIScreen::mainScreen().size(), QSizeF(400, 600));
}

TEST_F(CustomViewControllerTest, RowsShowColoursAndOptions)
{
    const QString tooBig = "#123456789";
    const struct {
        QJsonObject element;
        QColor background;
        QString caption;
        QColor text;
    } cases[] = {
        {element("dark", "A", "#123456FF"), QColor("#123456"), "#123456FF", Qt::white},
        {element("short", "A", "#F00"), QColor("#FF0000"), "#F00", Qt::white},
        {element("thin white", "A", "#FFFFFF40"), QColor(255, 255, 255, 64), "#FFFFFF40",
         Qt::black},
        {element("thinner black", "A", "#00000030"), QColor(0, 0, 0, 48), "#00000030", Qt::black},
        {element("overflow", "A", tooBig), Qt::white, tooBig, Qt::black},
        {element("removed", "A", ""), Qt::white, "", Qt::black},
        {element("none", "A"), Qt::white, "", Qt::black},
        {element("chosen", "A", {}, yesOrNo, true), Qt::white, "Yes", Qt::black},
        {element("another type", "A", {}, yesOrNo, 1), Qt::white, "", Qt::black},
        {element("nothing chosen", "A", {}, yesOrNo), Qt::white, "", Qt::black},
    };
    QJsonArray document;
    for (const auto &c : cases)
        document.append(c.element);
    writeDocument(document);
    start();
    for (int row = 0; row < int(std::size(cases)); ++row) {
        const auto &c = cases[row];
        SCOPED_TRACE(c.element["key"].toString().toStdString());
        table().setContentOffset(row * 50.0); // reused cells must not keep what they showed before
        table().layoutIfNeeded();
        ASSERT_TRUE(cell({0, row}));
        EXPECT_EQ(cell({0, row})->name()->text(), c.element["name"].toString());
        EXPECT_EQ(cell({0, row})->description()->text(), c.element["description"].toString());
        EXPECT_EQ(cell({0, row})->backgroundColor().rgba(), c.background.rgba());
        EXPECT_EQ(cell({0, row})->colorLabel()->text(), c.caption);
        for (UILabel *label :
             {cell({0, row})->name(), cell({0, row})->description(), cell({0, row})->colorLabel()})
            EXPECT_EQ(label->textColor(), c.text);
    }
}

TEST_F(CustomViewControllerTest, SectionsStandInAlphabeticalOrderUnderGreenHeaders)
{
    writeDocument(QJsonArray{element("1", "beta"), element("2", "Gamma"), element("3", "Alpha"),
                             element("4", "gamma"), element("5", "")});
    start();
    QStringList titles;
    for (int section = 0; section < editor().numberOfSectionsInTableView(); ++section)
        titles += editor().titleForHeaderInSection(section);
    EXPECT_EQ(titles, (QStringList{"", "Alpha", "beta", "Gamma", "gamma"}));
    const UITableViewHeader *header = table().headerViewForSection(1);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->tintColor().rgb(), qRgb(0, 214, 68));
    EXPECT_EQ(const_cast<UITableViewHeader *>(header)->textLabel()->textColor(), QColor(Qt::white));
    // and on the screen itself
    const QImage picture = grab();
    EXPECT_EQ(picture.pixelColor(300, 34).rgb(), qRgb(0, 214, 68));
}

TEST_F(CustomViewControllerTest, AScreenfulOfCellsServesTenThousandRows)
{
    writeDocument(manyElements(10000));
    start();
    for (double offset = -20.0; offset < table().contentHeight() - 518.0; offset += 4321.0) {
        table().setContentOffset(offset);
        table().layoutIfNeeded();
    }
    EXPECT_LE(table().numberOfCells(), 3 * 568 / 50);
}

TEST_F(CustomViewControllerTest, FingersWheelsAndKeysScroll)
{
    writeDocument(manyElements(100));
    start();
    const auto offset = [this] { return table().contentOffset(); };
    const auto waitUntilAbove = [&](double least) {
        return QTest::qWaitFor([&] { return offset() > least; });
    };
    static QPointingDevice *finger = QTest::createTouchDevice(); // Qt keeps it for good
    QTest::touchEvent(&window(), finger).press(1, QPoint(100, 400));
    for (int y = 390; y >= 200; y -= 10)
        QTest::touchEvent(&window(), finger).move(1, QPoint(100, y));
    QTest::touchEvent(&window(), finger).release(1, QPoint(100, 200));
    EXPECT_TRUE(waitUntilAbove(50.0));

    start();
    QWheelEvent wheel(QPointF(100, 300), window().mapToGlobal(QPointF(100, 300)), {}, {0, -240},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window(), &wheel);
    EXPECT_TRUE(waitUntilAbove(0.0));

    start();
    press(Qt::Key_PageDown);
    press(Qt::Key_PageDown);
    press(Qt::Key_PageDown);
    EXPECT_TRUE(waitUntilAbove(300.0));
    EXPECT_TRUE(cell({0, 27})->isFocused()); // three pages of 9 rows from the first
    press(Qt::Key_Tab);
    EXPECT_FALSE(cell({0, 27})->isFocused());
    press(Qt::Key_Space); // on the Save button
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

TEST_F(CustomViewControllerTest, ATapOnSaveWritesAPackageThatTheNextStartRestores)
{
    writeDocument(QJsonArray{element("plain", "A", "#F00"), element("removed", "A", ""),
                             element("choice", "A", {}, yesOrNo, true),
                             element("list-background-image", "B", "#20406080"),
                             element("unread-indicator-image", "B", "#FF8000FF")});
    start();
    tapSave();
    ASSERT_TRUE(waitForAlert());
    EXPECT_EQ(window().alert()->title(), "Saved");
    EXPECT_EQ(window().alert()->message(),
              "Your theme has been saved. Check biteSMS for \"Tintloom\" under themes then select "
              "\"Apply Theme\".");
    EXPECT_EQ(window().alert()->buttonTitles(), QStringList{"OK"});
    EXPECT_FALSE(editor().isLoading());
    EXPECT_TRUE(editor().notice().isEmpty());

    auto saved = packageInfo();
    ASSERT_TRUE(saved);
    EXPECT_EQ(*saved->find("plain"), "#F00");
    EXPECT_EQ(*saved->find("choice"), true);
    EXPECT_EQ(QImage(folders().theme.listBackground()).size(), QSize(1280, 2272));
    const QImage indicator = QImage::fromData(
        NSFileManager::contentsAtPath(folders().theme.unreadIndicator()).bytes, "JPEG");
    EXPECT_EQ(indicator.size(), QSize(48, 48));

    // What the user has saved wins over a new default at the next start.
    writeDocument(QJsonArray{element("plain", "A", "#00F"), element("removed", "A", "#0F0"),
                             element("choice", "A", {}, yesOrNo, false)});
    start();
    EXPECT_EQ(cell({0, 0})->colorLabel()->text(), "#F00");
    EXPECT_EQ(cell({0, 1})->colorLabel()->text(), "");
    EXPECT_EQ(cell({0, 2})->colorLabel()->text(), "Yes");
}

TEST_F(CustomViewControllerTest, NothingBelowALoaderOrAnAlertTakesInput)
{
    writeDocument(manyElements(30));
    start();
    const auto saves = std::make_shared<std::atomic<int>>(0);
    const auto gate = std::make_shared<std::binary_semaphore>(0);
    NSFileManager::setFaultHook(
        [=, first = true](NSFileManager::Operation operation, const QString &path) mutable {
            if (operation == NSFileManager::Operation::Write && path.endsWith(".jpg"))
                ++*saves;
            if (std::exchange(first, false))
                gate->acquire(); // the build step waits at its first operation
            return std::error_code();
        });
    tapSave();
    EXPECT_TRUE(editor().isLoading());
    EXPECT_EQ(sceneFrame(item("_loadingView")), QRectF(85, 219, 150, 130));
    EXPECT_FALSE(table().isScrollEnabled());
    EXPECT_FALSE(table().allowsSelection());
    tapSave();
    press(Qt::Key_S, Qt::ControlModifier);
    press(Qt::Key_End);
    EXPECT_EQ(table().contentOffset(), -20.0);
    gate->release();
    ASSERT_TRUE(waitForAlert());
    EXPECT_TRUE(table().isScrollEnabled());
    EXPECT_TRUE(table().allowsSelection());
    settle();
    EXPECT_FALSE(item("_loadingView"));

    tapSave();
    press(Qt::Key_S, Qt::ControlModifier);
    press(Qt::Key_End);
    EXPECT_EQ(table().contentOffset(), -20.0);
    EXPECT_EQ(*saves, 1);
    ASSERT_TRUE(window().alert());

    press(Qt::Key_Escape);
    EXPECT_FALSE(window().alert());
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(waitForAlert());
    EXPECT_EQ(*saves, 2);
    press(Qt::Key_Return);
    EXPECT_FALSE(window().alert());
    press(Qt::Key_End);
    EXPECT_GT(table().contentOffset(), 500.0);
    NSFileManager::setFaultHook({});
}

TEST_F(CustomViewControllerTest, SavesNothingWhileAnotherProgramIsAtTheFiles)
{
    writeDocument(manyElements(3));
    start();
    WorkingCopyKeeper::setPatience(std::chrono::milliseconds(0));
    auto other = WorkingCopyKeeper::open(folders().theme);
    ASSERT_TRUE(other->begin());
    tapSave();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !editor().isLoading(); }));
    EXPECT_FALSE(window().alert());
    EXPECT_TRUE(editor().notice().startsWith("Nothing was saved.\nanother Tintloom is busy"));
    EXPECT_FALSE(QFile::exists(folders().theme.packageFolder()));
    EXPECT_EQ(cell({0, 0})->colorLabel()->text(), "#336699FF");

    other.reset();
    WorkingCopyKeeper::setPatience(std::chrono::milliseconds(5000));
    tapSave();
    ASSERT_TRUE(waitForAlert());
    EXPECT_TRUE(editor().notice().isEmpty());
    EXPECT_TRUE(QFile::exists(folders().theme.workingCopy()));
}

TEST_F(CustomViewControllerTest, SaysWhatItCouldNotWriteUntilToldThatItIsRead)
{
    writeDocument(manyElements(3));
    _packageRoot = _folder.filePath("initialDatasource.txt/below-a-file");
    start();
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(waitForAlert());
    EXPECT_EQ(window().alert()->title(), "Saved");
    EXPECT_FALSE(editor().isLoading());
    press(Qt::Key_Escape);
    for (const QString &path : {folders().theme.packageInfo(), folders().theme.listBackground(),
                                folders().theme.unreadIndicator()})
        EXPECT_TRUE(editor().notice().contains(path + ": Not a directory"))
            << editor().notice().toStdString();
    EXPECT_FALSE(editor().notice().contains(folders().theme.workingCopy()));

    QQuickItem *strip = item("notice");
    ASSERT_TRUE(strip);
    EXPECT_EQ(sceneFrame(strip).bottom(), 518.0);
    tap(sceneFrame(strip).topRight() + QPointF(-22, 22));
    EXPECT_FALSE(item("notice"));
}

TEST_F(CustomViewControllerTest, ClosingTheWindowWaitsForTheSave)
{
    useShippedDocument();
    start();
    tapSave();
    stop(); // long before the files are there
    EXPECT_TRUE(packageInfo());
    EXPECT_TRUE(QFileInfo::exists(folders().theme.workingCopy()));
}

TEST_F(CustomViewControllerTest, AMalformedDocumentShowsNothingAndSavesNothing)
{
    writeDocument("[{");
    ASSERT_FALSE(NSFileManager::createDirectoryAtPath(folders().theme.workingCopyFolder()));
    ASSERT_FALSE(NSFileManager::writeToFile(folders().theme.workingCopy(), "precious"));
    start();
    EXPECT_EQ(editor().numberOfSectionsInTableView(), 0);
    tapSave();
    EXPECT_FALSE(editor().isLoading());
    EXPECT_TRUE(item("notice"));
    EXPECT_EQ(NSFileManager::contentsAtPath(folders().theme.workingCopy()).bytes, "precious");
    EXPECT_FALSE(QFileInfo::exists(_packageRoot));
}

TEST_F(CustomViewControllerTest, OpenedFromTheCatalogueItStandsUnderTheBarAndReportsSaves)
{
    struct Catalogue : CustomViewDelegate {
        void setCustomTheme() override
        {
            ++calls;
            thread = std::this_thread::get_id();
        }
        std::atomic<int> calls = 0;
        std::thread::id thread;
    };
    writeDocument(manyElements(30));
    start();
    auto opened = CustomViewController::initFromMainView(folders());
    const auto catalogue = std::make_shared<Catalogue>();
    opened->setDelegate(catalogue);
    navigation().pushViewController(opened, false);
    const std::weak_ptr<CustomViewController> watch = opened;
    opened.reset();
    settle();
    EXPECT_FALSE(navigation().isNavigationBarHidden());
    EXPECT_EQ(sceneFrame(item("_tableView")), QRectF(0, 64, 320, 504));
    EXPECT_EQ(sceneFrame(cell({0, 0})), QRectF(0, 64 + 28, 320, 50));
    EXPECT_FALSE(item("_hiddenView")->isVisible());
    EXPECT_FALSE(item("_topView")->isVisible());

    tapSave();
    ASSERT_TRUE(waitForAlert());
    EXPECT_EQ(catalogue->calls, 1);
    EXPECT_NE(catalogue->thread, std::this_thread::get_id());
    press(Qt::Key_Return);

    navigation().popViewController(false);
    EXPECT_TRUE(watch.expired());
    EXPECT_TRUE(navigation().isNavigationBarHidden());
}

TEST_F(CustomViewControllerTest, TellsAssistiveToolsWhatItShows)
{
    useShippedDocument();
    start();
    const auto text = [](QObject *object, QAccessible::Text kind) {
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(object);
        return interface ? interface->text(kind) : QString();
    };
    CustomTableCell *row = cell({0, 0});
    EXPECT_EQ(text(row, QAccessible::Name), row->name()->text());
    EXPECT_TRUE(text(row, QAccessible::Description).contains(row->description()->text()));
    EXPECT_TRUE(text(row, QAccessible::Description).contains(row->colorLabel()->text()));
    EXPECT_EQ(text(table().headerViewForSection(0), QAccessible::Name),
              editor().titleForHeaderInSection(0));
    QQuickItem *button = item("_saveButton");
    EXPECT_EQ(text(button, QAccessible::Name), "Save Theme");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(button)->role(), QAccessible::Button);
}
