#include "theme/ElementPicture.h"

#include "preview/PreviewPalette.h"
#include "preview/PreviewPicture.h"
#include "support/Jpeg.h"
#include "support/ThemeFixture.h"
#include "theme/PictureEntry.h"
#include "theme/ThemeDocument.h"
#include "theme/ThemePackageWriter.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace
{
struct ElementPictureTest : ThemeFixture {
    void SetUp() override
    {
        putElements({element("list-background-image", "\"#102030FF\""),
                     element("unread-indicator-image", "\"#0A0\"")});
    }

    QString paint(const QString &name, const QColor &left, const QColor &right)
    {
        QImage image(400, 200, QImage::Format_RGB32);
        image.fill(left);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 200; x < image.width(); ++x)
                image.setPixelColor(x, y, right);
        const QString path = folder.filePath(name);
        EXPECT_TRUE(image.save(path));
        return path;
    }
    static ElementPicture taken(const QString &path)
    {
        const auto [picture, problem] = ElementPicture::read(path);
        EXPECT_TRUE(picture) << problem.toStdString();
        return picture.value_or(ElementPicture{});
    }
    void choose(ThemeDocument &document, const ElementPicture &picture)
    {
        EXPECT_TRUE(document.changeAll({{0, *picture.choice()}}, "Change"));
    }
    void save(const ThemeDocument &document)
    {
        testing::internal::CaptureStderr();
        const SaveReport report = writeTheme(buildTheme(document.elements(), locations, 1.0));
        testing::internal::GetCapturedStderr();
        EXPECT_EQ(report.notice(), "");
    }
    QImage writtenBackground() { return decodedJpeg(contents(locations.listBackground())); }
    QStringList files()
    {
        return QDir(locations.workingCopyFolder()).entryList({"Picture-*"}, QDir::Files);
    }
};

bool isAbout(QRgb color, QRgb expected)
{
    return std::abs(qRed(color) - qRed(expected)) < 6 &&
           std::abs(qGreen(color) - qGreen(expected)) < 6 &&
           std::abs(qBlue(color) - qBlue(expected)) < 6;
}
} // namespace

TEST_F(ElementPictureTest, FillsTheScreenWithThePartThatIsChosen)
{
    ElementPicture picture = taken(paint("two.png", Qt::red, Qt::blue));
    const auto edges = [&picture] {
        const QImage shown = picture.shown({64, 114});
        return std::pair(shown.pixel(1, 57), shown.pixel(62, 57));
    };
    EXPECT_TRUE(isAbout(edges().first, 0xFFFF0000));
    EXPECT_TRUE(isAbout(edges().second, 0xFF0000FF));
    // Half the light of each, not half the byte.
    const auto mean = picture.choice()->color.toString();
    EXPECT_TRUE(isAbout(QColor(mean.left(7)).rgb(), 0xFFBC00BC)) << mean.toStdString();
    picture.x = 0.0; // never beyond the edge
    EXPECT_TRUE(isAbout(edges().second, 0xFFFF0000));
    picture.x = 0.52;
    EXPECT_TRUE(isAbout(edges().first, 0xFFFF0000));
    picture.zoom = 8.0;
    EXPECT_TRUE(isAbout(edges().first, 0xFF0000FF)) << "a closer look has less around its middle";
    // A finger that goes further than the picture does is followed as soon as it comes back.
    const QSize size(400, 200);
    picture.zoom = 2.0;
    const ElementPicture end = picture.moved(size, 100.0, 100.0);
    EXPECT_EQ(end.shown({64, 114}), end.moved(size, 1.0, 0.0).shown({64, 114}));
    EXPECT_GT(end.moved(size, -0.1, 0.0).x, end.x);
    EXPECT_EQ(picture.closer(size, 0.001).zoom, 1.0);
    EXPECT_EQ(picture.closer(size, 1e9).zoom, ElementPicture::mostZoom);
    EXPECT_FALSE(ElementPicture{"no picture"}.choice());
    put(folder.filePath("text.png"), "text");
    EXPECT_TRUE(ElementPicture::read(folder.filePath("text.png")).problem.contains("no picture"));
}

TEST_F(ElementPictureTest, ShowsEachPixelWhereItIsPlaced)
{
    QImage image(256, 256, QImage::Format_RGB32); // a pixel says where it is
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            image.setPixel(x, y, qRgb(x, y, 128));
    const QString path = folder.filePath("places.png");
    ASSERT_TRUE(image.save(path));
    ElementPicture picture = taken(path);
    picture.x = 0.3;
    picture.y = 0.6;
    picture.zoom = 2.0;
    const QSizeF part(128.0 * 640.0 / 1136.0, 128.0);
    const QPointF corner(0.3 * 256.0 - part.width() / 2.0, 0.6 * 256.0 - 64.0);
    for (const double scale : {0.25, 1.0, 5.0}) {
        const QSize pixels = (part * scale).toSize();
        const QImage shown = picture.shown(pixels);
        ASSERT_EQ(shown.size(), pixels);
        for (const double across : {0.1, 0.5, 0.9})
            for (const double down : {0.1, 0.5, 0.9}) {
                const QRgb pixel =
                    shown.pixel(int(across * pixels.width()), int(down * pixels.height()));
                EXPECT_NEAR(qRed(pixel), corner.x() + across * part.width(), 4.0) << scale;
                EXPECT_NEAR(qGreen(pixel), corner.y() + down * part.height(), 4.0) << scale;
            }
    }
}

