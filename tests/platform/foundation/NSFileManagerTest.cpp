#include "platform/foundation/NSFileManager.h"

#include "support/Files.h"

#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
using FM = NSFileManager;

struct NSFileManagerTest : testing::Test {
    QTemporaryDir folder;
    QString path(const char *name) const { return folder.filePath(QLatin1String(name)); }
};

unsigned permissions(const QString &path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path), &status) == 0 ? status.st_mode & 07777U : 0U;
}
} // namespace

TEST_F(NSFileManagerTest, WritesWholeFilesAndLeavesNothingElse)
{
    const QByteArray large(3'000'000, 'x');
    const mode_t previous = ::umask(027);
    for (const QByteArray &bytes : {QByteArray("first"), large, QByteArray(), QByteArray("last")}) {
        ASSERT_FALSE(FM::writeToFile(path("file"), bytes));
        EXPECT_EQ(contents(path("file")), bytes);
        EXPECT_EQ(tree(folder.path()), QStringList("file"));
    }
    ::umask(previous);
    EXPECT_EQ(permissions(path("file")), 0640U);
}

TEST_F(NSFileManagerTest, AFailedWriteLeavesNoTemporaryFile)
{
    put(path("target/inside"), "kept"); // a folder cannot be replaced by a file
    EXPECT_EQ(FM::writeToFile(path("target"), "new"), std::errc::is_a_directory);
    EXPECT_EQ(tree(folder.path()), QStringList({"target", "target/inside"}));
    FM::removeItemAtPath(path("target"));

    put(path("file"), "old");
    for (const auto &[operation, stands] :
         {std::pair(FM::Operation::Replace, "old"), std::pair(FM::Operation::Flush, "new")}) {
        const FaultHookGuard guard(failing(operation, "", std::errc::io_error));
        EXPECT_EQ(FM::writeToFile(path("file"), "new"), std::errc::io_error);
        EXPECT_EQ(contents(path("file")), stands);
        EXPECT_EQ(tree(folder.path()), QStringList("file"));
    }
}

TEST_F(NSFileManagerTest, MovesOverAFileAndMovesALinkItself)
{
    put(path("file"), "new");
    put(path("below/target"), "old");
    EXPECT_FALSE(FM::moveItemAtPath(path("file"), path("below/target")));
    EXPECT_EQ(contents(path("below/target")), "new");
    ASSERT_TRUE(QFile::link(path("below/target"), path("link")));
    EXPECT_FALSE(FM::moveItemAtPath(path("link"), path("moved")));
    EXPECT_EQ(FM::itemAtPath(path("moved")).kind, FM::Kind::Link);
    EXPECT_EQ(tree(folder.path()), QStringList({"below", "below/target", "moved"}));
}

