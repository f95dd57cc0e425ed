// Themes handed to the program by the desktop: as an argument, and by a drag from another program.
#include "support/ProgramFixture.h"

#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QPixmap>
#include <QRasterWindow>
#include <QScreen>
#include <QTest>
#include <QUrl>

namespace
{
/// Begins to drag a file as soon as it is pressed and moved.
class DragSource : public QRasterWindow
{
public:
    explicit DragSource(const QString &path) : _path(path) {}
    bool wasTaken() const { return _wasTaken; }

protected:
    void mouseMoveEvent(QMouseEvent *) override
    {
        auto *data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(_path)});
        auto *drag = new QDrag(this); // Qt's: it is asked for the file after exec() has returned
        drag->setMimeData(data);
        _wasTaken = drag->exec(Qt::CopyAction) == Qt::CopyAction || _wasTaken;
    }

private:
    const QString _path;
    bool _wasTaken = false;
};

struct OpeningTest : ProgramFixture {
    void SetUp() override
    {
        putElements({element("list-background-image", "\"#336699FF\"")});
        put(given + "/Info.plist", "<plist><dict><key>list-background-image</key>"
                                   "<string>#FF8000FF</string></dict></plist>");
    }
    static bool isColorAt(QPoint point, QRgb color)
    {
        const QPixmap shown =
            QGuiApplication::primaryScreen()->grabWindow(0, point.x(), point.y(), 1, 1);
        return shown.toImage().pixel(0, 0) == color;
    }
    /// The page with the theme comes, and its "Keep" keeps it.
    void keepWhatIsShown()
    {
        ASSERT_TRUE(QTest::qWaitFor(
            [] {
                return isColorAt({5, 60}, qRgb(0xE4, 0xE7, 0xEA));
            },
            20'000));
        EXPECT_FALSE(QFile::exists(kept));
        EXPECT_EQ(QProcess::execute("xdotool", {"mousemove", "269", "540", "click", "1"}), 0);
        ASSERT_TRUE(QTest::qWaitFor([this] { return QFile::exists(kept); }, 20'000));
        EXPECT_TRUE(contents(kept).contains("#FF8000FF"));
        EXPECT_FALSE(QFile::exists(locations.packageInfo()));
    }

    const QString given = folder.filePath("Given");
    const QString kept = locations.documents + "/Themes/Given/Info.plist";
};
} // namespace

TEST_F(OpeningTest, AnArgumentIsShownAndKept)
{
    QProcess program;
    start(program, TINTLOOM_EXECUTABLE, "--screen 320x568 " + given, {{"QT_QPA_PLATFORM", "xcb"}});
    keepWhatIsShown();
    program.terminate();
    finish(program);
}

TEST_F(OpeningTest, ADropFromAnotherProgramIsShownAndKept)
{
    QProcess program;
    start(program, TINTLOOM_EXECUTABLE, "--screen 320x568", {{"QT_QPA_PLATFORM", "xcb"}});
    ASSERT_TRUE(QTest::qWaitFor([] { return isColorAt({300, 30}, qRgb(0, 214, 68)); }, 20'000));
    DragSource source(given);
    source.setGeometry(600, 100, 200, 200);
    source.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&source));
    // Again where a busy machine has missed a move: the pause only paces it.
    for (int attempt = 0; attempt < 10 && !source.wasTaken(); ++attempt) {
        QProcess hand;
        hand.start("sh", {"-c", "xdotool mousemove 700 200 mousedown 1; sleep 0.2;"
                                "for x in 690 650 400 200 180 160; do"
                                "  xdotool mousemove $x 300; sleep 0.2; done;"
                                "xdotool mouseup 1"});
        ASSERT_TRUE(QTest::qWaitFor([&] { return hand.state() == QProcess::NotRunning; }, 20'000));
        QTest::qWait(500); // the answer may be on its way
    }
    ASSERT_TRUE(source.wasTaken());
    source.hide();
    keepWhatIsShown();
    program.terminate();
    finish(program);
}
