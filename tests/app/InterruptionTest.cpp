// The program is killed, or its disk fails, at each file operation in turn; then it is started
// again. A new command that replaces the working copy needs one line in `flows`.
#include "support/ProgramFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

#include <optional>
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

struct Flow {
    const char *name;
    QStringList arguments;
    Choices before;
    std::vector<Choices> allowed; // after a restart; the last is that of an undisturbed run
};

const std::vector<Flow> flows = {
    {"save",
     {u"save"_s, u"--scale=1"_s, u"--set"_s, color + "=C00"_L1},
     {u"#00B"_s, u"#0A0"_s, {}},
     {{u"#00B"_s, u"#0A0"_s, {}}, {u"#CC0000FF"_s, u"#00B"_s, {}}}},
    {"first save", {u"save"_s, u"--set"_s, color + "=C00"_L1}, {}, {{}, {u"#CC0000FF"_s, {}, {}}}},
    {"save without a change",
     {u"save"_s, u"--scale=1"_s},
     {u"#00B"_s, u"#0A0"_s, {}},
     {{u"#00B"_s, u"#0A0"_s, {}}}},
    {"restore",
     {u"restore"_s},
     {u"#00B"_s, u"#0A0"_s, {}},
     {{u"#00B"_s, u"#0A0"_s, {}}, {u"#0A0"_s, u"#00B"_s, {}}}},
    {"install", {u"install"_s, u"Sea"_s}, {u"#00B"_s, u"#0A0"_s, {}}, {{u"#00B"_s, u"#0A0"_s, {}}}},
    {"edit",
     {u"edit"_s, u"Sea"_s},
     {u"#00B"_s, u"#0A0"_s, {}},
     {{u"#00B"_s, u"#0A0"_s, {}}, {u"#C00"_s, u"#00B"_s, {}}}},
    {"recovery of the old choices",
     {u"list"_s},
     {{}, u"#0A0"_s, u"#00B"_s},
     {{u"#00B"_s, u"#0A0"_s, {}}}},
    {"recovery of the new choices",
     {u"list"_s},
     {u"#C00"_s, u"#0A0"_s, u"#00B"_s},
     {{u"#C00"_s, u"#00B"_s, {}}}},
};

struct InterruptionTest : ProgramFixture, testing::WithParamInterface<size_t> {
    void SetUp() override
    {
        putElements({element(color.toUtf8(), "\"#FFF\""), element("other", "\"#123\""),
                     element("unread-indicator-image", "\"#0A0\"")});
        put(resources + "/themes.plist"_L1,
            "<plist><array><dict><key>section</key><string>Quiet</string><key>name</key>"
            "<string>Sea</string><key>details</key><string/><key>active</key><string>Yes</string>"
            "</dict></array></plist>");
        putChoices(resources + "/Sea/Info.plist"_L1, u"#C00"_s);
        put(resources + "/Sea/UIKit/UnreadIndicator@2x.png"_L1, "a picture");
    }

    /// The dictionary that the program itself would save.
    void putChoices(const QString &path, const QString &text) const
    {
        if (text.isEmpty())
            return;
        auto dictionary = ElementDataSource().predefinedDict();
        for (const auto &[key, value] : {std::pair(u"name"_s, QVariant(u"Tintloom"_s)),
                                         {u"theme-version"_s, u"2"_s},
                                         {u"description"_s, u""_s},
                                         {u"retina"_s, false},
                                         {color, text},
                                         {u"other"_s, u"#ABC"_s},
                                         {u"unread-indicator-image"_s, u"#0A0"_s}})
            dictionary.setValue(key, value);
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

    static QMap<QString, QString> fault(const QString &kind, int operation)
    {
        return {{u"TINTLOOM_TEST_FAULT"_s, u"%1:%2"_s.arg(kind).arg(operation)}};
    }

    int countOperations(const Flow &flow) const
    {
        prepare(flow.before);
        const Finished run =
            this->run(flow.arguments, {{u"TINTLOOM_TEST_FAULT"_s, u"count"_s}}, faulty);
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_EQ(found(), flow.allowed.back());
        static const QRegularExpression line(u"operations: ([0-9]+)\n"_s);
        return line.match(QString::fromUtf8(run.err)).captured(1).toInt();
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
        const Finished listed = run({u"list"_s, u"--json"_s});
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
        const Finished saved = run({u"save"_s, u"--scale=1"_s, u"--set"_s, color + "=123456"_L1});
        EXPECT_EQ(saved.exitCode, 0) << saved.err.toStdString();
        EXPECT_EQ(tree(locations.packageFolder()), packageFiles);
        EXPECT_EQ(colorIn(locations.packageInfo()), u"#123456FF"_s);
        EXPECT_EQ(contents(locations.packageInfo()), contents(locations.workingCopy()));
        expectTidy();
    }
};

bool isOneOf(const Choices &choices, const std::vector<Choices> &allowed)
{
    return std::ranges::find(allowed, choices) != allowed.end();
}
} // namespace

TEST_P(InterruptionTest, AKilledProgramLosesNothing)
{
    const Flow &flow = flows[GetParam()];
    SCOPED_TRACE(flow.name);
    const int operations = countOperations(flow);
    ASSERT_GT(operations, 10);
    for (int operation = 0; operation < operations; ++operation) {
        SCOPED_TRACE(operation);
        prepare(flow.before);
        const Finished killed = run(flow.arguments, fault(u"kill"_s, operation), faulty);
        ASSERT_TRUE(killed.crashed);
        ASSERT_EQ(killed.exitCode, SIGKILL);
        const Choices after = restart();
        EXPECT_TRUE(isOneOf(after, flow.allowed)) << after;
        expectSavePutsEverythingRight();
    }
}

