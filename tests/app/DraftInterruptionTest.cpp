#include "support/DraftFixture.h"
#include "support/ProgramFixture.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace
{
struct DraftInterruptionTest : DraftFixture<ProgramFixture> {
    QString savedColor() const
    {
        const auto dictionary = PropertyList::readDictionary(contents(locations.workingCopy()));
        return dictionary ? dictionary->find(u"first"_s)->toString() : QString();
    }
};

/// Takes a colour away in one window, which is then killed, and in the next one brings the change
/// back and saves.
const QByteArray killAndBringBack = R"(
    at() { xdotool search --sync --onlyvisible --name ^Tintloom mousemove --window %1 $1 $2 click 1
           sleep 0.2; }
    "$TINTLOOM" --screen 320x568 & until [ -e "$TINTLOOM_DOCUMENTS"/Drafts/*/Draft.plist ]; do
        at 200 73; at 160 40 # the first row, "Remove Color"
    done; kill -9 $!; wait $!
    draft=$(echo "$TINTLOOM_DOCUMENTS"/Drafts/*)
    "$TINTLOOM" --screen 320x568 & while [ -e "$draft" ]; do at 48 498; done # "Bring Back"
    until [ -e "$TINTLOOM_PACKAGE_ROOT"/Tintloom/Info.plist ]; do at 160 543; done # "Save Theme"
    kill $!; wait $!
)";
} // namespace

TEST_F(DraftInterruptionTest, ANewWindowOffersWhatAKilledOneLeft)
{
    put(folder.filePath("script"), killAndBringBack);
    const Finished ended =
        run("50 xvfb-run --auto-servernum sh " + folder.filePath("script"),
            {{"TINTLOOM", TINTLOOM_EXECUTABLE}, {"QT_QPA_PLATFORM", "xcb"}}, "timeout");
    const auto saved = PropertyList::readDictionary(contents(locations.packageInfo()));
    ASSERT_TRUE(saved) << ended.err.toStdString();
    EXPECT_EQ(*saved->find(u"first"_s), QVariant(u""_s));
}

// What the editor does with drafts, killed or refused at each file operation in turn.
TEST_F(DraftInterruptionTest, LosesNothingAtAnyOperation)
{
    // With each the drafts of an undisturbed run, and whether the draft that was there before stays
    // whatever happens.
    const std::tuple<QString, QStringList, bool> flows[] = {
        {u"edit #2"_s, {u"#1"_s, u"#2"_s}, true},
        {u"save #2"_s, {u"#1"_s}, true},
        {u"bring-back"_s, {u"#1"_s}, true},
        {u"discard"_s, {}, false}};
    const auto runWith = [this](const QString &flow, const QString &fault) {
        QDir(locations.documents).removeRecursively();
        abandon(u"#1"_s);
        return run("draft "_L1 + flow, {{u"TINTLOOM_TEST_FAULT"_s, fault}}, faultyProgram);
    };
    for (const auto &[flow, expected, isFirstKept] : flows) {
        SCOPED_TRACE(flow.toStdString());
        const QByteArray counted = runWith(flow, u"count"_s).err;
        EXPECT_EQ(drafts(), expected);
        const int operations = counted.sliced(counted.lastIndexOf(' ')).trimmed().toInt();
        ASSERT_GT(operations, 5);
        int kills = 0;
        for (const QString &kind : {u"kill"_s, u"full"_s, u"denied"_s}) {
            for (int operation = 0; operation < operations; ++operation) {
                SCOPED_TRACE(kind.toStdString() + std::to_string(operation));
                const Finished run = runWith(flow, u"%1:%2"_s.arg(kind).arg(operation));
                ASSERT_EQ(run.crashed ? run.exitCode : 0, run.crashed ? SIGKILL : 0);
                ASSERT_TRUE(!run.crashed || kind == "kill"_L1) << run.err.toStdString();
                kills += run.crashed;
                const QStringList left = drafts();
                EXPECT_FALSE(left.contains(u"not whole"_s));
                EXPECT_TRUE(left.contains(u"#1"_s) || !isFirstKept);
                const bool isNewKept = left.contains(u"#2"_s) || savedColor() == "#2"_L1;
                EXPECT_TRUE(isNewKept || run.exitCode != 0 || !flow.contains(u'#') ||
                            run.err.contains("Cannot keep the draft"))
                    << run.err.toStdString();
            }
        }
        // Of two writes in a row the first is sometimes saved.
        EXPECT_GT(kills, operations / 2);
    }
}
