#include "platform/foundation/NSFileManager.h"

#include "support/Files.h"

#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
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
        ASSERT_FALSE(NSFileManager::writeToFile(path("file"), bytes));
        EXPECT_EQ(contents(path("file")), bytes);
        EXPECT_EQ(tree(folder.path()), QStringList("file"));
    }
    ::umask(previous);
    EXPECT_EQ(permissions(path("file")), 0640U);
}

TEST_F(NSFileManagerTest, AFailedWriteLeavesNoTemporaryFile)
{
    put(path("target/inside"), "kept"); // a folder cannot be replaced by a file
    EXPECT_EQ(NSFileManager::writeToFile(path("target"), "new"), std::errc::is_a_directory);
    EXPECT_EQ(tree(folder.path()), QStringList({"target", "target/inside"}));
    NSFileManager::removeItemAtPath(path("target"));

    put(path("file"), "old");
    using Operation = NSFileManager::Operation;
    for (const auto &[failing, stands] :
         {std::pair(Operation::Replace, "old"), std::pair(Operation::Flush, "new")}) {
        const FaultHookGuard guard([=](Operation operation, const QString &) {
            return operation == failing ? std::make_error_code(std::errc::io_error)
                                        : std::error_code();
        });
        EXPECT_EQ(NSFileManager::writeToFile(path("file"), "new"), std::errc::io_error);
        EXPECT_EQ(contents(path("file")), stands);
        EXPECT_EQ(tree(folder.path()), QStringList("file"));
    }
}

TEST_F(NSFileManagerTest, MovesOverAFileAndMovesALinkItself)
{
    put(path("file"), "new");
    put(path("below/target"), "old");
    EXPECT_FALSE(NSFileManager::moveItemAtPath(path("file"), path("below/target")));
    EXPECT_EQ(contents(path("below/target")), "new");
    ASSERT_TRUE(QFile::link(path("below/target"), path("link")));
    EXPECT_FALSE(NSFileManager::moveItemAtPath(path("link"), path("moved")));
    EXPECT_EQ(NSFileManager::itemAtPath(path("moved")).kind, NSFileManager::Kind::Link);
    EXPECT_EQ(tree(folder.path()), QStringList({"below", "below/target", "moved"}));
}

TEST_F(NSFileManagerTest, FailuresCarryTheSystemsReason)
{
    put(path("file"), "text");
    QDir().mkpath(path("folder"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")), 0600), 0);
    put(path("hole"), "");
    ASSERT_EQ(::truncate(QFile::encodeName(path("hole")), NSFileManager::largestReadable + 1), 0);
    const QString below = path("file/below/deep");
    const QString missing = path("missing/file");
    using FM = NSFileManager;
    const struct {
        const char *name;
        std::error_code error;
        std::errc expected;
    } cases[] = {
        {"create below a file", FM::createDirectoryAtPath(below), std::errc::not_a_directory},
        {"create over a file", FM::createDirectoryAtPath(path("file")), std::errc::not_a_directory},
        {"write below a file", FM::writeToFile(below, "x"), std::errc::not_a_directory},
        {"write nowhere", FM::writeToFile(missing, "x"), std::errc::no_such_file_or_directory},
        {"permissions", FM::setPosixPermissions(below, 0777), std::errc::not_a_directory},
        {"move", FM::moveItemAtPath(missing, path("new")), std::errc::no_such_file_or_directory},
        {"move over a folder", FM::moveItemAtPath(path("file"), path("folder")),
         std::errc::is_a_directory},
        {"copy", FM::copyItemAtPath(path("file"), missing), std::errc::no_such_file_or_directory},
        {"enumerate", FM::enumeratorAtPath(missing).error, std::errc::no_such_file_or_directory},
        {"enumerate a file", FM::enumeratorAtPath(path("file")).error, std::errc::not_a_directory},
        {"remove", FM::removeItemAtPath(missing), std::errc::no_such_file_or_directory},
        {"read", FM::contentsAtPath(missing).error, std::errc::no_such_file_or_directory},
        {"read a folder", FM::contentsAtPath(path("folder")).error, std::errc::is_a_directory},
        {"read a pipe", FM::contentsAtPath(path("pipe")).error, std::errc::invalid_argument},
        {"read a hole", FM::contentsAtPath(path("hole")).error, std::errc::file_too_large},
    };
    for (const auto &[name, error, expected] : cases)
        EXPECT_EQ(error, expected) << name << ": " << error.message();
    EXPECT_EQ(tree(folder.path()), QStringList({"file", "folder", "hole", "pipe"}));
}

TEST_F(NSFileManagerTest, NeverTouchesWhatALinkPointsTo)
{
    put(path("outside/file"), "kept");
    const unsigned before = permissions(path("outside/file"));
    ASSERT_FALSE(NSFileManager::createDirectoryAtPath(path("package/inner")));
    ASSERT_TRUE(QFile::link(path("outside"), path("package/inner/folder")));
    ASSERT_TRUE(QFile::link(path("outside/file"), path("package/link")));
    ASSERT_TRUE(QFile::link(path("nowhere"), path("dangling")));

    EXPECT_TRUE(NSFileManager::fileExistsAtPath(path("dangling")));
    EXPECT_TRUE(NSFileManager::setPosixPermissions(path("package/link"), 0777));
    EXPECT_EQ(permissions(path("outside/file")), before);
    EXPECT_FALSE(NSFileManager::removeItemAtPath(path("package")));
    EXPECT_FALSE(NSFileManager::removeItemAtPath(path("dangling")));
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
    const auto found = NSFileManager::enumeratorAtPath(path("from"));
    EXPECT_FALSE(found.error);
    EXPECT_EQ(found.paths, (QStringList{"a", "b", "b/2", "b/dangling", "b-file", "empty", "loop"}));

    EXPECT_FALSE(NSFileManager::copyItemAtPath(path("from"), path("to")));
    EXPECT_EQ(tree(path("to")), tree(path("from")));
    EXPECT_EQ(contents(path("to/b/2")), "two");
    using Kind = NSFileManager::Kind;
    EXPECT_EQ(NSFileManager::itemAtPath(path("to/loop")).kind, Kind::Link);
    EXPECT_EQ(NSFileManager::itemAtPath(path("to/b")).kind, Kind::Folder);
    EXPECT_EQ(NSFileManager::itemAtPath(path("to/none")).kind, Kind::Nothing);

    // A target that stands already is kept, even a dangling link, and even under a folder.
    put(path("to/b/2"), "mine");
    EXPECT_EQ(NSFileManager::copyItemAtPath(path("from/b"), path("to/b")), std::errc::file_exists);
    EXPECT_EQ(NSFileManager::copyItemAtPath(path("from/a"), path("to/b/dangling")),
              std::errc::file_exists);
    EXPECT_EQ(contents(path("to/b/2")), "mine");
}
