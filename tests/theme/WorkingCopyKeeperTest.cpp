// What a fault or a kill at each single operation leaves behind is InterruptionTest's.
#include "theme/WorkingCopyKeeper.h"

#include "platform/foundation/PropertyList.h"
#include "support/ThemeFixture.h"

using namespace Qt::StringLiterals;
using Restored = WorkingCopyKeeper::Restored;

namespace
{
QByteArray choices(const QString &name)
{
    PropertyDictionary dictionary;
    dictionary.setValue(u"name"_s, name);
    return PropertyList::writeDictionary(dictionary);
}

const QByteArray first = choices(u"first"_s), second = choices(u"second"_s),
                 third = choices(u"third"_s);

struct WorkingCopyKeeperTest : ThemeFixture {
    std::shared_ptr<WorkingCopyKeeper> open() const { return WorkingCopyKeeper::open(locations); }

    void replace(const QByteArray &bytes) const
    {
        const auto keeper = open();
        ASSERT_TRUE(keeper->begin()) << keeper->refusal().toStdString();
        EXPECT_FALSE(NSFileManager::fileExistsAtPath(locations.workingCopy()));
        QDir().mkpath(locations.workingCopyFolder());
        EXPECT_FALSE(keeper->write(bytes));
        EXPECT_FALSE(keeper->end());
    }

    /// Empty bytes: no such file.
    void expectStands(const QByteArray &working, const QByteArray &earlier) const
    {
        EXPECT_EQ(contents(locations.workingCopy()), working);
        EXPECT_EQ(contents(locations.earlierWorkingCopy()), earlier);
        EXPECT_FALSE(NSFileManager::fileExistsAtPath(locations.workingCopyAside()));
    }

    void linkTo(const QString &target, const QString &path) const
    {
        QDir().mkpath(QFileInfo(path).path());
        ASSERT_TRUE(QFile::link(target, path));
    }
};
} // namespace

TEST_F(WorkingCopyKeeperTest, TheEarlierChoicesAreTheLastThatDiffered)
{
    const QByteArray strange = "no property list, but somebody's";
    const std::pair<QByteArray, QByteArray> steps[] = {
        {first, {}}, {second, first}, {second, first}, {strange, second}, {third, strange}};
    for (const auto &[bytes, earlier] : steps) {
        replace(bytes);
        expectStands(bytes, earlier);
    }
    auto keeper = open();
    ASSERT_TRUE(keeper->begin());
    EXPECT_EQ(keeper->write({}, std::make_error_code(std::errc::io_error)), std::errc::io_error);
    keeper.reset(); // given up
    expectStands(third, strange);
    keeper = open();
    ASSERT_TRUE(keeper->begin());
    EXPECT_FALSE(keeper->write(first));
    EXPECT_FALSE(keeper->end());
    expectStands(first, third);
    ASSERT_TRUE(keeper->begin()); // for a theme without choices of its own
    EXPECT_FALSE(keeper->end());
    expectStands({}, first);
    EXPECT_EQ(keeper->restore().outcome, Restored::Done);
    expectStands(first, {});
}

TEST_F(WorkingCopyKeeperTest, RestoringTwiceChangesNothing)
{
    EXPECT_EQ(open()->restore().outcome, Restored::NothingToRestore);
    replace(first);
    EXPECT_EQ(open()->restore().outcome, Restored::NothingToRestore);
    replace(second);
    EXPECT_EQ(open()->restore().outcome, Restored::Done);
    expectStands(first, second);
    EXPECT_EQ(open()->restore().outcome, Restored::Done);
    expectStands(second, first);
    put(locations.earlierWorkingCopy(), "no property list");
    EXPECT_EQ(open()->restore().outcome, Restored::Failed);
    expectStands(second, "no property list");
}

