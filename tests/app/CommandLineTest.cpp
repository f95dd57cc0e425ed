#include "app/CommandLine.h"

#include "support/ProgramFixture.h"

#include <QStandardPaths>

namespace
{
auto parsed(const QString &arguments)
{
    return CommandLine::parse(QProcess::splitCommand("tintloom " + arguments));
}

struct CommandLineTest : ProgramFixture {
    void SetUp() override
    {
        putElements({element("background", "\"#111\""),
                     element("list-background-image", "\"#222\"", "null", "null", "\"A\""),
                     element("size", "null", R"({"Small":1,"Large":2.5})", "1"),
                     element("background", "\"#333\"", "null", "null", "null")});
    }

    static QVariant saved(const QString &package, const QString &key)
    {
        return *PropertyList::readDictionary(contents(package + "/Tintloom/Info.plist"))->find(key);
    }
};
} // namespace

TEST_F(CommandLineTest, ParsesOptionsBeforeAndAfterTheCommand)
{
    using enum CommandLine::Command;
    qunsetenv("TINTLOOM_PACKAGE_ROOT");
    qputenv("TINTLOOM_DOCUMENTS", "/from/environment");
    qputenv("TINTLOOM_RESOURCES", "");
    const QString mixed = "--scale 2.5 save --set a=b=c --screen=320x240 --set=k= "
                          "--package-root rel/../dir/";
    const auto options = parsed(mixed).options, plain = parsed("").options;
    qunsetenv("TINTLOOM_DOCUMENTS");
    qunsetenv("TINTLOOM_RESOURCES");
    ASSERT_TRUE(options && plain);
    EXPECT_EQ(options->command, Save);
    EXPECT_EQ(options->scale, 2.5);
    EXPECT_EQ(options->screen, QSizeF(320, 240));
    EXPECT_EQ(options->edits, (QStringList{"a=b=c", "k="}));
    EXPECT_EQ(options->packageRoot, QDir::current().filePath("dir"));
    EXPECT_EQ(options->documents, "/from/environment");
    EXPECT_EQ(plain->command, Window);
    EXPECT_EQ(plain->packageRoot, CommandLine::defaultPackageRoot());
    EXPECT_FALSE(plain->screen);
    EXPECT_EQ(plain->scale, 2.0);
    EXPECT_TRUE(QFile::exists(plain->resources + "/initialDatasource.txt"));
    const QString phone = folder.filePath("Library/biteThemes");
    EXPECT_EQ(CommandLine::defaultPackageRoot(phone),
              QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + "/biteThemes");
    QDir().mkpath(folder.filePath("Library"));
    EXPECT_EQ(CommandLine::defaultPackageRoot(phone), phone);
}

TEST_F(CommandLineTest, WrongUsageNamesTheCulprit)
{
    const struct {
        QStringList culprits;
        QString before = {}, after = {};
    } cases[] = {{{"show", "install"}},
                 {{"bogus", "scale", "json"}, "--"},
                 {{"documents", "package-root"}, "--", "="},
                 {{"0.5", "8.01", "nan"}, "--scale="},
                 {{"319x568", "320x8193", "320.5x568"}, "--screen="},
                 {{"320x568"}, "\"--screen=", "\n\""},
                 {{"more", "--catalogue"}, "list "},
                 {{"set"}, "list --", " a=b"},
                 {{"Plum"}, "edit Paper "},
                 {{"novalue"}, "save --set "}};
    for (const auto &[culprits, before, after] : cases)
        for (const QString &culprit : culprits) {
            const auto outcome = parsed(before + culprit + after);
            EXPECT_TRUE(!outcome.options && outcome.exitCode == 2 && outcome.text.contains(culprit))
                << (before + culprit + after + ": " + outcome.text).toStdString();
        }
    expectRefused("--bogus", 2, {"bogus"});
    const Finished version = run("--version");
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.out, "Tintloom 2.1\n");
    EXPECT_TRUE(run("save --help").out.contains("--set KEY=VALUE"));
}

