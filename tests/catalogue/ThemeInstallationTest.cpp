#include "catalogue/ThemeInstallation.h"

#include "support/ThemeFixture.h"

namespace
{
using enum NSFileManager::Operation;

struct ThemeInstallationTest : ThemeFixture {
    void SetUp() override
    {
        put(resources + "/Theme/Info.plist", "info");
        put(resources + "/Theme/a/b/c", "deep");
    }
    SaveReport install() { return copyTheme(beginInstalling(resources, "Theme", locations)); }
    QString target(const QString &file) const { return locations.packageFolder() + '/' + file; }
};
} // namespace

TEST_F(ThemeInstallationTest, LinksAreReplacedNotFollowed)
{
    const QString elsewhere = folder.filePath("elsewhere");
    put(elsewhere + "/keep", "kept");
    QDir().mkpath(locations.packageRoot);
    ASSERT_TRUE(QFile::link(elsewhere, locations.packageFolder()));
    ASSERT_TRUE(QFile::link(elsewhere, resources + "/Theme/out"));
    EXPECT_EQ(install().notice(), "");
    EXPECT_FALSE(QFileInfo(locations.packageFolder()).isSymLink());
    EXPECT_TRUE(QFileInfo(target("out")).isSymLink()); // copied as what it is
    EXPECT_EQ(install().notice(), "");                 // and removed as that

    // And where the link cannot be removed, nothing is written behind it.
    NSFileManager::removeItemAtPath(locations.packageFolder());
    ASSERT_TRUE(QFile::link(elsewhere, locations.packageFolder()));
    const FaultHookGuard guard(failing(Remove, ""));
    EXPECT_TRUE(install().notice().contains(locations.packageFolder() + ": "));
    EXPECT_EQ(tree(elsewhere), QStringList{"keep"});
}

TEST_F(ThemeInstallationTest, OnlyTargetsThatAreWrongInTheEndAreFailures)
{
    {
        // The folder's copy breaks off in the middle; what is in it is then copied by itself.
        const FaultHookGuard guard([&](NSFileManager::Operation operation, const QString &path) {
            if (operation != Copy || path != target("a"))
                return std::error_code();
            NSFileManager::createDirectoryAtPath(path);
            return std::make_error_code(std::errc::io_error);
        });
        const SaveReport report = install();
        EXPECT_EQ(report.notice(), "");
        EXPECT_EQ(report.written, (QStringList{target("Info.plist"), target("a/b/c")}));
    }
    EXPECT_EQ(contents(target("a/b/c")), "deep");
    for (const auto kind : {Copy, SetPermissions, Read}) {
        const FaultHookGuard guard(failing(kind, target("Info.plist")));
        EXPECT_TRUE(install().notice().endsWith("written.\n" + target("Info.plist") +
                                                ": No space left on device"));
    }
}

TEST_F(ThemeInstallationTest, OnlyWhatWouldBeChangedIsRefused)
{
    put(target("old"), "stays");
    for (const QString name : {"", ".", "..", "../Theme", "Theme/a", "/etc"})
        EXPECT_NE(copyTheme(beginInstalling(resources, name, locations)).refusal, "");
    QDir().mkpath(locations.documents);
    ASSERT_TRUE(QFile::link(resources, locations.workingCopyFolder()));
    EXPECT_NE(copyTheme(beginEditing(resources, "Theme", locations)).refusal, "");
    EXPECT_EQ(tree(locations.packageFolder()), QStringList{"old"});
    EXPECT_EQ(install().refusal, ""); // which leaves the choices alone
    EXPECT_EQ(contents(target("Info.plist")), "info");
}
