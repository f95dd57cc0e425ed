#include "catalogue/ThemePackage.h"
#include "preview/PreviewThumbnail.h"
#include "support/CatalogueFixture.h"

#include <algorithm>

namespace
{
using enum PreviewElement;

struct CataloguePreviewTest : CatalogueFixture {
    void SetUp() override
    {
        CatalogueFixture::SetUp();
        writeDocument(QJsonArray{element("green-balloon-colors_1", "A", "#111111FF"),
                                 element("conversation-background-color", "A", "#222222FF")});
        for (int number = 0; number < 40; ++number) {
            const QByteArray name = "Theme " + QByteArray::number(number);
            put(_resources + '/' + name + "/Info.plist", balloon(QColor(number * 6, 0, 255)));
            _records += themeRecord("Zoo", name);
        }
        put(_resources + "/Red/Info.plist", balloon(Qt::red));
        put(_resources + "/Blue/Info.plist", balloon(Qt::blue));
        put(_resources + "/Later/Info.plist", balloon(Qt::black));
        put(_resources + "/Mine/Info.plist", balloon(Qt::black));
        put(folders().theme.workingCopy(), balloon(Qt::green));
    }
    static QByteArray balloon(const QColor &color)
    {
        PropertyDictionary dictionary;
        dictionary.setValue("green-balloon-colors_1", color.name(QColor::HexRgb).toUpper() + "FF");
        return PropertyList::writeDictionary(dictionary);
    }
    QImage expectedPicture(const QString &theme)
    {
        const auto package = ThemePackage::read(_resources, _resources + '/' + theme);
        return previewThumbnail(PreviewPalette::fromElements(*package.elements),
                                window().effectiveDevicePixelRatio());
    }
    static bool hasNone(const QString &name)
    {
        return QStringList{"Later", "Build Your Own!", "Mine", "Stripes"}.contains(name);
    }
    std::vector<UITableViewSubtitleCell *> cells()
    {
        std::vector<UITableViewSubtitleCell *> cells;
        for (const NSIndexPath row : table().indexPathsForVisibleRows())
            cells.push_back(cell(row));
        return cells;
    }
    bool waitForPictures()
    {
        return QTest::qWaitFor([this] {
            const auto all = cells();
            return std::ranges::all_of(all, [](auto *cell) {
                return hasNone(cell->textLabel()->text()) || !cell->picture().isNull();
            });
        });
    }
    void expectRightPictures()
    {
        for (UITableViewSubtitleCell *cell : cells()) {
            const QString name = cell->textLabel()->text();
            SCOPED_TRACE(name.toStdString());
            EXPECT_TRUE(cell->picture().isNull() || !hasNone(name));
            EXPECT_TRUE(cell->picture().isNull() || cell->picture() == expectedPicture(name));
        }
    }

    PreviewModel &model() { return *catalogue().preview().model(); }
    QColor shownBalloon()
    {
        return QColor::fromRgba(model().palette().color(GreenBalloon1).value_or(0));
    }
    void hover(const QString &name) { hoverAt(sceneFrame(row(name)).center()); }
    void hoverAt(QPointF point)
    {
        move(point.toPoint());
        settle();
    }
};
} // namespace

TEST_F(CataloguePreviewTest, RowsGetTheirPictureWhenItIsReadyAndNeverAnothers)
{
    _records.replace("<string>Cold</string>",
                     "<string>" + QByteArray("Cold and colder ").repeated(9) + "</string>");
    open();
    ASSERT_TRUE(waitForPictures());
    expectRightPictures();
    auto *blue = row("Blue");
    const QRectF picture = blue->pictureFrame();
    EXPECT_EQ(picture, QRectF(320 - 36 - 36, 4, 36, 36));
    EXPECT_EQ(blue->textLabel()->frame().topLeft(), QPointF(15, 2));
    EXPECT_EQ(blue->detailTextLabel()->frame().topLeft(), QPointF(15, 25));
    EXPECT_LT(blue->detailTextLabel()->frame().right(), picture.left());
    // Drawn where it is said to be, and not over the checkmark.
    const QPoint middle = sceneFrame(blue).topLeft().toPoint() + QPoint(248 + 28, 4 + 21);
    EXPECT_EQ(grab().pixelColor(middle), QColor(Qt::blue));
    catalogue().setSelectedTheme("Blue");
    settle();
    EXPECT_EQ(blue->pictureFrame(), picture);

    // Cells that are reused show nothing before they show the right thing.
    for (const double offset : {1500.0, 300.0, 900.0, 0.0}) {
        scrollTo(offset);
        expectRightPictures();
        ASSERT_TRUE(waitForPictures());
        expectRightPictures();
    }
}

TEST_F(CataloguePreviewTest, ThePreviewFollowsPointerAndKeysAndElseShowsTheChoices)
{
    open();
    ASSERT_TRUE(waitForPictures());
    EXPECT_EQ(shownBalloon(), QColor(Qt::green)); // from the disk
    EXPECT_EQ(model().caption(), "Current choices");
    EXPECT_EQ(model().nameOf("green-balloon-colors_1"), "Name of green-balloon-colors_1");
    EXPECT_FALSE(model().isInteractive());
    hover("Red");
    EXPECT_EQ(shownBalloon(), QColor(Qt::red));
    EXPECT_EQ(model().caption(), "Red");
    for (const QString other : {"Later", "Mine"}) {
        hover(other);
        EXPECT_EQ(shownBalloon(), QColor(Qt::green));
    }
    hover("Red");
    key(Qt::Key_Tab); // the keyboard has moved last
    key(Qt::Key_End);
    key(Qt::Key_Up);
    ASSERT_TRUE(QTest::qWaitFor([this] { return shownBalloon() == QColor(38 * 6, 0, 255); }));
    hoverAt({5.0, 5.0}); // above the list
    EXPECT_EQ(model().caption(), "Theme 38");
    scrollTo(0.0);
    tap(QPointF(100.0, 34.0)); // on a header: the keyboard has no row any more
    EXPECT_EQ(model().caption(), "Current choices");
}

TEST_F(CataloguePreviewTest, TheChoicesAreTheEditorsOrThoseThatWereSentToIt)
{
    open();
    hover("Red");
    ASSERT_TRUE(waitForPictures());
    tap(row("Build Your Own!"));
    finishSlide();
    EXPECT_TRUE(model().isInteractive());
    EXPECT_EQ(model().caption(), "Tap a part to change it");
    editor().document().setColor(0, "#FFFF00FF"); // not saved
    EXPECT_EQ(shownBalloon(), QColor(Qt::yellow));
    goBack();
    hoverAt({5.0, 5.0});
    EXPECT_EQ(shownBalloon(), QColor(Qt::yellow));
    EXPECT_EQ(model().caption(), "Current choices");
    EXPECT_FALSE(model().isInteractive());

    longPress("Red");
    ASSERT_TRUE(agreeAndWait());
    hoverAt({5.0, 5.0});
    EXPECT_EQ(shownBalloon(), QColor(Qt::red)); // the working copy now
    EXPECT_EQ(model().caption(), "Current choices");
}
