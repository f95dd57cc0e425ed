// Holds together what tells people how to call the program: its help, the manual page, the README
// and the completion of its arguments.

#include "app/CommandLine.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{
QString read(const QString &name)
{
    QFile file(QStringLiteral(TINTLOOM_SOURCE_DIR "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

QString help()
{
    return CommandLine::parse({u"tintloom"_s, u"--help"_s}).text;
}

/// roff's escapes undone: what a reader of the page sees of its hyphens.
QString manual()
{
    return read(u"packaging/tintloom.1.in"_s).replace("\\-"_L1, "-"_L1);
}

/// The README's section on the command line; elsewhere it also shows other programs' options.
QString readme()
{
    return read(u"README.md"_s).section("## Without a window\n"_L1, 1).section("\n## "_L1, 0, 0);
}

QStringList found(const QString &text, const QString &pattern)
{
    QStringList all;
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    for (const auto &match : expression.globalMatch(text))
        all += match.captured(1);
    all.removeDuplicates();
    all.sort();
    return all;
}

/// What bash offers after these words, of which the last is still being typed.
QStringList completed(const QStringList &words)
{
    QProcess bash;
    const QString script = uR"(
        source "$0"; program=$1; shift; words=("$program" "$@")
        _tintloom "$program" "${words[-1]}" "${words[-2]}"
        printf '%s\n' "${COMPREPLY[@]}")"_s;
    const QString completion =
        QStringLiteral(TINTLOOM_SOURCE_DIR "/packaging/completions/tintloom.bash");
    bash.start(u"bash"_s,
               QStringList{u"-c"_s, script, completion, QStringLiteral(TINTLOOM_EXECUTABLE)} +
                   words);
    EXPECT_TRUE(bash.waitForFinished(60'000)) << bash.errorString().toStdString();
    EXPECT_EQ(bash.readAllStandardError(), "");
    return found(QString::fromUtf8(bash.readAllStandardOutput()), u"^(.+)$"_s);
}

std::string differences(const QStringList &ofHelp, const QStringList &ofOther)
{
    QString text;
    for (const QString &word : ofHelp) {
        if (!ofOther.contains(word))
            text += u"  lacks "_s + word + u", which the help has\n"_s;
    }
    for (const QString &word : ofOther) {
        if (!ofHelp.contains(word))
            text += u"  has "_s + word + u", which the help lacks\n"_s;
    }
    return text.toStdString();
}

const QString option = u"(--[a-z][a-z-]*)"_s;
const QString listedOption = u"^  (--[a-z][a-z-]*)"_s;
const QString variable = u"\\b(TINTLOOM_[A-Z_]+)"_s;
} // namespace

TEST(HelpTest, ManualReadmeAndCompletionHaveItsOptions)
{
    const QStringList options = found(help(), listedOption);
    ASSERT_GE(options.size(), 8) << "the help's options were not found";
    EXPECT_EQ(differences(options, found(manual(), option)), "") << "packaging/tintloom.1.in";
    EXPECT_EQ(differences(options, found(readme(), option)), "") << "README.md, Without a window";
    EXPECT_EQ(differences(options, completed({u"--"_s})), "") << "tintloom.bash";
    EXPECT_EQ(differences(options, found(help(), option)), "") << "the help's own text";
    for (const QString &name : options)
        EXPECT_FALSE(
            CommandLine::parse({u"tintloom"_s, name, u"1"_s}).text.contains("Unknown option"_L1))
            << name.toStdString() << " is refused";
}

TEST(HelpTest, ManualReadmeAndCompletionHaveItsCommands)
{
    const QStringList commands = found(help(), u"^  tintloom ([a-z-]+)"_s);
    ASSERT_GE(commands.size(), 2) << "the help's commands were not found";
    EXPECT_EQ(differences(commands, found(manual(), u"^\\.SY \"tintloom ([a-z-]+)"_s)), "")
        << "packaging/tintloom.1.in, synopsis";
    EXPECT_EQ(differences(commands,
                          found(manual().section(".SH DESCRIPTION"_L1, 1).section(".SH "_L1, 0, 0),
                                u"^\\.TP\n\\.B ([a-z-]+)$"_s)),
              "")
        << "packaging/tintloom.1.in, description";
    EXPECT_EQ(differences(commands, found(readme(), u"^\\./run ([a-z-]+)"_s)), "")
        << "README.md, Without a window";
    EXPECT_EQ(differences(commands, completed({u""_s})), "") << "tintloom.bash";
}

TEST(HelpTest, ManualAndReadmeHaveItsVariablesAndStatuses)
{
    const QStringList variables = found(help(), variable);
    ASSERT_GE(variables.size(), 3) << "the help's variables were not found";
    EXPECT_EQ(differences(variables, found(manual(), u"^\\.B "_s + variable)), "")
        << "packaging/tintloom.1.in";
    EXPECT_EQ(differences(variables, found(readme(), variable)), "") << "README.md";

    const QStringList statuses =
        found(help().section("Exit status:"_L1, 1), u"(?:^|[ ,])([0-9]+) "_s);
    EXPECT_EQ(differences(statuses,
                          found(manual().section(".SH EXIT STATUS"_L1, 1).section(".SH "_L1, 0, 0),
                                u"^\\.B ([0-9]+)$"_s)),
              "")
        << "packaging/tintloom.1.in, exit status";
    EXPECT_EQ(differences(statuses,
                          found(readme().section("Exit status:"_L1, 1), u"(?:^|[ ;])([0-9]+) "_s)),
              "")
        << "README.md, exit status";
}

TEST(HelpTest, CompletionFitsTheWordsBefore)
{
    EXPECT_EQ(completed({u"sa"_s}), QStringList(u"save"_s));
    EXPECT_EQ(completed({u"list"_s, u"--js"_s}), QStringList(u"--json"_s));
    EXPECT_EQ(completed({u"save"_s, u"--set"_s, u"balloon-c"_s}),
              QStringList(u"balloon-corner-style="_s));
    EXPECT_EQ(completed({u"--resources"_s, QStringLiteral(TINTLOOM_SOURCE_DIR "/resou")}),
              QStringList(QStringLiteral(TINTLOOM_SOURCE_DIR "/resources")));
    EXPECT_EQ(completed({u"--scale"_s, u""_s}), QStringList());
}
