#include "catalogue/ThemeInstallation.h"

#include "support/Files.h"

#include <QTemporaryDir>

namespace
{
struct ThemeInstallationTest : testing::Test {
    QTemporaryDir folder;
    const QString resources = folder.filePath("resources");
    const ThemeLocations locations{folder.filePath("root"), folder.filePath("documents")};

    void SetUp() override
    {
        put(resources + "/Theme/Info.plist", "info");
        put(resources + "/Theme/a/b/c", "deep");
    }
    SaveReport install() { return copyTheme(beginInstalling(resources, "Theme", locations)); }
    static QString failures(const SaveReport &report)
    {
        QStringList lines;
        for (const auto &failure : report.failures)
            lines += failure.path + ": " + failure.reason;
        return lines.join('\n');
    }
    QString target(const QString &file) const { return locations.packageFolder() + '/' + file; }
};
} // namespace

TEST_F(ThemeInstallationTest, LinksAreReplacedNotFollowed)
{
    const QString elsewhere = folder.filePath("elsewhere");
    put(elsewhere + "/keep", "kept");
    QDir().mkpath(locations.packageRoot);
    ASSERT_TRUE(QFile::link(elsewhere, locations.packageFolder()));
    EXPECT_EQ(failures(install()), "");
    EXPECT_FALSE(QFileInfo(locations.packageFolder()).isSymLink());
    EXPECT_EQ(tree(elsewhere), QStringList{"keep"});

    // A link inside goes, too, and one in the theme is copied as what it is.
    ASSERT_TRUE(QFile::link(elsewhere, target("link")));
    ASSERT_TRUE(QFile::link(elsewhere, resources + "/Theme/out"));
    EXPECT_EQ(failures(install()), "");
    EXPECT_EQ(tree(elsewhere), QStringList{"keep"});
    EXPECT_EQ(tree(locations.packageFolder()),
              (QStringList{"Info.plist", "a", "a/b", "a/b/c", "out"}));
    EXPECT_TRUE(QFileInfo(target("out")).isSymLink());
    QFile::remove(resources + "/Theme/out");

    // And where the link cannot be removed, nothing is written behind it.
    NSFileManager::removeItemAtPath(locations.packageFolder());
    ASSERT_TRUE(QFile::link(elsewhere, locations.packageFolder()));
    const FaultHookGuard guard(failing(NSFileManager::Operation::Remove, ""));
    EXPECT_TRUE(failures(install()).startsWith(locations.packageFolder() + ": "));
    EXPECT_EQ(tree(elsewhere), QStringList{"keep"});
}

TEST_F(ThemeInstallationTest, OnlyTargetsThatAreWrongInTheEndAreFailures)
{
    // The folder's copy breaks off in the middle; what is in it is then copied by itself.
    int copies = 0;
    {
        const FaultHookGuard guard([&](NSFileManager::Operation operation, const QString &path) {
            if (operation != NSFileManager::Operation::Copy)
                return std::error_code();
            ++copies;
            return path == target("a") ? NSFileManager::createDirectoryAtPath(path),
                   std::make_error_code(std::errc::io_error) : std::error_code();
        });
        const SaveReport report = install();
        EXPECT_EQ(failures(report), "");
        EXPECT_EQ(report.written, (QStringList{target("Info.plist"), target("a/b/c")}));
        EXPECT_EQ(copies, 4);
    }
    EXPECT_EQ(contents(target("a/b/c")), "deep");

    for (const auto kind :
         {NSFileManager::Operation::Copy, NSFileManager::Operation::SetPermissions}) {
        const FaultHookGuard guard(failing(kind, "Info.plist"));
        EXPECT_EQ(failures(install()), target("Info.plist") + ": No space left on device");
    }
}

TEST_F(ThemeInstallationTest, RootAndWorkingFolderThatCannotBeWrittenAreNamed)
{
    put(locations.packageRoot, "a file");
    put(locations.documents, "a file");
    const SaveReport report = copyTheme(beginEditing(resources, "Theme", locations));
    for (const QString &path : {locations.packageFolder(), locations.workingCopyFolder(),
                                locations.workingCopy(), target("a/b/c")})
        EXPECT_TRUE(failures(report).contains(path + ": Not a directory"))
            << failures(report).toStdString();
    EXPECT_TRUE(report.written.isEmpty());
    EXPECT_EQ(contents(locations.packageRoot), "a file");
    EXPECT_TRUE(failures(copyTheme(beginInstalling(resources, "..", locations)))
                    .contains("..: No such file or directory"));
}
