#include "theme/ThemePackageWriter.h"

#include "platform/foundation/DispatchQueue.h"
#include "support/Jpeg.h"
#include "support/ThemeFixture.h"
#include "theme/ThemeDocument.h"

#include <QFileInfo>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using Operation = NSFileManager::Operation;

namespace
{
constexpr QFileDevice::Permissions everything(0x7777), othersToo(0x0077);
const QStringList packageFiles{u"Info.plist"_s, u"ListBackground@2x.jpg"_s, u"UIKit"_s,
                               u"UIKit/UnreadIndicator@2x.png"_s};

struct ThemePackageWriterTest : ThemeFixture {
    void SetUp() override
    {
        putElements({element("list-background-image", "\"#C8643280\""),
                     element("unread-indicator-image", "\"#0A0\"")});
    }

    /// Loads and saves; the log of the save is in `log`.
    SaveReport save(double scale = 1.0)
    {
        const auto source = load();
        testing::internal::CaptureStderr();
        auto report = writeTheme(buildTheme(source, locations, scale));
        log = QString::fromStdString(testing::internal::GetCapturedStderr());
        return report;
    }

    QStringList paths() const
    {
        return {locations.packageInfo(), locations.listBackground(), locations.unreadIndicator(),
                locations.workingCopy()};
    }
};

QStringList failedPaths(const SaveReport &report)
{
    QStringList paths;
    for (const auto &failure : report.failures)
        paths.append(failure.path);
    return paths;
}
} // namespace

TEST_F(ThemePackageWriterTest, DictionaryHoldsHeadElementsAndBalloonsInThisOrder)
{
    putElements({element("gray-balloon-colors_2", "\"#333\""), element("z-color", "\"#ABC\""),
                 element("green-balloon-colors_1", "\"\""), element("no-color", "null"),
                 element("text", "null", "{}", "\"soft\""), element("number", "null", "{}", "14"),
                 element("real", "null", "{}", "0.5"), element("boolean", "null", "{}", "true"),
                 element("open", "\"#FFF\"", "{}", "null"),
                 element("unseen", "\"#DDD\"", "null", "null", "null"),
                 element("z-color", "\"#DEF\""), element("blue-balloon-colors_2", "\"#22F\""),
                 element("blue-balloon-colors_1", "\"#11F\"")});
    using Entry = PropertyDictionary::Entry;
    // Of one key twice, the later colour in the place of the first.
    const std::vector expected(
        {Entry(u"name"_s, u"Tintloom"_s), Entry(u"theme-version"_s, u"2"_s),
         Entry(u"description"_s, u""_s), Entry(u"retina"_s, false),
         Entry(u"gray-balloon-colors_2"_s, u"#333"_s), Entry(u"z-color"_s, u"#DEF"_s),
         Entry(u"green-balloon-colors_1"_s, u""_s), Entry(u"text"_s, u"soft"_s),
         Entry(u"number"_s, 14LL), Entry(u"real"_s, 0.5), Entry(u"boolean"_s, true),
         Entry(u"open"_s, u"0"_s), Entry(u"unseen"_s, u"#DDD"_s),
         Entry(u"blue-balloon-colors_2"_s, u"#22F"_s), Entry(u"blue-balloon-colors_1"_s, u"#11F"_s),
         Entry(u"blue-balloon-colors"_s, QVariantList{u"#11F"_s, u"#22F"_s}),
         Entry(u"gray-balloon-colors"_s, QVariantList{u"#333"_s})});
    EXPECT_EQ(themeDictionary(load()).entries(), expected);

    // Types survive the file, and the next load and save change nothing.
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(save().failures.empty());
        const QByteArray info = contents(locations.packageInfo());
        EXPECT_EQ(PropertyList::readDictionary(info)->entries(), expected);
        EXPECT_EQ(contents(locations.workingCopy()), info);
    }
}

TEST_F(ThemePackageWriterTest, WritesThePackageAndTheWorkingCopy)
{
    const mode_t previous = ::umask(077);
    const SaveReport report = save(2.0);
    ::umask(previous);
    EXPECT_EQ(report.written, paths());
    EXPECT_EQ(report.copyFrom(locations), locations.packageRoot);
    EXPECT_EQ(report.copyFrom({ThemeLocations::phonePackageRoot(), {}}), "");
    EXPECT_EQ(tree(locations.packageFolder()), packageFiles);
    EXPECT_EQ(tree(locations.documents), QStringList({"Tintloom", "Tintloom/Info.plist"}));
    for (const QString &path : paths())
        EXPECT_EQ(QFile::permissions(path), everything) << path.toStdString();
    for (const QString &path : {locations.packageFolder(), locations.indicatorFolder()})
        EXPECT_EQ(QFile::permissions(path), everything & ~othersToo); // as the user has it
    for (const auto &[file, size, color] :
         {std::tuple(locations.listBackground(), QSize(1280, 2272), QColor(200, 100, 50)),
          std::tuple(locations.unreadIndicator(), QSize(48, 48), QColor(0, 170, 0))}) {
        const QByteArray jpeg = contents(file);
        EXPECT_EQ(decodedJpeg(jpeg).size(), size);
        expectSolid(decodedJpeg(jpeg), color, 2); // opaque, the straight colour
        // The first step of the quantisation table: 16 of the standard's, scaled for quality 80.
        EXPECT_EQ(jpeg[jpeg.indexOf("\xFF\xDB") + 5], (16 * 40 + 50) / 100);
    }
    EXPECT_EQ(log, "biteSMS Theme Path: %1\nNSDocumentDirectory Theme Path: %2\n"_L1.arg(
                       locations.packageInfo(), locations.workingCopy()));
}

