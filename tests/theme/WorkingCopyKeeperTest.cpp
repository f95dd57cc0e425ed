#include "theme/WorkingCopyKeeper.h"

#include "platform/PropertyList.h"
#include "support/ThemeFixture.h"

using namespace Qt::StringLiterals;
using Operation = NSFileManager::Operation;
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
    void SetUp() override
    {
        WorkingCopyKeeper::setPatience(std::chrono::milliseconds(0));
        testing::internal::CaptureStderr();
    }
    void TearDown() override
    {
        testing::internal::GetCapturedStderr();
        WorkingCopyKeeper::setPatience(std::chrono::milliseconds(5000));
    }

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

NSFileManager::FaultHook failing(Operation operation, const QString &path)
{
    return [=](Operation asked, const QString &askedPath) {
        return asked == operation && askedPath == path
                   ? std::make_error_code(std::errc::no_space_on_device)
                   : std::error_code();
    };
}
} // namespace

TEST_F(WorkingCopyKeeperTest, TheEarlierChoicesAreTheLastThatDiffered)
{
    replace(first);
    expectStands(first, {});
    replace(second);
    expectStands(second, first);
    replace(second);
    expectStands(second, first);
    replace("no property list, but somebody's");
    replace(third);
    expectStands(third, "no property list, but somebody's");

    put(folder.filePath(u"theme"_s), first);
    {
        const auto keeper = open();
        ASSERT_TRUE(keeper->begin());
        EXPECT_FALSE(keeper->copy(folder.filePath(u"theme"_s)));
        EXPECT_FALSE(keeper->end());
    }
    expectStands(first, third);
    for (int round = 0; round < 2; ++round) { // a theme without choices of its own
        const auto keeper = open();
        ASSERT_TRUE(keeper->begin());
        EXPECT_FALSE(keeper->end());
        expectStands({}, first);
    }
    EXPECT_EQ(open()->restore().outcome, Restored::Done);
    expectStands(first, {});
}

TEST_F(WorkingCopyKeeperTest, WithoutNewChoicesTheOldOnesComeBack)
{
    replace(first);
    replace(second);
    {
        const FaultHookGuard guard(failing(Operation::Write, locations.workingCopy()));
        const auto keeper = open();
        ASSERT_TRUE(keeper->begin());
        EXPECT_EQ(keeper->write(third), std::errc::no_space_on_device);
        EXPECT_FALSE(keeper->end());
    }
    expectStands(second, first);
    open()->begin(); // and given up
    expectStands(second, first);
    {
        const auto keeper = open();
        ASSERT_TRUE(keeper->begin());
        EXPECT_EQ(keeper->copy(folder.filePath(u"missing"_s)),
                  std::errc::no_such_file_or_directory);
    }
    expectStands(second, first);
    {
        const FaultHookGuard guard(failing(Operation::Move, locations.workingCopy()));
        const auto keeper = open();
        ASSERT_TRUE(keeper->begin());
        EXPECT_EQ(keeper->write(third), std::errc::no_space_on_device);
        EXPECT_FALSE(keeper->end());
    }
    expectStands(second, first);
}

TEST_F(WorkingCopyKeeperTest, RestoringTwiceChangesNothing)
{
    EXPECT_EQ(open()->restore().outcome, Restored::NothingToRestore);
    EXPECT_FALSE(QFile::exists(locations.documents));
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
    const qsizetype end = second.indexOf("</dict>") + qsizetype(qstrlen("</dict>"));
    for (qsizetype length = 0; length <= second.size(); length += length + 30 < end ? 13 : 1) {
        put(locations.earlierWorkingCopy(), third);
        put(locations.workingCopyAside(), first);
        put(locations.workingCopy(), second.first(length));
        EXPECT_TRUE(open()->refusal().isEmpty());
        const bool newOnesStand = contents(locations.workingCopy()) != first;
        EXPECT_TRUE(length >= end || !newOnesStand) << length; // at `end`, every choice is there
        if (newOnesStand)
            expectStands(second.first(length), first);
        else
            expectStands(first, third);
    }
    expectStands(second, first);
    // What cannot be read now may be all that there is.
    put(locations.workingCopyAside(), first);
    put(locations.workingCopy(), second);
    {
        const FaultHookGuard guard(failing(Operation::Read, locations.workingCopy()));
        EXPECT_TRUE(open()->refusal().contains("No space left"_L1));
    }
    EXPECT_EQ(contents(locations.workingCopy()), second);
    EXPECT_EQ(contents(locations.workingCopyAside()), first);
}

