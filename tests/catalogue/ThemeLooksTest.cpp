#include "catalogue/ThemeLooks.h"

#include "platform/foundation/NSFileManager.h"
#include "preview/PreviewThumbnail.h"
#include "support/ThemeFixture.h"

#include <QCoreApplication>

#include <atomic>

namespace
{
struct ThemeLooksTest : ThemeFixture {
    void SetUp() override
    {
        putElements({element("green-balloon-colors_1", "\"#111111FF\""),
                     element("conversation-background-color", "\"#EEEEEEFF\"")});
        for (const QString name : {"Red", "Blue"})
            put(resources + '/' + name + "/Info.plist",
                "<plist><dict><key>green-balloon-colors_1</key><string>" +
                    QByteArray(name == "Red" ? "#FF0000FF" : "#0000FFFF") +
                    "</string></dict></plist>");
        put(resources + "/Broken/Info.plist", "no list");
    }
    void TearDown() override { NSFileManager::setFaultHook({}); }

    QString folderOf(const QString &theme) const { return resources + '/' + theme; }
    /// Asks until the theme can be seen; those asked for before it have their answer then, too.
    static ThemeLook waitFor(ThemeLooks &looks, const QString &folder, double scale)
    {
        while (!looks.look(folder, scale).palette)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return looks.look(folder, scale);
    }
    static QRgb balloonOf(const ThemeLook &look)
    {
        return look.palette->color(PreviewElement::GreenBalloon1).value();
    }
};
} // namespace

TEST_F(ThemeLooksTest, MakesEachLookOnceForAScaleAndTellsWhenItIsThere)
{
    std::atomic<int> reads = 0;
    NSFileManager::setFaultHook([&reads](NSFileManager::Operation, const QString &path) {
        reads += path.endsWith("Info.plist");
        return std::error_code();
    });
    {
        ThemeLooks looks(resources);
        QStringList ready;
        QObject::connect(&looks, &ThemeLooks::ready,
                         [&ready](const QString &theme) { ready += theme; });
        EXPECT_TRUE(looks.look(folderOf("Red"), 2.0).picture.isNull()); // nobody waits
        const ThemeLook blue = waitFor(looks, folderOf("Blue"), 2.0);
        const ThemeLook red = looks.look(folderOf("Red"), 2.0);
        EXPECT_EQ(ready, (QStringList{folderOf("Red"), folderOf("Blue")}));
        EXPECT_EQ(balloonOf(red), 0xFFFF0000);
        EXPECT_EQ(balloonOf(blue), 0xFF0000FF);
        EXPECT_EQ(red.palette->color(PreviewElement::ConversationBackground), 0xFFEEEEEE);
        EXPECT_EQ(red.picture, previewThumbnail(*red.palette, 2.0));
        EXPECT_EQ(waitFor(looks, folderOf("Red"), 3.0).picture.width(), 108);
        EXPECT_EQ(looks.look(folderOf("Red"), 2.0).picture.cacheKey(), red.picture.cacheKey());
    }
    EXPECT_EQ(reads, 3);
}

TEST_F(ThemeLooksTest, SaysOnceWhatCannotBeReadAndNothingOfWhatIsNotThere)
{
    ThemeLooks looks(resources);
    testing::internal::CaptureStderr();
    for (int time = 0; time < 2; ++time) {
        for (const QString theme : {"Broken", "Announced"})
            looks.look(folderOf(theme), 2.0);
        waitFor(looks, folderOf("Red"), 1.0 + time);
        for (const QString theme : {"Broken", "Announced"})
            EXPECT_FALSE(looks.look(folderOf(theme), 2.0).palette ||
                         !looks.look(folderOf(theme), 2.0).picture.isNull());
    }
    const auto log = QString::fromStdString(testing::internal::GetCapturedStderr());
    EXPECT_EQ(log.count('\n'), 1) << log.toStdString();
    EXPECT_TRUE(log.contains("/Broken/Info.plist"));
}

TEST_F(ThemeLooksTest, MayGoWhileALookIsBeingMade)
{
    std::atomic<int> reads = 0;
    NSFileManager::setFaultHook([&reads](NSFileManager::Operation, const QString &) {
        ++reads;
        return std::error_code();
    });
    {
        ThemeLooks looks(resources);
        for (int scale = 1; scale <= 500; ++scale)
            looks.look(folderOf("Red"), scale / 100.0);
        while (reads == 0) // until one is under way
            QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents(); // an answer that was on its way finds nobody
    EXPECT_LT(reads, 1000);            // and what waited was not made at all
}