TEST_F(ThemePackageWriterTest, NothingOfAnEarlierPackageIsLeft)
{
    put(locations.packageFolder() + "/old/file"_L1, "x");
    EXPECT_TRUE(save().failures.empty());
    EXPECT_EQ(tree(locations.packageFolder()), packageFiles);
    // Whatever stands in the way of a folder or a file is replaced.
    NSFileManager::removeItemAtPath(locations.packageFolder());
    put(locations.packageFolder(), "a file");
    NSFileManager::removeItemAtPath(locations.workingCopy());
    put(locations.workingCopy() + "/inside"_L1, "a folder");
    EXPECT_TRUE(save().failures.empty());
    EXPECT_EQ(tree(locations.packageFolder()), packageFiles);
    EXPECT_TRUE(QFileInfo(locations.workingCopy()).isFile());
}

TEST_F(ThemePackageWriterTest, NoLinkLeadsOutOfThePackage)
{
    const QString outside = folder.filePath(u"outside"_s);
    put(outside + "/Info.plist"_L1, "theirs");
    put(outside + "/UnreadIndicator@2x.png"_L1, "theirs");
    const auto state = [&] {
        QString files = tree(outside).join(u' ');
        for (const auto &name : {"/Info.plist"_L1, "/UnreadIndicator@2x.png"_L1})
            files += contents(outside + name) + QString::number(QFile::permissions(outside + name));
        return files;
    };
    const QString before = state();
    QDir().mkpath(locations.packageRoot);
    for (const auto &[link, failures] :
         {std::pair(locations.packageFolder(), 5), std::pair(locations.indicatorFolder(), 3)}) {
        NSFileManager::removeItemAtPath(link);
        ASSERT_TRUE(QFile::link(outside, link));
        {
            // It cannot be taken away: nothing is written behind it.
            const FaultHookGuard guard(failing(Operation::Remove, locations.packageFolder()));
            const SaveReport report = save();
            EXPECT_TRUE(failedPaths(report).contains(link));
            EXPECT_EQ(failedPaths(report).size(), failures);
        }
        EXPECT_EQ(state(), before);
        EXPECT_TRUE(save().failures.empty()); // only the link is taken away
        EXPECT_EQ(tree(locations.packageFolder()), packageFiles);
        EXPECT_EQ(state(), before);
    }
}

TEST_F(ThemePackageWriterTest, NamesEverythingThatCannotBeWritten)
{
    put(locations.packageRoot, "a file where the folder should be");
    const SaveReport report = save();
    EXPECT_EQ(report.written, QStringList(locations.workingCopy()));
    EXPECT_EQ(
        failedPaths(report),
        QStringList({locations.packageFolder(), locations.packageInfo(), locations.listBackground(),
                     locations.indicatorFolder(), locations.unreadIndicator()}));
    for (const auto &failure : report.failures)
        EXPECT_EQ(failure.reason, u"Not a directory"_s);
    EXPECT_EQ(report.copyFrom(locations), "");
    // The first fault stays: it is logged after the package and again after the working copy.
    const QString line =
        "Error settings permission %1: Not a directory\n"_L1.arg(locations.indicatorFolder());
    EXPECT_TRUE(log.endsWith(line + line));
}

// As the editor does it. The thread sanitizer watches what crosses.
TEST_F(ThemePackageWriterTest, IsBuiltOnAQueueAndWrittenOnTheMainThread)
{
    putElements({element("choice", "null", "{\"A\":1,\"B\":2}", "1")});
    ThemeDocument document(load());
    DispatchQueue queue("test.save");
    for (qint64 choice = 1; choice <= 2; ++choice) {
        document.chooseOption(0, choice == 1 ? u"A"_s : u"B"_s);
        std::optional<SaveReport> report;
        queue.async([&report, snapshot = document.elements(), locations = locations] {
            auto theme = std::make_shared<BuiltTheme>(buildTheme(snapshot, locations, 1.0));
            MainQueue::async([&report, theme = std::move(theme)] { report = writeTheme(*theme); });
        });
        while (!report)
            MainQueue::drain(); // and nothing else that would order the two threads
        EXPECT_TRUE(report->failures.empty());
    }
    EXPECT_EQ(load().tableSource()[0].value, QVariant(2LL));
}