TEST_F(WorkingCopyKeeperTest, RefusesFoldersInWhichSomethingWouldBeLost)
{
    const QString outside = folder.filePath(u"outside"_s);
    put(outside + "/Info.plist"_L1, first);
    put(outside + "/Info.previous.plist"_L1, second);
    linkTo(outside, locations.workingCopyFolder());
    const auto keeper = open();
    EXPECT_TRUE(keeper->refusal().isEmpty()); // reading is all right
    EXPECT_EQ(keeper->restore().outcome, Restored::Failed);
    EXPECT_FALSE(open()->begin());
    EXPECT_EQ(contents(outside + "/Info.plist"_L1), first);
    EXPECT_EQ(tree(outside), QStringList({"Info.plist", "Info.previous.plist"}));

    // The working copy in the package, or behind a link to it.
    const QString root = locations.packageRoot;
    linkTo(root, folder.filePath(u"link"_s));
    for (const QString &documents : {root, root + "/Tintloom"_L1, folder.filePath(u"link"_s)}) {
        const auto inside = WorkingCopyKeeper::open({root, documents});
        EXPECT_FALSE(inside->begin()) << documents.toStdString();
        EXPECT_FALSE(inside->refusal().isEmpty());
    }
    EXPECT_TRUE(WorkingCopyKeeper::open({root + "/Tintloom"_L1, root})->begin());
}

TEST_F(WorkingCopyKeeperTest, RemovesItsOwnTemporaryFilesOnly)
{
    const QStringList others = {u"Info.plist.bak"_s, u"Info.plist.tintloom-"_s,
                                u"Info.plist.tintloom-0123456789abcdeg"_s,
                                u".tintloom-0123456789abcdef.txt"_s};
    const QString temporary = u"/Info.plist.tintloom-0123456789abcdef"_s;
    const QString outside = folder.filePath(u"outside"_s);
    put(outside + temporary, "theirs");
    for (const QString &name : others)
        put(locations.workingCopyFolder() + u'/' + name, "theirs");
    linkTo(outside, locations.indicatorFolder());
    put(locations.packageFolder() + temporary, "x");
    put(locations.workingCopyFolder() + temporary, "x");
    put(locations.workingCopyFolder() + "/a.tintloom-00000000000000ff/inside"_L1, "theirs");
    open();
    EXPECT_EQ(tree(locations.packageRoot), QStringList({"Tintloom", "Tintloom/UIKit"}));
    EXPECT_EQ(QDir(locations.workingCopyFolder()).entryList(QDir::Files | QDir::Hidden).size(),
              others.size());
    EXPECT_TRUE(
        QFile::exists(locations.workingCopyFolder() + "/a.tintloom-00000000000000ff/inside"_L1));
    EXPECT_EQ(contents(outside + temporary), "theirs");
}

TEST_F(WorkingCopyKeeperTest, OneAtATime)
{
    auto holder = open();
    ASSERT_TRUE(holder->begin());
    for (const ThemeLocations &other :
         {locations, ThemeLocations{locations.packageRoot, folder.filePath(u"other"_s)},
          ThemeLocations{folder.filePath(u"other"_s), locations.documents}}) {
        const auto refused = WorkingCopyKeeper::open(other);
        EXPECT_TRUE(refused->refusal().contains("another Tintloom"_L1));
        EXPECT_FALSE(refused->begin());
    }
    holder.reset();
    EXPECT_TRUE(open()->begin());
}
