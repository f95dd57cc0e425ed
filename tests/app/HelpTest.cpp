// Holds together what tells people how to call the program: its help, the manual page, the README
// and the completion of its arguments.

#include "app/CommandLine.h"
#include "delivery/RememberedPhones.h"
#include "library/ThemeLibrary.h"
#include "support/Files.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <set>

namespace
{
const QString root = QStringLiteral(TINTLOOM_SOURCE_DIR "/");

/// What the pattern's first group matches, each once.
std::set<std::string> found(const QString &text, const QString &pattern)
{
    std::set<std::string> all;
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    for (const auto &match : expression.globalMatch(text))
        all.insert(match.captured(1).toStdString());
    return all;
}

/// What bash offers after these words, of which the last is still being typed.
std::set<std::string> completed(const QStringList &words, const QString &documents = {})
{
    QProcess bash;
    auto environment = QProcessEnvironment::systemEnvironment();
    if (!documents.isEmpty())
        environment.insert("TINTLOOM_DOCUMENTS", documents);
    bash.setProcessEnvironment(environment);
    const QString script = R"(
        source "$0"; program=$1; shift; words=("$program" "$@")
        COMP_WORDS=("${words[@]}") COMP_CWORD=$#
        _tintloom "$program" "${words[-1]}" "${words[-2]}"
        printf '%s\n' "${COMPREPLY[@]}")";
    bash.start("bash", QStringList{"-c", script, root + "packaging/completions/tintloom.bash",
                                   TINTLOOM_EXECUTABLE} +
                           words);
    EXPECT_TRUE(bash.waitForFinished(60'000)) << bash.errorString().toStdString();
    EXPECT_EQ(bash.readAllStandardError(), "");
    return found(QString::fromUtf8(bash.readAllStandardOutput()), "^(.+)$");
}

/// The same of fish, for a line.
std::set<std::string> completedByFish(const QString &line)
{
    QProcess fish;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH",
                       QFileInfo(TINTLOOM_EXECUTABLE).path() + ":" + environment.value("PATH"));
    fish.setProcessEnvironment(environment);
    fish.start("fish", {"--no-config", "-c", "source $argv[1]; complete -C $argv[2]",
                        root + "packaging/completions/tintloom.fish", line});
    EXPECT_TRUE(fish.waitForFinished(60'000)) << fish.errorString().toStdString();
    return found(QString::fromUtf8(fish.readAllStandardOutput()), "^([^\t\n]+)");
}
} // namespace

TEST(HelpTest, ManualReadmeAndCompletionHaveItsOptionsAndCommands)
{
    const QString help = CommandLine::parse({"tintloom", "--help"}).text;
    // Without roff's escapes: what a reader of the page sees of its hyphens.
    const QString manual = QString(contents(root + "packaging/tintloom.1.in")).replace("\\-", "-");
    // Elsewhere the README also shows other programs' options.
    QString readme = contents(root + "README.md");
    readme = readme.section("## Without a window\n", 1).section("\n## ", 0, 0);
    const QString option = "(--[a-z][a-z-]*)";
    const auto options = found(help, "^  " + option);
    ASSERT_GE(options.size(), 8U) << "the help's options were not found";
    EXPECT_EQ(found(manual, option), options) << "packaging/tintloom.1.in";
    EXPECT_EQ(found(readme, option), options) << "README.md, Without a window";
    EXPECT_EQ(completed({"--"}), options) << "tintloom.bash";
    EXPECT_EQ(found(help, option), options) << "the help's own text";
    for (const std::string &name : options)
        EXPECT_FALSE(CommandLine::parse({"tintloom", QString::fromStdString(name), "1"})
                         .text.contains("Unknown option"))
            << name << " is refused";

    const auto commands = found(help, "^  tintloom ([a-z-]+)");
    ASSERT_GE(commands.size(), 2U) << "the help's commands were not found";
    EXPECT_EQ(found(manual, "^\\.SY \"tintloom ([a-z-]+)"), commands) << "manual, synopsis";
    EXPECT_EQ(found(manual.section(".SH OPTIONS", 0, 0), "^\\.TP\n\\.B ([a-z-]+)$"), commands)
        << "manual, description";
    EXPECT_EQ(found(readme, "^\\./run ([a-z-]+)"), commands) << "README.md, Without a window";
    EXPECT_EQ(completed({""}), commands) << "tintloom.bash";
}

TEST(HelpTest, TheDecisionsNameTestsThatAreThere)
{
    QString sources;
    for (const QString &file : tree(root + "tests").filter("Test.cpp"))
        sources += contents(root + "tests/" + file);
    const QString decisions = contents(root + "docs/decisions.md");
    const auto tests = found(decisions, "`([A-Za-z]+\\.[A-Z][A-Za-z]+)`");
    ASSERT_GE(tests.size(), 10U);
    for (const std::string &test : tests)
        EXPECT_TRUE(sources.contains(QString::fromStdString(test).replace(".", ", ") + ")"))
            << test;
}

TEST(HelpTest, CompletionFitsTheWordsBefore)
{
    using Words = std::set<std::string>;
    EXPECT_EQ(completed({"sa"}), Words{"save"});
    EXPECT_EQ(completed({"list", "--js"}), Words{"--json"});
    EXPECT_EQ(completed({"save", "--set", "balloon-c"}), Words{"balloon-corner-style="});
    EXPECT_EQ(completed({"set", "balloon-c"}), Words{"balloon-corner-style="});
    EXPECT_EQ(completed({"generate", "--base", "Mid"}), Words{"Midnight"});
    EXPECT_EQ(completed({"--resources", root + "resou"}),
              Words{(root + "resources").toStdString()});
    EXPECT_EQ(completed({"--scale", ""}), Words());
    EXPECT_EQ(completed({"preview", "--view", ""}), (Words{"conversation", "list", "both"}));
    EXPECT_EQ(completed({"preview", "--eyes", "d"}), Words{"deutan"});
    EXPECT_EQ(completed({"import", root + "READ"}), Words{(root + "README.md").toStdString()});
    EXPECT_EQ(completed({"share", "--qr", root + "READ"}),
              Words{(root + "README.md").toStdString()});
    EXPECT_EQ(completed({"export", "--re"}), (Words{"--replace", "--resources"}));
    EXPECT_EQ(completed({"generate", "--harmony", "s"}), (Words{"single", "split"}));
    EXPECT_EQ(completed({"--lock", "send-"}), Words{"send-button-color"});
    EXPECT_EQ(completed({"--out", root + "READ"}), Words{(root + "README.md").toStdString()});

    const QTemporaryDir documents;
    EXPECT_FALSE(RememberedPhones(documents.path())
                     .remember({"me@phone:2222", {"phone", 2222, "me"}, "/x"}));
    qputenv("TINTLOOM_DOCUMENTS", documents.path().toUtf8());
    EXPECT_EQ(completed({"send", ""}), Words{"me@phone:2222"});
    EXPECT_EQ(completed({"send", "Midnight", "me"}), Words{"me@phone:2222"});
    EXPECT_EQ(completed({"se"}), (Words{"send", "set"}));
    qunsetenv("TINTLOOM_DOCUMENTS");
}

TEST(HelpTest, CompletionKnowsTheThemes)
{
    using Words = std::set<std::string>;
    const QTemporaryDir folder;
    for (const QString name : {"Sea  \"foam\"", "Sealed"})
        ASSERT_TRUE(ThemeLibrary::open(folder.path())
                        ->keep({}, name, ThemeLibrary::IfTaken::Refuse)
                        .isDone());
    const Words own{R"(Sea\ \ \"foam\")", "Sealed"};
    for (const QString command : {"keep", "rename", "duplicate", "remove"})
        EXPECT_EQ(completed({command, ""}, folder.path()), own);
    Words all = own;
    all.insert(R"(Sea\ Mist)");
    for (const QString command : {"install", "edit", "preview", "check"})
        EXPECT_EQ(completed({command, "Sea"}, folder.path()), all);
    EXPECT_EQ(completed({"install", R"(Sea\ M)"}, folder.path()), Words{R"(Sea\ Mist)"});
    EXPECT_EQ(completed({"install", "First"}, folder.path()), Words()); // coming soon
    EXPECT_EQ(completed({"edit", "Build"}, folder.path()), Words());
}

TEST(HelpTest, FishOffersTheSame)
{
    if (QStandardPaths::findExecutable("fish").isEmpty())
        GTEST_SKIP() << "there is no fish";
    using Words = std::set<std::string>;
    EXPECT_EQ(completedByFish("tintloom "), completed({""}));
    EXPECT_EQ(completedByFish("tintloom --"), completed({"--"}));
    EXPECT_EQ(completedByFish("tintloom preview --view "), completed({"preview", "--view", ""}));
    EXPECT_EQ(completedByFish("tintloom set balloon-c"), completed({"set", "balloon-c"}));
    EXPECT_EQ(completedByFish("tintloom generate --base Mid"), Words{"Midnight"});
    EXPECT_EQ(completedByFish("tintloom list "), Words());
}
