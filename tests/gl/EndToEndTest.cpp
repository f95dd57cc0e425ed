// The program itself under real pointer and key events. What to press is found by the geometry that
// the layouts promise, what came of it by looking at the screen and at the disk.
#include "chooser/ChooserLayout.h"
#include "editor/EditorLayout.h"
#include "support/ProgramFixture.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>

namespace
{
class EndToEndTest : public ProgramFixture
{
protected:
    static QByteArray xdotool(const QString &arguments)
    {
        QProcess process;
        process.start("xdotool", QProcess::splitCommand(arguments));
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 0) << arguments.toStdString();
        return process.readAllStandardOutput();
    }
    void findWindow()
    {
        const auto place = QRegularExpression("X=(\\d+)\nY=(\\d+)")
                               .match(xdotool("search --sync --onlyvisible --name ^Tintloom$ "
                                              "getwindowgeometry --shell"));
        ASSERT_TRUE(place.hasMatch());
        _origin = {place.captured(1).toDouble(), place.captured(2).toDouble()};
    }
    void click(QPointF point)
    {
        const QPoint place = (point + _origin).toPoint();
        xdotool(QString("mousemove %1 %2 click 1").arg(place.x()).arg(place.y()));
    }
    QRgb colorAt(QPointF point) const
    {
        const QPoint place = (point + _origin).toPoint();
        QScreen *screen = QGuiApplication::primaryScreen();
        return screen->grabWindow(0, place.x(), place.y(), 1, 1).toImage().pixel(0, 0);
    }
    bool waitForColor(QPointF point, QRgb color)
    {
        const bool came = QTest::qWaitFor([&] { return colorAt(point) == color; }, 20'000);
        EXPECT_TRUE(came) << std::hex << colorAt(point) << " instead of " << color << " at "
                          << point.y();
        return came;
    }

private:
    QPointF _origin;
};
} // namespace

TEST_F(EndToEndTest, FromTheTapToThePackage)
{
    putElements({element("list-background-image", "\"#336699FF\"")});
    QProcess program;
    start(program, TINTLOOM_EXECUTABLE, "--screen 320x568", {{"QT_QPA_PLATFORM", "xcb"}});
    findWindow();
    constexpr QRgb before = qRgb(0x33, 0x66, 0x99);
    constexpr QRgb after = qRgb(0xFF, 0x80, 0x00);
    constexpr QPointF row(300.0, 20.0 + 28.0 + 40.0);
    ASSERT_TRUE(waitForColor(row, before));

    const ChooserLayout chooser = ChooserLayout::make(320.0, 568.0);
    const QPointF patch = chooser.colorPatch.topLeft() + QPointF(10.0, 10.0);
    click(row);
    ASSERT_TRUE(waitForColor(patch, before));
    click(chooser.colorPicker.center() + QPointF(144.0, 0.0)); // red, as bright as before
    ASSERT_TRUE(waitForColor(patch, qRgb(0x99, 0, 0)));
    click(chooser.colorPatch.center());
    xdotool("key ctrl+a type ff8000ff");
    xdotool("key Return");
    ASSERT_TRUE(waitForColor(patch, after));
    click(chooser.saveButton.center());
    ASSERT_TRUE(waitForColor(row, after));
    QByteArray log;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return (log += program.readAllStandardError()).contains("PickerViewController dealloc");
        },
        20'000)); // the chooser has faded

    const EditorLayout editor = EditorLayout::make({320.0, 568.0}, 44.0, false);
    const QPointF header(300.0, 30.0);
    const QRgb green = qRgb(0, 214, 68);
    click(editor.saveButton.translated(editor.bottomView.topLeft()).center());
    ASSERT_TRUE(QTest::qWaitFor([&] { return colorAt(header) != green; }, 20'000)); // the alert
    xdotool("key Return");
    ASSERT_TRUE(waitForColor(header, green));
    EXPECT_TRUE(contents(locations.packageInfo()).contains("#FF8000FF"));
    EXPECT_TRUE(QFile::exists(locations.listBackground()));
    program.terminate();
    finish(program);
}
