// The program is killed, or its disk fails, at each file operation in turn; then it is started
// again. A new command that replaces the working copy needs one line in `flows`.
#include "support/ProgramFixture.h"
#include "support/ThemeRecords.h"

#include <QImage>
#include <QRegularExpression>

#include <array>

using namespace Qt::StringLiterals;

namespace
{
const QString color = u"list-background-image"_s;

/// The colours in the working copy, the earlier one and the one set aside; empty when missing.
using Choices = std::array<std::string, 3>;
enum { Working, Earlier, Aside };

const Choices saved{"#00B", "#0A0", ""};

struct Flow {
    const char *name;
    QString arguments;
    Choices before;
    std::vector<Choices> allowed; // after a restart; the last is that of an undisturbed run
};

const QString saveRed = u"save --scale=1 --set list-background-image=C00"_s;
const std::vector<Flow> flows = {
    {"save", saveRed, saved, {saved, {"#CC0000FF", "#00B", ""}}},
    {"first save", saveRed, {}, {{}, {"#CC0000FF", "", ""}}},
    {"save without a change", "save --scale=1", saved, {saved}},
    {"save with a picture",
     "save --scale=1 --picture list-background-image=WHITE",
     saved,
     {saved, {"#FFFFFFFF", "#00B", ""}}},
    {"set", "set list-background-image=C00", saved, {saved, {"#CC0000FF", "#00B", ""}}},
    {"check --fix",
     "check --fix",
     {"#9AB", "#0A0", ""},
     {{"#9AB", "#0A0", ""}, {"#3D4B5AFF", "#9AB", ""}}},
    {"restore", "restore", saved, {saved, {"#0A0", "#00B", ""}}},
    {"install", "install Sea", saved, {saved}},
    {"edit", "edit Sea", saved, {saved, {"#C00", "#00B", ""}}},
    {"edit with a picture", "edit Beach", saved, {saved, {"#FFFFFFFF", "#00B", ""}}},
    {"recovery of the old choices", "list", {"", "#0A0", "#00B"}, {saved}},
    {"recovery of the new choices", "list", {"#C00", "#0A0", "#00B"}, {{"#C00", "#00B", ""}}},
};

struct InterruptionTest : ProgramFixture,
                          testing::WithParamInterface<std::tuple<size_t, std::string>> {
    void SetUp() override
    {
        putElements({on(element(color.toUtf8(), "\"#FFF\""), R"({"text":["other"]})"),
                     element("other", "\"#EEE\""), element("unread-indicator-image", "\"#0A0\"")});
        putThemes(resources, themeRecord("Quiet", "Sea"));
        putChoices(resources + "/Sea/Info.plist"_L1, "#C00");
        put(resources + "/Sea/UIKit/UnreadIndicator@2x.png"_L1, "a picture");
        QImage white(64, 114, QImage::Format_RGB32);
        white.fill(Qt::white);
        ASSERT_TRUE(white.save(whitePicture));
        prepare({"", "", ""});
        const QString edits = "--picture list-background-image=" + whitePicture;
        ASSERT_EQ(run("save --scale=1 " + edits).exitCode, 0);
        ASSERT_EQ(run("keep --scale=1 Beach").exitCode, 0);
        ASSERT_FALSE(NSFileManager::moveItemAtPath(locations.documents + "/Themes"_L1, keptThemes));
    }

    const QString whitePicture = folder.filePath("white.png");
    const QString keptThemes = folder.filePath("kept");

    /// The dictionary that the program itself would save.
    void putChoices(const QString &path, const std::string &text) const
    {
        if (text.empty())
            return;
        auto dictionary = ElementDataSource().predefinedDict();
        dictionary.setValue(color, QString::fromStdString(text));
        dictionary.setValue(u"other"_s, u"#ABC"_s);
        dictionary.setValue(u"unread-indicator-image"_s, u"#0A0"_s);
        put(path, PropertyList::writeDictionary(dictionary));
    }

    static std::string colorIn(const QString &path, const QString &key = color)
    {
        if (!NSFileManager::fileExistsAtPath(path))
            return {};
        const auto dictionary = PropertyList::readDictionary(contents(path));
        const QVariant *value = dictionary ? dictionary->find(key) : nullptr;
        return value ? value->toString().toStdString() : "not whole";
    }

    void prepare(const Choices &before) const
    {
        NSFileManager::removeItemAtPath(locations.packageRoot);
        NSFileManager::removeItemAtPath(locations.documents);
        putChoices(locations.workingCopy(), before[Working]);
        putChoices(locations.earlierWorkingCopy(), before[Earlier]);
        putChoices(locations.workingCopyAside(), before[Aside]);
        put(locations.workingCopyFolder() + "/notes.tintloom-1"_L1, "kept");
        put(locations.packageRoot + "/Other/Info.plist"_L1, "kept");
        put(locations.packageInfo(), "an earlier package");
    }

    Choices found() const
    {
        return {colorIn(locations.workingCopy()), colorIn(locations.earlierWorkingCopy()),
                colorIn(locations.workingCopyAside())};
    }

    /// What the program says and leaves when that happens at its file operations.
    Finished runWithFault(const Flow &flow, const QString &fault) const
    {
        prepare(flow.before);
        if (flow.arguments.contains("Beach"_L1)) {
            EXPECT_FALSE(
                NSFileManager::copyItemAtPath(keptThemes, locations.documents + "/Themes"_L1));
        }
        return run(QString(flow.arguments).replace("WHITE"_L1, whitePicture),
                   {{u"TINTLOOM_TEST_FAULT"_s, fault}}, faultyProgram);
    }

    int countOperations(const Flow &flow) const
    {
        const Finished run = runWithFault(flow, u"count"_s);
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_EQ(found(), flow.allowed.back());
        return run.err.sliced(run.err.lastIndexOf(' ')).trimmed().toInt(); // "operations: 23"
    }

    /// Nothing of ours is left over, and nothing of others is gone.
    void expectTidy() const
    {
        const QStringList all = tree(folder.path());
        EXPECT_TRUE(all.filter(QRegularExpression(u"tintloom-[0-9a-f]{16}|saving"_s)).isEmpty())
            << all.join('\n').toStdString();
        EXPECT_EQ(contents(locations.workingCopyFolder() + "/notes.tintloom-1"_L1), "kept");
        EXPECT_EQ(contents(locations.packageRoot + "/Other/Info.plist"_L1), "kept");
    }

    /// Pictures are there as long as choices lead to them.
    void expectPictures() const
    {
        const QString folder = locations.workingCopyFolder();
        QStringList leadingTo;
        for (const QString &path : {locations.workingCopy(), locations.earlierWorkingCopy()})
            if (NSFileManager::fileExistsAtPath(path))
                for (const auto &match : QRegularExpression(u"Picture-[0-9a-f]{64}\\.jpg"_s)
                                             .globalMatch(QString::fromUtf8(contents(path))))
                    leadingTo += match.captured();
        for (const QString &name : std::as_const(leadingTo))
            EXPECT_TRUE(NSFileManager::fileExistsAtPath(folder + u'/' + name));
        EXPECT_LE(leadingTo.size(), 1);
    }

    /// Starts the program again and returns what it then finds.
    Choices restart() const
    {
        const Choices before = found();
        const Finished listed = run("list --json");
        EXPECT_EQ(listed.exitCode, 0) << listed.err.toStdString();
        const Choices after = found();
        EXPECT_EQ(json(listed).first()["color"].toString().toStdString(),
                  after[Working].empty() ? "#FFF" : after[Working]);
        if (!before[Aside].empty()) {
            EXPECT_EQ(listed.err.contains("the new choices stand"), !before[Working].empty());
            EXPECT_EQ(listed.err.contains("the old choices are back"), before[Working].empty());
        }
        expectTidy();
        expectPictures();
        return after;
    }

    void expectSavePutsEverythingRight() const
    {
        const Finished saved = run("save --scale=1 --set list-background-image=123456");
        EXPECT_EQ(saved.exitCode, 0) << saved.err.toStdString();
        EXPECT_EQ(tree(locations.packageFolder()).size(), 4);
        EXPECT_EQ(colorIn(locations.packageInfo()), "#123456FF");
        EXPECT_EQ(contents(locations.packageInfo()), contents(locations.workingCopy()));
        expectTidy();
        expectPictures();
    }
};

void expectSoon(QProcess &process, const QByteArray &text)
{
    process.setReadChannel(QProcess::StandardError);
    QByteArray said = process.readAllStandardError();
    while (!said.contains(text)) {
        ASSERT_TRUE(process.waitForReadyRead(30'000)) << said.toStdString();
        said += process.readAllStandardError();
    }
}
} // namespace

TEST_P(InterruptionTest, LosesNothingAtAnyOperation)
{
    const auto &[number, kind] = GetParam();
    const Flow &flow = flows[number];
    SCOPED_TRACE(flow.name);
    const bool isKill = kind == "kill";
    const char *reason = kind == "full" ? "No space left on device" : "Permission denied";
    const int operations = countOperations(flow);
    ASSERT_GT(operations, 10);
    for (int operation = 0; operation < operations; ++operation) {
        SCOPED_TRACE(operation);
        const Finished ended = runWithFault(flow, u"%1:%2"_s.arg(kind.c_str()).arg(operation));
        ASSERT_EQ(ended.crashed ? ended.exitCode : 0, isKill ? SIGKILL : 0);
        const Choices after = restart();
        const bool isReported = !isKill && ended.err.contains(reason);
        EXPECT_TRUE(isKill || ended.exitCode == 0 || isReported) << ended.err.toStdString();
        // A working copy that cannot be read is none, so that a save starts from the document;
        // what could not be read then is the earlier one.
        const bool isUnread =
            isReported &&
            after[Earlier] == flow.before[flow.before[Aside].empty() ? Working : Aside];
        EXPECT_TRUE(isUnread || (ended.exitCode == 0 ? after == flow.allowed.back()
                                                     : std::ranges::count(flow.allowed, after) > 0))
            << testing::PrintToString(after) << ended.err.toStdString();
        EXPECT_NE(after[Working], "not whole");
        expectSavePutsEverythingRight();
    }
}

INSTANTIATE_TEST_SUITE_P(Flows, InterruptionTest,
                         testing::Combine(testing::Range(size_t(0), flows.size()),
                                          testing::Values("kill", "full", "denied")));

using TwoProgramsTest = InterruptionTest;

TEST_F(TwoProgramsTest, TheSecondWaitsAndBuildsOnTheFirstOrTouchesNothing)
{
    const int middle = countOperations(flows[0]) / 2;
    prepare(saved);
    QProcess first, second;
    start(first, faultyProgram, flows[0].arguments,
          {{"TINTLOOM_TEST_FAULT", u"pause:%1"_s.arg(middle)}});
    expectSoon(first, "paused\n");
    ASSERT_FALSE(found()[Aside].empty()); // the old choices are away, the new ones not yet there

    const QStringList before = tree(folder.path());
    for (const QString command : {"save --set other=DEF", "restore", "list"})
        expectRefused(command, 1, {"another Tintloom is busy"},
                      {{u"TINTLOOM_TEST_PATIENCE"_s, u"0"_s}}, faultyProgram);
    EXPECT_EQ(tree(folder.path()), before);

    start(second, TINTLOOM_EXECUTABLE, "save --set other=DEF");
    expectSoon(second, "Waiting for another Tintloom");
    first.write("\n");
    first.closeWriteChannel();
    EXPECT_EQ(finish(first).exitCode, 0);
    EXPECT_EQ(finish(second).exitCode, 0);

    EXPECT_EQ(contents(locations.packageInfo()), contents(locations.workingCopy()));
    EXPECT_EQ(colorIn(locations.workingCopy()), "#CC0000FF");
    EXPECT_EQ(colorIn(locations.workingCopy(), u"other"_s), "#DDEEFFFF");
    expectTidy();
}