TEST_F(CommandLineTest, ListsInTableOrder)
{
    PropertyDictionary choices;
    choices.setValue("size", 2.5);
    putSaved(choices);
    const Finished listed = run("list --json");
    EXPECT_EQ(listed.exitCode, 0);
    QJsonArray rows = json(listed);
    ASSERT_EQ(rows.size(), 3); // the element without a section has no row
    rows.removeAt(1);
    EXPECT_EQ(QJsonDocument(rows), QJsonDocument::fromJson(R"([{
        "section": "A", "name": "Name of list-background-image", "description": "",
        "key": "list-background-image", "kind": "color", "color": "#222", "value": null,
        "options": null}, {"section": "Section", "name": "Name of size", "description": "",
        "key": "size", "kind": "choice", "color": null, "value": 2.5,
        "options": {"Small": 1, "Large": 2.5}}])"));

    const Finished readable = run("list");
    EXPECT_EQ(readable.exitCode, 0);
    EXPECT_LT(readable.out.indexOf("#222"), readable.out.indexOf("#111"));
    EXPECT_TRUE(readable.out.contains("Large\n"));
}

TEST_F(CommandLineTest, SavesEditsAndPrintsThePaths)
{
    const Finished first = run("save --scale 1 --set background=01020304 --set size=Large");
    EXPECT_EQ(first.exitCode, 0);
    EXPECT_EQ(QString(first.out).trimmed().split('\n'),
              (QStringList{locations.packageInfo(), locations.listBackground(),
                           locations.unreadIndicator(), locations.workingCopy()}));
    EXPECT_TRUE(first.err.contains("SAVING THEME...\nbiteSMS Theme Path: "));
    EXPECT_EQ(saved(locations.packageRoot, "background"), "#01020304"); // of both records
    EXPECT_EQ(saved(locations.packageRoot, "size"), 2.5);

    // The next run starts from these choices; an option beats its variable.
    const QString other = folder.filePath("other");
    const Finished second = run("save --set list-background-image= --package-root " + other);
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_TRUE(second.out.startsWith(other.toUtf8()));
    EXPECT_EQ(saved(other, "background"), "#01020304");
    EXPECT_EQ(saved(other, "list-background-image"), "");
}

TEST_F(CommandLineTest, AWrongEditTouchesNothing)
{
    put(locations.packageInfo(), "kept");
    put(locations.workingCopy(), "kept");
    const QStringList before = tree(folder.path());
    const auto refuses = [this](const QString &edit, const QByteArrayList &told) {
        expectRefused("save --set background=F00 --set " + edit, 2, told);
    };
    refuses("backgruond=F00", {"backgruond", "background"});
    refuses("no-such-thing=F00", {"no-such-thing", "tintloom list"});
    refuses("=F00", {"''", "tintloom list"});
    refuses("background=red", {"red", "hexadecimal"});
    refuses("size=1", {"'1'", "Large, Small"});
    refuses("size=", {"size", "Large, Small"});
    EXPECT_EQ(tree(folder.path()), before);
    EXPECT_EQ(contents(locations.packageInfo()) + contents(locations.workingCopy()), "keptkept");
}

TEST_F(CommandLineTest, AFaultyDocumentTouchesNothing)
{
    put(locations.workingCopy(), "kept");
    put(document, "[");
    expectRefused("save", 1, {document.toUtf8()});
    const Finished empty = run("list --json");
    EXPECT_EQ(empty.exitCode, 0);
    EXPECT_EQ(json(empty), QJsonArray());
    EXPECT_TRUE(empty.out.startsWith('[') && empty.err.contains("warning"));

    put(document, "[{\"key\":\"a\"}]");
    for (const QString command : {"save", "list"})
        expectRefused(command, 1, {"item 0 has no \"name\""});
    EXPECT_EQ(contents(locations.workingCopy()), "kept");
    EXPECT_FALSE(QFile::exists(locations.packageRoot));
}
