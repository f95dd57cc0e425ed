// A command on the kept themes is killed, or its disk fails, at each file operation in turn; then
// the next program looks. A new command that changes kept themes needs one line in `libraryFlows`.
#include "library/ThemeLibrary.h"
#include "support/ProgramFixture.h"
#include "theme/WorkingCopyKeeper.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{
const QString background = u"list-background-image"_s;

struct LibraryFlow {
    const char *name;
    QString arguments;
    QStringList after; // kept themes with their colours when nothing has disturbed it
};

const QStringList before{u"Lake #00B"_s, u"Sea #0A0"_s};
const std::vector<LibraryFlow> libraryFlows = {
    {"keep", u"keep --scale=1 New"_s, {u"Lake #00B"_s, u"New #C00"_s, u"Sea #0A0"_s}},
    {"replace", u"keep --scale=1 --replace sea"_s, {u"Lake #00B"_s, u"sea #C00"_s}},
    {"rename", u"rename Lake Zoo"_s, {u"Sea #0A0"_s, u"Zoo #00B"_s}},
    {"duplicate", u"duplicate Sea Zoo"_s, before + QStringList{u"Zoo #0A0"_s}},
    {"remove", u"remove Sea"_s, {u"Lake #00B"_s}},
    {"undo", u"remove --undo Gone"_s, {u"Gone #123"_s, u"Lake #00B"_s, u"Sea #0A0"_s}},
    {"undo beside a new one",
     u"remove --undo Old"_s,
     {u"Lake #00B"_s, u"Old #456"_s, u"Old 2 #789"_s, u"Sea #0A0"_s}},
};

struct LibraryInterruptionTest : ProgramFixture,
                                 testing::WithParamInterface<std::tuple<size_t, std::string>> {
    void SetUp() override
    {
        putElements({element(background.toUtf8(), "\"#FFF\""),
                     element("unread-indicator-image", "\"#0A0\"")});
    }

    static PropertyDictionary infoOf(const QString &text)
    {
        PropertyDictionary info = ElementDataSource().predefinedDict();
        info.setValue(background, text);
        return info;
    }
    void keep(const QString &name, const QString &text) const
    {
        PackageContents package{infoOf(text), {{u"a/b"_s, "deep"}, {u"read me"_s, ""}}};
        EXPECT_TRUE(ThemeLibrary::open(locations.documents)
                        ->keep(package, name, ThemeLibrary::IfTaken::Refuse)
                        .isDone());
    }
    void remove(const QString &name) const
    {
        EXPECT_TRUE(ThemeLibrary::open(locations.documents)->remove(name).isDone());
    }

    /// Made once, then copied: to flush all that to the disk each time would take long.
    void prepare(const LibraryFlow &flow) const
    {
        const QString ready = folder.filePath("ready");
        NSFileManager::removeItemAtPath(locations.documents);
        if (!NSFileManager::fileExistsAtPath(ready)) {
            make(flow);
            ASSERT_FALSE(NSFileManager::moveItemAtPath(locations.documents, ready));
        }
        ASSERT_FALSE(NSFileManager::copyItemAtPath(ready, locations.documents));
    }

    void make(const LibraryFlow &flow) const
    {
        put(locations.workingCopy(), PropertyList::writeDictionary(infoOf(u"#C00"_s)));
        keep(u"Sea"_s, u"#0A0"_s);
        keep(u"Lake"_s, u"#00B"_s);
        keep(u"Gone"_s, u"#123"_s);
        remove(u"Gone"_s);
        if (!flow.after.contains(u"Old #456"_s))
            return;
        keep(u"Old"_s, u"#789"_s);
        remove(u"Old"_s);
        keep(u"Old"_s, u"#456"_s);
    }

    /// The kept themes with their colours, as the next program finds them; whole ones.
    QStringList found() const
    {
        testing::internal::CaptureStderr();
        QStringList list;
        const auto keeper = WorkingCopyKeeper::open(locations);
        const auto library = ThemeLibrary::open(locations.documents);
        EXPECT_EQ(library->refusal(), "");
        for (const KeptTheme &theme : library->themes()) {
            const auto package = library->read(theme.name).contents.value_or(PackageContents());
            EXPECT_GE(package.files.size(), 2U) << "not whole";
            const QVariant *value = package.info.find(background);
            list.append(theme.name + u' ' + (value ? value->toString() : u"not whole"_s));
        }
        testing::internal::GetCapturedStderr();
        const QStringList all = tree(locations.documents);
        EXPECT_TRUE(all.filter(QRegularExpression(u"tintloom-[0-9a-f]{16}|\\.New"_s)).isEmpty())
            << all.join('\n').toStdString();
        return list;
    }

    Finished runWithFault(const LibraryFlow &flow, const QString &fault) const
    {
        prepare(flow);
        return run(flow.arguments, {{u"TINTLOOM_TEST_FAULT"_s, fault}}, faultyProgram);
    }
};
} // namespace