TEST_F(WorkingCopyKeeperTest, OnlyWholeNewChoicesWinARecovery)
{
    testing::internal::CaptureStderr(); // each recovery is logged
    const qsizetype end = second.indexOf("</dict>") + qsizetype(qstrlen("</dict>"));
    for (qsizetype length = 0; length <= second.size(); length += length + 30 < end ? 13 : 1) {
        put(locations.earlierWorkingCopy(), third);
        put(locations.workingCopyAside(), first);
        put(locations.workingCopy(), second.first(length));
        EXPECT_TRUE(open()->refusal().isEmpty());
        const bool newOnesStand = contents(locations.workingCopy()) != first;
        EXPECT_TRUE(length >= end || !newOnesStand) << length; // at `end`, every choice is there
        expectStands(newOnesStand ? second.first(length) : first, newOnesStand ? first : third);
    }
    // What cannot be read now may be all that there is.
    put(locations.workingCopyAside(), first);
    {
        const FaultHookGuard guard(
            failing(NSFileManager::Operation::Read, locations.workingCopy()));
        EXPECT_TRUE(open()->refusal().contains("No space left"_L1));
    }
    EXPECT_EQ(contents(locations.workingCopyAside()), first);
    testing::internal::GetCapturedStderr();
}

TEST_F(WorkingCopyKeeperTest, RefusesFoldersInWhichSomethingWouldBeLost)
{
    const QString outside = folder.filePath("outside");
    put(outside + "/Info.plist", first);
    put(outside + "/Info.previous.plist", second);
    linkTo(outside, locations.workingCopyFolder());
    EXPECT_TRUE(open()->refusal().isEmpty()); // reading is all right
    EXPECT_TRUE(open()->lock());              // and so is changing the package alone
    EXPECT_EQ(open()->restore().outcome, Restored::Failed);
    EXPECT_FALSE(open()->begin());
    EXPECT_EQ(tree(outside), (QStringList{"Info.plist", "Info.previous.plist"}));

    // The working copy in the package, or behind a link to it.
    const QString root = locations.packageRoot;
    linkTo(root, folder.filePath("link"));
    for (const QString &documents : {root, root + "/Tintloom", folder.filePath("link")})
        EXPECT_FALSE(WorkingCopyKeeper::open({root, documents})->lock()) << documents.toStdString();
    EXPECT_TRUE(WorkingCopyKeeper::open({root + "/Tintloom", root})->begin());
}

TEST_F(WorkingCopyKeeperTest, RemovesItsOwnTemporaryFilesOnly)
{
    const QString temporary = "/Info.plist.tintloom-0123456789abcdef";
    const QString outside = folder.filePath("outside");
    linkTo(outside, locations.indicatorFolder());
    const QStringList others = {
        outside + temporary, locations.workingCopyFolder() + "/Info.plist.bak",
        locations.workingCopyFolder() + "/Info.plist.tintloom-0123456789abcdeg",
        locations.workingCopyFolder() + "/a.tintloom-00000000000000ff/inside"};
    for (const QString &path : others)
        put(path, "theirs");
    const QStringList before = tree(folder.path());
    put(locations.packageFolder() + temporary, "x");
    put(locations.workingCopyFolder() + temporary, "x");
    open();
    EXPECT_EQ(tree(folder.path()), before);
}

TEST_F(WorkingCopyKeeperTest, OneAtATime)
{
    FolderLocks::setPatience(std::chrono::milliseconds(0));
    auto holder = open();
    ASSERT_TRUE(holder->begin());
    const QString elsewhere = folder.filePath("other");
    for (const ThemeLocations &other : {locations, ThemeLocations{locations.packageRoot, elsewhere},
                                        ThemeLocations{elsewhere, locations.documents}})
        EXPECT_TRUE(WorkingCopyKeeper::open(other)->refusal().contains("another Tintloom"));
    FolderLocks::setPatience(std::chrono::milliseconds(5000));
    holder.reset();
    EXPECT_TRUE(open()->begin());
}