TEST_F(ElementPictureTest, IsSavedRestoredUndoneAndRemovedWithItsColor)
{
    ElementPicture picture = taken(paint("two.png", Qt::green, Qt::yellow));
    picture.y = 0.25;
    picture.zoom = 1.5;
    ThemeDocument document(load());
    choose(document, picture);
    save(document);
    EXPECT_TRUE(isAbout(writtenBackground().pixel(10, 500), 0xFF00FF00));
    EXPECT_TRUE(isAbout(writtenBackground().pixel(630, 500), 0xFFFFFF00));
    EXPECT_EQ(writtenBackground().size(), QSize(640, 1136));
    const auto package = PropertyList::readDictionary(contents(locations.packageInfo()));
    EXPECT_TRUE(*package == themeDictionary(document.elements()))
        << "nothing of the working copy's own is in the package";

    ThemeDocument restarted(load());
    EXPECT_EQ(ElementPicture::of(restarted.record(0)), picture);
    EXPECT_TRUE(restarted.record(0).choice() == document.record(0).choice());
    EXPECT_TRUE(restarted.elements().foreignEntries().entries().empty());
    EXPECT_EQ(restarted.elements().defaultChoice(0), (ElementChoice{"#102030FF", {}}));
    restarted.setColor(0, "#C00000FF");
    EXPECT_FALSE(ElementPicture::of(restarted.record(0)));
    save(restarted);
    expectSolid(writtenBackground(), QColor(0xC0, 0, 0), 3);
    EXPECT_EQ(files(), QStringList{PictureEntry::fileName(picture.jpeg)})
        << "the earlier choices lead to it";
    restarted.undo();
    EXPECT_EQ(ElementPicture::of(restarted.record(0)), picture);

    restarted.redo();
    restarted.changeAll({{0, {"#00C000FF", {}}}}, "Change");
    save(restarted);
    EXPECT_EQ(files(), QStringList());
    restarted.undo();
    restarted.undo();
    save(restarted); // from the history, although the file had gone
    EXPECT_EQ(ElementPicture::of(load().tableSource()[0]), picture);
}

TEST_F(ElementPictureTest, AMissingOrForeignFileLeavesTheColor)
{
    ThemeDocument document(load());
    choose(document, taken(paint("red.png", Qt::red, Qt::red)));
    save(document);
    const QString file = locations.workingCopyFolder() + u'/' + files().first();
    const QByteArray bytes = contents(file);
    const auto expectColorAlone = [&] {
        const ElementDataSource loaded = load();
        EXPECT_FALSE(ElementPicture::behindList(loaded));
        EXPECT_EQ(loaded.tableSource()[0].choice(),
                  (ElementChoice{document.record(0).color, QVariant()}));
        EXPECT_TRUE(log.contains("picture of a theme is missing"));
    };
    put(file, bytes + "more");
    expectColorAlone();
    QFile::remove(file);
    expectColorAlone();
    auto saved = *PropertyList::readDictionary(contents(locations.workingCopy()));
    const QString key = PictureEntry::key();
    QVariantMap entry = saved.find(key)->toMap();
    entry["file"] = "../../picture.jpg";
    put(folder.filePath("picture.jpg"), bytes);
    saved.setValue(key, entry);
    putSaved(saved);
    expectColorAlone();
}

TEST_F(ElementPictureTest, ThePreviewShowsItBehindTheListAlone)
{
    ThemeDocument document(load());
    const auto ground = [&document](PreviewView view) {
        const auto palette = PreviewPalette::fromElements(document.elements());
        return previewPicture(palette, view, 1.0).pixel(4, 560);
    };
    const QRgb conversation = ground(PreviewView::Conversation);
    choose(document, taken(paint("red.png", Qt::red, Qt::red)));
    EXPECT_TRUE(isAbout(ground(PreviewView::MessageList), 0xFFFF0000));
    EXPECT_EQ(ground(PreviewView::Conversation), conversation);
    const auto shown = PreviewPalette::fromElements(document.elements());
    EXPECT_TRUE(
        PreviewPalette::fromElements(document.elements(), {{0, "#00FF00FF"}}).listPicture.isNull())
        << "a color under the finger shows";
    document.setColor(0, "#102030FF");
    EXPECT_EQ(ground(PreviewView::MessageList), 0xFF102030);
    const PreviewScene scene(shown);
    const auto now = PreviewPalette::fromElements(document.elements());
    EXPECT_EQ(scene.touched(PreviewScreen::MessageList, shown, now).boundingRect(),
              QRect(0, 0, 320, 568));
}