TEST_F(NSFileManagerTest, FailuresCarryTheSystemsReason)
{
    put(path("file"), "text");
    QDir().mkpath(path("folder"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")), 0600), 0);
    put(path("hole"), "");
    ASSERT_EQ(::truncate(QFile::encodeName(path("hole")), FM::largestReadable + 1), 0);
    const QString below = path("file/below/deep");
    const QString missing = path("missing/file");
    const std::pair<std::errc, std::vector<std::error_code>> cases[] = {
        {std::errc::not_a_directory,
         {FM::createDirectoryAtPath(below), FM::createDirectoryAtPath(path("file")),
          FM::writeToFile(below, "x"), FM::setPosixPermissions(below, 0777),
          FM::enumeratorAtPath(path("file")).error}},
        {std::errc::no_such_file_or_directory,
         {FM::writeToFile(missing, "x"), FM::moveItemAtPath(missing, path("new")),
          FM::copyItemAtPath(path("file"), missing), FM::enumeratorAtPath(missing).error,
          FM::contentsOfDirectoryAtPath(missing).error, FM::removeItemAtPath(missing),
          FM::contentsAtPath(missing).error}},
        {std::errc::is_a_directory,
         {FM::moveItemAtPath(path("file"), path("folder")),
          FM::contentsAtPath(path("folder")).error}},
        {std::errc::invalid_argument, {FM::contentsAtPath(path("pipe")).error}},
        {std::errc::file_too_large, {FM::contentsAtPath(path("hole")).error}},
        {std::errc::filename_too_long, {FM::itemAtPath(folder.filePath(QString(300, 'x'))).error}},
    };
    for (const auto &[expected, errors] : cases)
        for (std::size_t i = 0; i < errors.size(); ++i)
            EXPECT_EQ(errors[i], expected) << "call " << i << ": " << errors[i].message();
    EXPECT_EQ(tree(folder.path()), QStringList({"file", "folder", "hole", "pipe"}));

    const QString faulty = path("folder");
    const FaultHookGuard guard([&](FM::Operation, const QString &asked) {
        return std::error_code(asked == faulty ? EIO : 0, std::generic_category());
    });
    EXPECT_FALSE(FM::fileExistsAtPath(faulty));
    for (const auto &error :
         {FM::itemAtPath(faulty).error, FM::contentsOfDirectoryAtPath(faulty).error,
          FM::enumeratorAtPath(faulty).error, FM::copyItemAtPath(path("file"), faulty)})
        EXPECT_EQ(error, std::errc::io_error);
}

TEST_F(NSFileManagerTest, NeverTouchesWhatALinkPointsTo)
{
    put(path("outside/file"), "kept");
    const unsigned before = permissions(path("outside/file"));
    ASSERT_FALSE(FM::createDirectoryAtPath(path("package/inner")));
    ASSERT_TRUE(QFile::link(path("outside"), path("package/inner/folder")));
    ASSERT_TRUE(QFile::link(path("outside/file"), path("package/link")));
    ASSERT_TRUE(QFile::link(path("nowhere"), path("dangling")));

    EXPECT_TRUE(FM::fileExistsAtPath(path("dangling")));
    EXPECT_TRUE(FM::setPosixPermissions(path("package/link"), 0777));
    EXPECT_EQ(permissions(path("outside/file")), before);
    EXPECT_FALSE(FM::removeItemAtPath(path("package")));
    EXPECT_FALSE(FM::removeItemAtPath(path("dangling")));
    EXPECT_EQ(tree(folder.path()), QStringList({"outside", "outside/file"}));
}

TEST_F(NSFileManagerTest, EnumeratesAndCopiesTreesWithoutFollowingLinks)
{
    put(path("from/b/2"), "two");
    put(path("from/b-file"), "");
    put(path("from/a"), "one");
    QDir().mkpath(path("from/empty"));
    ASSERT_TRUE(QFile::link(path(""), path("from/loop")));
    ASSERT_TRUE(QFile::link("nowhere", path("from/b/dangling")));
    const auto found = FM::enumeratorAtPath(path("from"));
    EXPECT_FALSE(found.error);
    EXPECT_EQ(found.paths, (QStringList{"a", "b", "b/2", "b/dangling", "b-file", "empty", "loop"}));
    EXPECT_EQ(FM::contentsOfDirectoryAtPath(path("from")).names,
              (QStringList{"a", "b", "b-file", "empty", "loop"}));

    EXPECT_FALSE(FM::copyItemAtPath(path("from"), path("to")));
    EXPECT_EQ(tree(path("to")), tree(path("from")));
    EXPECT_EQ(contents(path("to/b/2")), "two");
    EXPECT_EQ(FM::itemAtPath(path("to/loop")).kind, FM::Kind::Link);
    EXPECT_EQ(FM::itemAtPath(path("to/b")).kind, FM::Kind::Folder);
    EXPECT_EQ(FM::itemAtPath(path("to/none")).kind, FM::Kind::Nothing);

    // A target that stands already is kept, even a dangling link, and even under a folder.
    put(path("to/b/2"), "mine");
    EXPECT_EQ(FM::copyItemAtPath(path("from/b"), path("to/b")), std::errc::file_exists);
    EXPECT_EQ(FM::copyItemAtPath(path("from/a"), path("to/b/dangling")), std::errc::file_exists);
    EXPECT_EQ(contents(path("to/b/2")), "mine");
}
