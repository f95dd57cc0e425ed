#include "theme/ThemePackageWriter.h"

#include "platform/DispatchQueue.h"
#include "support/Jpeg.h"
#include "support/ThemeFixture.h"

#include <QFileInfo>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{
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
    putElements({
        element("gray-balloon-colors_2", "\"#333\""),
        element("z-color", "\"#ABC\""),
        element("green-balloon-colors_1", "\"\""),
        element("removed", "\"\""),
        element("no-color", "null"),
        element("text", "null", "{}", "\"soft\""),
        element("number", "null", "{}", "14"),
        element("real", "null", "{}", "0.5"),
        element("boolean", "null", "{}", "true"),
        element("open", "\"#FFF\"", "{}", "null"),
        element("unseen", "\"#DDD\"", "null", "null", "null"),
        element("retina", "null", "{}", "\"later wins\""),
        element("blue-balloon-colors_2", "\"#22F\""),
        element("blue-balloon-colors_1", "\"#11F\""),
    });
    const std::vector<PropertyDictionary::Entry> expected = {
        {u"name"_s, u"Tintloom"_s},
        {u"theme-version"_s, u"2"_s},
        {u"description"_s, u""_s},
        {u"retina"_s, u"later wins"_s},
        {u"gray-balloon-colors_2"_s, u"#333"_s},
        {u"z-color"_s, u"#ABC"_s},
        {u"green-balloon-colors_1"_s, u""_s},
        {u"removed"_s, u""_s},
        {u"text"_s, u"soft"_s},
        {u"number"_s, 14LL},
        {u"real"_s, 0.5},
        {u"boolean"_s, true},
        {u"open"_s, u"0"_s},
        {u"unseen"_s, u"#DDD"_s},
        {u"blue-balloon-colors_2"_s, u"#22F"_s},
        {u"blue-balloon-colors_1"_s, u"#11F"_s},
        {u"blue-balloon-colors"_s, QVariantList{u"#11F"_s, u"#22F"_s}},
        {u"gray-balloon-colors"_s, QVariantList{u"#333"_s}},
    };
    EXPECT_EQ(themeDictionary(load()).entries(), expected);

    // Types survive the file, and the next load and save change nothing.
    ASSERT_TRUE(save().failures.empty());
    const QByteArray first = contents(locations.packageInfo());
    EXPECT_EQ(PropertyList::readDictionary(first)->entries(), expected);
    EXPECT_EQ(contents(locations.workingCopy()), first);
    ASSERT_TRUE(save().failures.empty());
    auto expectedAgain = expected;
    EXPECT_EQ(PropertyList::readDictionary(contents(locations.packageInfo()))->entries(),
              expectedAgain);
}

TEST_F(ThemePackageWriterTest, WritesThePackageAndTheWorkingCopy)
{
    const mode_t previous = ::umask(077);
    const SaveReport report = save(2.0);
    ::umask(previous);
    EXPECT_EQ(report.written, paths());
    EXPECT_TRUE(report.failures.empty());
    EXPECT_EQ(tree(locations.packageFolder()), packageFiles);
    EXPECT_EQ(tree(locations.documents), QStringList({"Tintloom", "Tintloom/Info.plist"}));
    for (const QString &path : paths()) {
        struct stat status = {};
        ASSERT_EQ(::stat(QFile::encodeName(path), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, 0777U) << path.toStdString();
    }
    const QImage background = decodedJpeg(contents(locations.listBackground()));
    EXPECT_EQ(background.size(), QSize(1280, 2272));
    expectSolid(background, QColor(200, 100, 50), 2); // opaque, the straight colour
    const QImage indicator = decodedJpeg(contents(locations.unreadIndicator()));
    EXPECT_EQ(indicator.size(), QSize(48, 48));
    expectSolid(indicator, QColor(0, 170, 0), 2);
    EXPECT_EQ(log, "biteSMS Theme Path: %1\nNSDocumentDirectory Theme Path: %2\n"_L1.arg(
                       locations.packageInfo(), locations.workingCopy()));
}

TEST_F(ThemePackageWriterTest, NothingOfAnEarlierPackageIsLeft)
{
    const QString link = locations.packageFolder() + "/UIKit/link"_L1;
    put(locations.packageFolder() + "/old/file"_L1, "x");
    put(locations.packageFolder() + "/UIKit/other.png"_L1, "x");
    put(locations.packageRoot + "/Other/Info.plist"_L1, "kept");
    put(locations.workingCopyFolder() + "/notes"_L1, "kept");
    ASSERT_TRUE(QFile::link(locations.packageRoot + "/Other"_L1, link));
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(save().failures.empty());
        EXPECT_EQ(tree(locations.packageFolder()), packageFiles);
        EXPECT_EQ(contents(locations.packageRoot + "/Other/Info.plist"_L1), "kept");
        EXPECT_EQ(contents(locations.workingCopyFolder() + "/notes"_L1), "kept");
    }
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
    const QStringList before = tree(outside);
    const auto modes = [&] {
        return QFileInfo(outside + "/Info.plist"_L1).permissions() |
               QFileInfo(outside + "/UnreadIndicator@2x.png"_L1).permissions();
    };
    const auto mode = modes();
    const auto expectUntouched = [&] {
        EXPECT_EQ(tree(outside), before);
        EXPECT_EQ(contents(outside + "/Info.plist"_L1), "theirs");
        EXPECT_EQ(contents(outside + "/UnreadIndicator@2x.png"_L1), "theirs");
        EXPECT_EQ(modes(), mode);
    };
    QDir().mkpath(locations.packageRoot);
    ASSERT_TRUE(QFile::link(outside, locations.packageFolder()));
    const auto saveWithoutRemoving = [&](const QString &path) {
        const FaultHookGuard guard([&](NSFileManager::Operation operation, const QString &asked) {
            return operation == NSFileManager::Operation::Remove && asked == path
                       ? std::make_error_code(std::errc::permission_denied)
                       : std::error_code();
        });
        return save();
    };
    // The link cannot be taken away: no file of the package is written.
    SaveReport report = saveWithoutRemoving(locations.packageFolder());
    EXPECT_EQ(report.written, QStringList(locations.workingCopy()));
    EXPECT_EQ(failedPaths(report).size(), 5);
    expectUntouched();
    // Only the link is taken away.
    EXPECT_TRUE(save().failures.empty());
    EXPECT_FALSE(QFileInfo(locations.packageFolder()).isSymLink());
    EXPECT_EQ(tree(locations.packageFolder()), packageFiles);
    expectUntouched();
    // The same one folder deeper.
    NSFileManager::removeItemAtPath(locations.indicatorFolder());
    ASSERT_TRUE(QFile::link(outside, locations.indicatorFolder()));
    report = saveWithoutRemoving(locations.packageFolder());
    EXPECT_EQ(failedPaths(report),
              QStringList({locations.packageFolder(), locations.indicatorFolder(),
                           locations.unreadIndicator()}));
    expectUntouched();
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
    // The first fault stays: it is logged after the package and again after the working copy.
    const QString line =
        "Error settings permission %1: Not a directory\n"_L1.arg(locations.indicatorFolder());
    EXPECT_TRUE(log.endsWith(line + line));
    EXPECT_EQ(contents(locations.packageRoot), "a file where the folder should be");
}

