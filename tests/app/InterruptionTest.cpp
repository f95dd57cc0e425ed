// The program is killed, or its disk fails, at each file operation in turn; then it is started
// again. A new command that replaces the working copy needs one line in `flows`.
#include "support/ProgramFixture.h"
#include "support/ThemeRecords.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

#include <ostream>

using namespace Qt::StringLiterals;

namespace
{
const QString faulty = QStringLiteral(TINTLOOM_FAULTY_EXECUTABLE);
const QString color = u"list-background-image"_s;
const QStringList packageFiles{u"Info.plist"_s, u"ListBackground@2x.jpg"_s, u"UIKit"_s,
                               u"UIKit/UnreadIndicator@2x.png"_s};

/// Working copy, earlier one and the one set aside, each by its colour; empty when missing.
struct Choices {
    QString working, earlier, aside;
    bool operator==(const Choices &) const = default;
};

std::ostream &operator<<(std::ostream &stream, const Choices &choices)
{
    return stream << '(' << choices.working.toStdString() << ", " << choices.earlier.toStdString()
                  << ", " << choices.aside.toStdString() << ')';
}

const Choices saved{u"#00B"_s, u"#0A0"_s, {}};

struct Flow {
    const char *name;
    QString arguments;
    Choices before;
    std::vector<Choices> allowed; // after a restart; the last is that of an undisturbed run
};

const std::vector<Flow> flows = {
    {"save",
     "save --scale=1 --set list-background-image=C00",
     saved,
     {saved, {u"#CC0000FF"_s, u"#00B"_s, {}}}},
    {"first save", "save --set list-background-image=C00", {}, {{}, {u"#CC0000FF"_s, {}, {}}}},
    {"save without a change", "save --scale=1", saved, {saved}},
    {"restore", "restore", saved, {saved, {u"#0A0"_s, u"#00B"_s, {}}}},
    {"install", "install Sea", saved, {saved}},
    {"edit", "edit Sea", saved, {saved, {u"#C00"_s, u"#00B"_s, {}}}},
    {"recovery of the old choices", "list", {{}, u"#0A0"_s, u"#00B"_s}, {saved}},
    {"recovery of the new choices",
     "list",
     {u"#C00"_s, u"#0A0"_s, u"#00B"_s},
     {{u"#C00"_s, u"#00B"_s, {}}}},
};

struct InterruptionTest : ProgramFixture,
                          testing::WithParamInterface<std::tuple<size_t, std::string>> {
    void SetUp() override
    {
        putElements({element(color.toUtf8(), "\"#FFF\""), element("other", "\"#123\""),
                     element("unread-indicator-image", "\"#0A0\"")});
        putThemes(resources, themeRecord("Quiet", "Sea"));
        putChoices(resources + "/Sea/Info.plist"_L1, u"#C00"_s);
        put(resources + "/Sea/UIKit/UnreadIndicator@2x.png"_L1, "a picture");
    }

    /// The dictionary that the program itself would save.
    void putChoices(const QString &path, const QString &text) const
    {
        if (text.isEmpty())
            return;
        auto dictionary = ElementDataSource().predefinedDict();
        dictionary.setValue(color, text);
        dictionary.setValue(u"other"_s, u"#ABC"_s);
        dictionary.setValue(u"unread-indicator-image"_s, u"#0A0"_s);
        put(path, PropertyList::writeDictionary(dictionary));
    }

    static QString colorIn(const QString &path)
    {
        if (!NSFileManager::fileExistsAtPath(path))
            return {};
        const auto dictionary = PropertyList::readDictionary(contents(path));
        const QVariant *value = dictionary ? dictionary->find(color) : nullptr;
        return value ? value->toString() : u"not whole"_s;
    }

    void prepare(const Choices &before) const
    {
        NSFileManager::removeItemAtPath(locations.packageRoot);
        NSFileManager::removeItemAtPath(locations.documents);
        putChoices(locations.workingCopy(), before.working);
        putChoices(locations.earlierWorkingCopy(), before.earlier);
        putChoices(locations.workingCopyAside(), before.aside);
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
        return run(flow.arguments, {{u"TINTLOOM_TEST_FAULT"_s, fault}}, faulty);
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

    /// Starts the program again and returns what it then finds.
    Choices restart() const
    {
        const Choices before = found();
        const Finished listed = run("list --json");
        EXPECT_EQ(listed.exitCode, 0) << listed.err.toStdString();
        const Choices after = found();
        const QString shown = after.working.isEmpty() ? u"#FFF"_s : after.working;
        EXPECT_EQ(QJsonDocument::fromJson(listed.out)[0]["color"].toString(), shown);
        if (!before.aside.isEmpty()) {
            EXPECT_EQ(listed.err.contains("the new choices stand"), !before.working.isEmpty());
            EXPECT_EQ(listed.err.contains("the old choices are back"), before.working.isEmpty());
        }
        expectTidy();
        return after;
    }

    void expectSavePutsEverythingRight() const
    {
        const Finished saved = run("save --scale=1 --set list-background-image=123456");
        EXPECT_EQ(saved.exitCode, 0) << saved.err.toStdString();
        EXPECT_EQ(tree(locations.packageFolder()), packageFiles);
        EXPECT_EQ(colorIn(locations.packageInfo()), u"#123456FF"_s);
        EXPECT_EQ(contents(locations.packageInfo()), contents(locations.workingCopy()));
        expectTidy();
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

bool isOneOf(const Choices &choices, const std::vector<Choices> &allowed)
{
    return std::ranges::find(allowed, choices) != allowed.end();
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
        const QString old = flow.before.aside.isEmpty() ? flow.before.working : flow.before.aside;
        const bool isUnread = isReported && after.earlier == old;
        EXPECT_TRUE(isUnread || (ended.exitCode == 0 ? after == flow.allowed.back()
                                                     : isOneOf(after, flow.allowed)))
            << after << ended.err.toStdString();
        EXPECT_NE(after.working, u"not whole"_s);
        expectSavePutsEverythingRight();
    }
}

INSTANTIATE_TEST_SUITE_P(Flows, InterruptionTest,
                         testing::Combine(testing::Range(size_t(0), flows.size()),
                                          testing::Values("kill", "full", "denied")));

using TwoProgramsTest = InterruptionTest;

TEST_F(TwoProgramsTest, TheSecondWaitsAndBuildsOnTheFirstOrTouchesNothing)
{
    // In the middle of a save: the old choices are away, the new ones not yet there.
    int middle = 0;
    prepare(saved);
    while (found().aside.isEmpty()) {
        ASSERT_LT(++middle, 100);
        runWithFault(flows[0], u"kill:%1"_s.arg(middle));
    }
    prepare(saved);
    QProcess first, second, list;
    start(first, faulty, flows[0].arguments,
          {{u"TINTLOOM_TEST_FAULT"_s, u"pause:%1"_s.arg(middle)}});
    expectSoon(first, "paused\n");

    const QStringList before = tree(folder.path());
    for (const QString command : {"save --set other=DEF", "restore", "list"}) {
        const Finished refused = run(command, {{u"TINTLOOM_TEST_PATIENCE"_s, u"0"_s}}, faulty);
        EXPECT_EQ(refused.exitCode, 1);
        EXPECT_TRUE(refused.out.isEmpty());
        EXPECT_TRUE(refused.err.contains("another Tintloom is busy")) << refused.err.toStdString();
    }
    EXPECT_EQ(tree(folder.path()), before);

    start(second, TINTLOOM_EXECUTABLE, "save --set other=DEF");
    start(list, TINTLOOM_EXECUTABLE, "list");
    expectSoon(second, "Waiting for another Tintloom");
    expectSoon(list, "Waiting for another Tintloom");
    first.write("\n");
    first.closeWriteChannel();
    EXPECT_EQ(finish(first).exitCode, 0);
    EXPECT_EQ(finish(second).exitCode, 0);
    const Finished listed = finish(list);
    EXPECT_EQ(listed.exitCode, 0);
    EXPECT_TRUE(listed.out.contains("#CC0000FF")) << listed.out.toStdString();

    const QByteArray info = contents(locations.workingCopy());
    EXPECT_EQ(contents(locations.packageInfo()), info);
    const auto dictionary = PropertyList::readDictionary(info).value();
    EXPECT_EQ(*dictionary.find(color), QVariant(u"#CC0000FF"_s));
    EXPECT_EQ(*dictionary.find(u"other"_s), QVariant(u"#DDEEFFFF"_s));
    expectTidy();
}