TEST_P(InterruptionTest, AFailedOperationLosesNothingAndIsReported)
{
    const Flow &flow = flows[GetParam()];
    SCOPED_TRACE(flow.name);
    const int operations = countOperations(flow);
    const std::pair<QString, QByteArray> kinds[] = {{u"full"_s, "No space left on device"},
                                                    {u"denied"_s, "Permission denied"}};
    for (const auto &[kind, reason] : kinds) {
        for (int operation = 0; operation < operations; ++operation) {
            SCOPED_TRACE(kind.toStdString() + ' ' + std::to_string(operation));
            prepare(flow.before);
            const Finished failed = run(flow.arguments, fault(kind, operation), faulty);
            ASSERT_FALSE(failed.crashed);
            const Choices after = restart();
            EXPECT_TRUE(failed.exitCode == 0 || failed.err.contains(reason))
                << failed.err.toStdString();
            // A working copy that cannot be read is none, so that a save starts from the document;
            // what could not be read then is the earlier one.
            const QString old =
                flow.before.aside.isEmpty() ? flow.before.working : flow.before.aside;
            const bool isUnread = after.earlier == old && failed.err.contains(reason);
            EXPECT_TRUE(isUnread || (failed.exitCode == 0 ? after == flow.allowed.back()
                                                          : isOneOf(after, flow.allowed)))
                << after << failed.err.toStdString();
            EXPECT_NE(after.working, u"not whole"_s);
            expectSavePutsEverythingRight();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Flows, InterruptionTest, testing::Range(size_t(0), flows.size()));

/// Two programs at once, the first of them held in the middle of its save.
struct TwoProgramsTest : InterruptionTest {
    void SetUp() override
    {
        InterruptionTest::SetUp();
        prepare({u"#00B"_s, u"#0A0"_s, {}});
        // In the middle: the old choices are away, the new ones not yet there.
        while (found().aside.isEmpty()) {
            ASSERT_LT(++_operation, 100);
            prepare({u"#00B"_s, u"#0A0"_s, {}});
            run({u"save"_s, u"--scale=1"_s}, fault(u"kill"_s, _operation), faulty);
        }
        prepare({u"#00B"_s, u"#0A0"_s, {}});
        start(_first, faulty, {u"save"_s, u"--set"_s, color + "=C00"_L1},
              fault(u"pause"_s, _operation));
        expectSoon(_first, "paused\n");
    }

    static void expectSoon(QProcess &process, const QByteArray &text)
    {
        process.setReadChannel(QProcess::StandardError);
        QByteArray said = process.readAllStandardError();
        while (!said.contains(text)) {
            ASSERT_TRUE(process.waitForReadyRead(30'000)) << said.toStdString();
            said += process.readAllStandardError();
        }
    }

    void letTheFirstGoOn()
    {
        _first.write("\n");
        _first.closeWriteChannel();
        const Finished first = finish(_first);
        EXPECT_EQ(first.exitCode, 0) << first.err.toStdString();
    }

    int _operation = 0;
    QProcess _first;
};

TEST_F(TwoProgramsTest, TheSecondWaitsAndBuildsOnTheFirst)
{
    QProcess second, list;
    start(second, QStringLiteral(TINTLOOM_EXECUTABLE), {u"save"_s, u"--set"_s, u"other=DEF"_s});
    start(list, QStringLiteral(TINTLOOM_EXECUTABLE), {u"list"_s});
    expectSoon(second, "Waiting for another Tintloom");
    expectSoon(list, "Waiting for another Tintloom");
    letTheFirstGoOn();
    EXPECT_EQ(finish(second).exitCode, 0);
    const Finished listed = finish(list);
    EXPECT_EQ(listed.exitCode, 0);
    EXPECT_TRUE(listed.out.contains("#CC0000FF")) << listed.out.toStdString();

    const QByteArray saved = contents(locations.workingCopy());
    EXPECT_EQ(contents(locations.packageInfo()), saved);
    const auto dictionary = PropertyList::readDictionary(saved).value();
    EXPECT_EQ(*dictionary.find(color), QVariant(u"#CC0000FF"_s));
    EXPECT_EQ(*dictionary.find(u"other"_s), QVariant(u"#DDEEFFFF"_s));
    expectTidy();
}

TEST_F(TwoProgramsTest, TheSecondGivesUpAndTouchesNothing)
{
    const QStringList before = tree(folder.path());
    for (const QStringList &command :
         {QStringList{u"save"_s, u"--set"_s, u"other=DEF"_s}, {u"restore"_s}, {u"list"_s}}) {
        const Finished refused = run(command, {{u"TINTLOOM_TEST_PATIENCE"_s, u"0"_s}}, faulty);
        EXPECT_EQ(refused.exitCode, 1);
        EXPECT_TRUE(refused.out.isEmpty());
        EXPECT_TRUE(refused.err.contains("another Tintloom is busy")) << refused.err.toStdString();
    }
    EXPECT_EQ(tree(folder.path()), before);
    letTheFirstGoOn();
    EXPECT_EQ(found(), (Choices{u"#CC0000FF"_s, u"#00B"_s, {}}));
    expectTidy();
}