TEST_P(LibraryInterruptionTest, LeavesTheOldStateOrTheNewOneWhole)
{
    const auto &[number, kind] = GetParam();
    const LibraryFlow &flow = libraryFlows[number];
    SCOPED_TRACE(flow.name);
    prepare(flow);
    const QStringList old = found();
    const Finished counted = runWithFault(flow, u"count"_s);
    ASSERT_EQ(counted.exitCode, 0) << counted.err.toStdString();
    ASSERT_EQ(found(), flow.after);
    const int operations = counted.err.sliced(counted.err.lastIndexOf(' ')).trimmed().toInt();
    ASSERT_GT(operations, 10);
    int changed = 0;
    for (int operation = 0; operation < operations; ++operation) {
        SCOPED_TRACE(operation);
        const Finished ended = runWithFault(flow, u"%1:%2"_s.arg(kind.c_str()).arg(operation));
        ASSERT_EQ(ended.crashed ? ended.exitCode : 0, kind == "kill" ? SIGKILL : 0);
        // Choices that cannot be read are none, as for a save: the list's own are kept then.
        QStringList after = found();
        if (ended.err.contains("Saved choices cannot be read"))
            after.replaceInStrings(u"#FFF"_s, u"#C00"_s);
        EXPECT_TRUE(after == flow.after || (after == old && (ended.crashed || ended.exitCode != 0)))
            << after.join(u", "_s).toStdString() << '\n'
            << ended.err.toStdString();
        changed += after == flow.after;
        if (after.contains(u"Sea #0A0"_s)) { // all is as usual again
            EXPECT_TRUE(ThemeLibrary::open(locations.documents)->rename("sea", "Again").isDone());
        }
    }
    EXPECT_GT(changed, 0);
    EXPECT_TRUE(changed < operations);
}

INSTANTIATE_TEST_SUITE_P(Flows, LibraryInterruptionTest,
                         testing::Combine(testing::Range(size_t(0), libraryFlows.size()),
                                          testing::Values("kill", "full", "denied")));

using TwoLibrariesTest = LibraryInterruptionTest;

TEST_F(TwoLibrariesTest, TheSecondWaitsAndBothResultsStand)
{
    const LibraryFlow &flow = libraryFlows[1];
    const Finished counted = runWithFault(flow, u"count"_s);
    const int operations = counted.err.sliced(counted.err.lastIndexOf(' ')).trimmed().toInt();
    prepare(flow);
    QProcess first, second;
    start(first, faultyProgram, flow.arguments,
          {{u"TINTLOOM_TEST_FAULT"_s, u"pause:%1"_s.arg(operations * 3 / 4)}});
    const auto expectSoon = [](QProcess &process, const QByteArray &text) {
        process.setReadChannel(QProcess::StandardError);
        QByteArray said;
        while (!said.contains(text)) {
            ASSERT_TRUE(process.waitForReadyRead(30'000)) << said.toStdString();
            said += process.readAllStandardError();
        }
    };
    expectSoon(first, "paused\n");
    for (const QString command : {"keep Third", "remove Lake", "themes", "check Lake"})
        expectRefused(command, 1, {"another Tintloom is busy"},
                      {{u"TINTLOOM_TEST_PATIENCE"_s, u"0"_s}}, faultyProgram);
    start(second, TINTLOOM_EXECUTABLE, "rename Lake Pond");
    expectSoon(second, "Waiting for another Tintloom");
    first.write("\n");
    first.closeWriteChannel();
    EXPECT_EQ(finish(first).exitCode, 0);
    EXPECT_EQ(finish(second).exitCode, 0);
    EXPECT_EQ(found(), (QStringList{u"Pond #00B"_s, u"sea #C00"_s}));
}