TEST_F(ThemePackageWriterTest, APermissionFaultIsLoggedTwiceAndReportedOnce)
{
    const struct {
        QString path;
        int logged;
    } cases[] = {{locations.packageInfo(), 2}, {locations.workingCopy(), 1}};
    for (const auto &[path, logged] : cases) {
        const FaultHookGuard guard([&](NSFileManager::Operation operation, const QString &asked) {
            const bool fails =
                operation == NSFileManager::Operation::SetPermissions && asked == path;
            return fails ? std::make_error_code(std::errc::operation_not_permitted)
                         : std::error_code();
        });
        const SaveReport report = save();
        EXPECT_EQ(report.written, paths());
        EXPECT_EQ(failedPaths(report), QStringList(path));
        EXPECT_EQ(log.count("Error settings permission"_L1), logged);
    }
}

// Whatever single operation fails: no crash, and either the theme is whole or the report says what
// is not.
TEST_F(ThemePackageWriterTest, EveryOperationMayFail)
{
    int operations = 0;
    for (int failing = 0; failing <= operations; ++failing) {
        ASSERT_TRUE(save().failures.empty());
        const auto source = load();
        int count = 0;
        SaveReport report;
        {
            const FaultHookGuard guard([&](NSFileManager::Operation, const QString &) {
                return count++ == failing ? std::make_error_code(std::errc::io_error)
                                          : std::error_code();
            });
            testing::internal::CaptureStderr();
            report = writeTheme(buildTheme(source, locations, 1.0));
            testing::internal::GetCapturedStderr();
        }
        operations = count;
        ASSERT_LT(failing, 100);
        if (!report.refusal.isEmpty()) {
            EXPECT_TRUE(report.refusal.endsWith("Input/output error"_L1));
            EXPECT_TRUE(report.written.isEmpty() && report.failures.empty());
            continue;
        }
        if (!report.failures.empty()) {
            EXPECT_EQ(report.failures[0].reason, u"Input/output error"_s);
            continue;
        }
        EXPECT_EQ(report.written, paths()) << failing;
        EXPECT_EQ(contents(locations.workingCopy()), contents(locations.packageInfo())) << failing;
    }
    EXPECT_GT(operations, 15);
}

// As the editor does it. The thread sanitizer watches what crosses.
TEST_F(ThemePackageWriterTest, IsBuiltOnAQueueAndWrittenOnTheMainThread)
{
    putElements({element("list-background-image", "\"#112233\""),
                 element("unread-indicator-image", "\"#445566\""),
                 element("choice", "null", "{\"A\":1,\"B\":2}", "1")});
    const auto source = std::make_shared<ElementDataSource>(load());
    std::vector<SaveReport> reports;
    testing::internal::CaptureStderr();
    {
        DispatchQueue queue("test.save");
        for (qint64 choice = 1; choice <= 2; ++choice) {
            source->tableSource()[2]->value = choice;
            auto *written = &reports;
            queue.async([source, locations = locations, written] {
                auto theme = std::make_shared<BuiltTheme>(buildTheme(*source, locations, 1.0));
                MainQueue::async([theme = std::move(theme), written] {
                    written->push_back(writeTheme(*theme));
                });
            });
            while (reports.size() < size_t(choice))
                MainQueue::drain(); // and nothing else that would order the two threads
        }
    }
    testing::internal::GetCapturedStderr();
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_TRUE(reports[0].failures.empty() && reports[1].failures.empty());
    EXPECT_EQ(load().tableSource()[2]->value, QVariant(2LL));
}
