// The program itself under real pointer and key events. What to press is found by the geometry that
// the layouts promise, what came of it by looking at the screen and at the disk.
#include "chooser/ChooserLayout.h"
#include "editor/EditorLayout.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/PropertyList.h"
#include "theme/ThemeLocations.h"

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace
{
constexpr QRgb before = qRgb(0x33, 0x66, 0x99);
constexpr QRgb after = qRgb(0xFF, 0x80, 0x00);

// A header, a colour row, a header, a choice row; from the content inset on.
constexpr QPointF colorRow(300.0, 20.0 + 28.0 + 40.0);
constexpr QPointF choiceRow(300.0, 20.0 + 28.0 + 50.0 + 28.0 + 40.0);

const QByteArray document = R"([
    {"key": "list-background-image", "name": "List", "description": "", "color": "#336699FF",
     "options": null, "value": null, "section": "A"},
    {"key": "corners", "name": "Corners", "description": "", "color": null,
     "options": {"Hard": "hard", "Soft": "soft"}, "value": "hard", "section": "B"}
])";

class EndToEndTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_FALSE(NSFileManager::createDirectoryAtPath(_folder.path()));
        ASSERT_FALSE(
            NSFileManager::writeToFile(_folder.filePath("initialDatasource.txt"), document));
    }
    void TearDown() override { stop(); }

    QStringList folders() const
    {
        return {"--resources",       _folder.path(),   "--documents",
                locations.documents, "--package-root", locations.packageRoot};
    }
    /// The program with its first frame on the screen.
    void start(QRgb rowColor)
    {
        _program.start(TINTLOOM_EXECUTABLE, folders());
        ASSERT_TRUE(_program.waitForStarted());
        const QByteArray place = xdotool({"search", "--sync", "--onlyvisible", "--name",
                                          "^Tintloom$", "getwindowgeometry", "--shell"});
        for (const QByteArray &line : place.split('\n')) {
            if (line.startsWith("X="))
                _origin.setX(line.mid(2).toInt());
            if (line.startsWith("Y="))
                _origin.setY(line.mid(2).toInt());
        }
        ASSERT_TRUE(waitForColor(colorRow, rowColor));
    }
    void stop()
    {
        _program.terminate();
        _program.waitForFinished();
    }

    static QByteArray xdotool(const QStringList &arguments)
    {
        QProcess process;
        process.start("xdotool", arguments);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 0) << arguments.join(' ').toStdString();
        return process.readAllStandardOutput();
    }
    void moveTo(QPointF point)
    {
        const QPoint place = (point + _origin).toPoint();
        xdotool({"mousemove", QString::number(place.x()), QString::number(place.y())});
    }
    void click(QPointF point)
    {
        moveTo(point);
        xdotool({"click", "1"});
    }
    QRgb colorAt(QPointF point) const
    {
        const QPoint place = (point + _origin).toPoint();
        return QGuiApplication::primaryScreen()
            ->grabWindow(0, place.x(), place.y(), 1, 1)
            .toImage()
            .pixel(0, 0);
    }
    /// What the program logs has come to that.
    bool waitForLog(const QByteArray &line)
    {
        return QTest::qWaitFor(
            [&] { return (_log += _program.readAllStandardError()).contains(line); }, 20'000);
    }
    bool waitForColor(QPointF point, QRgb color)
    {
        const bool came = QTest::qWaitFor([&] { return colorAt(point) == color; }, 20'000);
        EXPECT_TRUE(came) << "at " << point.x() << ", " << point.y() << " stands "
                          << QColor(colorAt(point)).name().toStdString() << " instead of "
                          << QColor(color).name().toStdString();
        return came;
    }

    QTemporaryDir _folder;
    const ThemeLocations locations{_folder.filePath("root"), _folder.filePath("documents")};

private:
    QProcess _program;
    QPointF _origin;
    QByteArray _log;
};
} // namespace

TEST_F(EndToEndTest, FromTheTapToThePackageAndBack)
{
    start(before);
    const ChooserLayout chooser = ChooserLayout::make(320.0, 568.0);
    const QPointF patch = chooser.colorPatch.topLeft() + QPointF(10.0, 10.0);
    const QPointF beside = chooser.cancelButton.topLeft() + QPointF(-3.0, -10.0);

    click(colorRow);
    ASSERT_TRUE(waitForColor(patch, before));
    ASSERT_TRUE(waitForColor(beside, qRgb(255, 255, 255)));

    // To the rim on the right: red, as bright as before.
    moveTo(chooser.colorPicker.center());
    xdotool({"mousedown", "1"});
    moveTo(chooser.colorPicker.center() + QPointF(100.0, 3.0));
    moveTo(chooser.colorPicker.center() + QPointF(144.0, 0.0));
    EXPECT_TRUE(waitForColor(patch, qRgb(0x99, 0, 0)));
    EXPECT_TRUE(waitForColor(chooser.colorPicker.center(), qRgb(0x99, 0x99, 0x99)));
    xdotool({"mouseup", "1"});

    click(chooser.colorPatch.center());
    xdotool({"key", "ctrl+a"});
    xdotool({"type", "ff8000ff"});
    xdotool({"key", "Return"});
    ASSERT_TRUE(waitForColor(patch, after));

    click(chooser.saveButton.center());
    ASSERT_TRUE(waitForLog("-[ColorPickerViewController dealloc]")); // it has faded
    ASSERT_TRUE(waitForColor(colorRow, after));

    const QRgb header = qRgb(0, 214, 68);
    const QPointF inHeader(300.0, 30.0);
    click(choiceRow);
    ASSERT_TRUE(QTest::qWaitFor([&] { return colorAt(inHeader) != header; }, 20'000)); // the sheet
    click({160.0, 568.0 - 8.0 - 44.0 * 1.5}); // "Soft", above "Cancel"
    ASSERT_TRUE(waitForColor(inHeader, header));

    const EditorLayout editor = EditorLayout::make({320.0, 568.0}, 44.0, false);
    click(editor.saveButton.translated(editor.bottomView.topLeft()).center());
    ASSERT_TRUE(QTest::qWaitFor([&] { return colorAt(inHeader) != header; }, 20'000)); // the alert
    xdotool({"key", "Return"});
    ASSERT_TRUE(waitForColor(inHeader, header));

    const auto info =
        PropertyList::readDictionary(NSFileManager::contentsAtPath(locations.packageInfo()).bytes);
    ASSERT_TRUE(info);
    ASSERT_TRUE(info->find("list-background-image") && info->find("corners"));
    EXPECT_EQ(info->find("list-background-image")->toString(), "#FF8000FF");
    EXPECT_EQ(info->find("corners")->toString(), "soft");
    const QColor background = QImage(locations.listBackground()).pixelColor(600, 600);
    EXPECT_NEAR(background.red(), 0xFF, 3);
    EXPECT_NEAR(background.green(), 0x80, 3);
    EXPECT_NEAR(background.blue(), 0x00, 3);

    stop();
    start(after);
    QProcess list;
    list.start(TINTLOOM_EXECUTABLE, QStringList{"list"} + folders());
    ASSERT_TRUE(list.waitForFinished());
    EXPECT_TRUE(list.readAllStandardOutput().contains("Soft"));
}
