#include "app/CommandLine.h"

#include "support/ProgramFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
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
        putElements({
            element("background", "\"#111\""),
            element("list-background-image", "\"#222\"", "null", "null", "\"A\""),
            element("size", "null", R"({"Small":1,"Large":2.5})", "1"),
            element("background", "\"#333\"", "null", "null", "null"),
        });
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
    const auto options = parsed("--scale 2.5 save --set a=b=c --screen=320x240 --set=k= "
                                "--package-root rel/../dir/")
                             .options;
    const auto plain = parsed("").options;
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
    EXPECT_EQ(plain->screen, QSizeF(320, 568));
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
        QString arguments, culprit;
    } cases[] = {
        {"show", "show"},
        {"list more", "more"},
        {"--bogus", "bogus"},
        {"--scale", "scale"},
        {"--scale=0.5", "0.5"},
        {"--scale=8.01", "8.01"},
        {"--scale=nan", "nan"},
        {"--screen=319x568", "319x568"},
        {"--screen=320x8193", "320x8193"},
        {"--screen=320.5x568", "320.5x568"},
        {"\"--screen=320x568\n\"", "320x568"},
        {"--documents= list", "documents"},
        {"--package-root=", "package-root"},
        {"--json", "json"},
        {"list --catalogue", "catalogue"},
        {"install", "install"},
        {"edit Paper Plum", "Plum"},
        {"list --set a=b", "set"},
        {"save --set novalue", "novalue"},
    };
    for (const auto &[arguments, culprit] : cases) {
        const auto outcome = parsed(arguments);
        EXPECT_FALSE(outcome.options) << arguments.toStdString();
        EXPECT_EQ(outcome.exitCode, 2) << arguments.toStdString();
        EXPECT_TRUE(outcome.text.contains(culprit)) << outcome.text.toStdString();
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
    const QJsonArray rows = QJsonDocument::fromJson(listed.out).array();
    ASSERT_EQ(rows.size(), 3); // the element without a section has no row
    EXPECT_EQ(rows[0], QJsonDocument::fromJson(R"({
        "section": "A", "name": "Name of list-background-image", "description": "",
        "key": "list-background-image", "kind": "color", "color": "#222", "value": null,
        "options": null})")
                           .object());
    EXPECT_EQ(rows[2]["value"], QJsonValue(2.5));
    EXPECT_EQ(rows[2]["kind"], QJsonValue("choice"));
    EXPECT_EQ(rows[2]["color"], QJsonValue::Null);
    EXPECT_EQ(rows[2]["options"], (QJsonObject{{"Small", 1}, {"Large", 2.5}}));

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
    const Finished second =
        run("save --set list-background-image= --scale 1 --package-root " + other);
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
    const struct {
        QString edit;
        QByteArray culprit, accepted;
    } cases[] = {
        {"backgruond=F00", "backgruond", "background"},
        {"no-such-thing=F00", "no-such-thing", "tintloom list"},
        {"=F00", "''", "tintloom list"},
        {"background=red", "red", "hexadecimal"},
        {"size=1", "'1'", "Large, Small"},
        {"size=", "size", "Large, Small"},
    };
    for (const auto &[edit, culprit, accepted] : cases)
        expectRefused("save --set background=F00 --set " + edit, 2, {culprit, accepted});
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
    EXPECT_EQ(QJsonDocument::fromJson(empty.out).array(), QJsonArray());
    EXPECT_TRUE(empty.out.startsWith('[') && empty.err.contains("warning"));

    put(document, "[{\"key\":\"a\"}]");
    for (const QString command : {"save", "list"})
        expectRefused(command, 1, {"item 0 has no \"name\""});
    EXPECT_EQ(contents(locations.workingCopy()), "kept");
    EXPECT_FALSE(QFile::exists(locations.packageRoot));
}
