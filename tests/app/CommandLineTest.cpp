#include "app/CommandLine.h"

#include "support/ProgramFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
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

    QVariant saved(const QString &key) const
    {
        const auto dictionary =
            PropertyList::readDictionary(contents(locations.packageInfo())).value();
        const QVariant *value = dictionary.find(key);
        return value ? *value : QVariant();
    }
};
} // namespace

TEST_F(CommandLineTest, ParsesOptionsBeforeAndAfterTheCommand)
{
    using enum CommandLine::Command;
    qunsetenv("TINTLOOM_PACKAGE_ROOT");
    qputenv("TINTLOOM_DOCUMENTS", "/from/environment");
    qputenv("TINTLOOM_RESOURCES", "");
    const auto parsed = CommandLine::parse({u"tintloom"_s, u"--scale"_s, u"2.5"_s, u"save"_s,
                                            u"--set"_s, u"a=b=c"_s, u"--screen=320x240"_s,
                                            u"--set=k="_s, u"--package-root"_s, u"rel/../dir/"_s});
    const auto plain = CommandLine::parse({u"tintloom"_s});
    qunsetenv("TINTLOOM_DOCUMENTS");
    qunsetenv("TINTLOOM_RESOURCES");
    ASSERT_TRUE(parsed.options && plain.options);
    EXPECT_EQ(parsed.options->command, Save);
    EXPECT_EQ(parsed.options->scale, 2.5);
    EXPECT_EQ(parsed.options->screen, QSizeF(320, 240));
    EXPECT_EQ(parsed.options->edits, QStringList({u"a=b=c"_s, u"k="_s}));
    EXPECT_EQ(parsed.options->packageRoot, QDir::current().filePath(u"dir"_s));
    EXPECT_EQ(parsed.options->documents, u"/from/environment"_s);
    EXPECT_EQ(plain.options->command, Window);
    EXPECT_EQ(plain.options->packageRoot, u"/var/mobile/Library/biteThemes"_s);
    EXPECT_EQ(plain.options->screen, QSizeF(320, 568));
    EXPECT_EQ(plain.options->scale, 2.0);
    EXPECT_TRUE(QFile::exists(plain.options->resources + "/initialDatasource.txt"_L1));
}

TEST_F(CommandLineTest, WrongUsageNamesTheCulprit)
{
    const struct {
        QStringList arguments;
        QString culprit;
    } cases[] = {
        {{u"show"_s}, u"show"_s},
        {{u"list"_s, u"more"_s}, u"more"_s},
        {{u"--bogus"_s}, u"bogus"_s},
        {{u"--scale"_s}, u"scale"_s},
        {{u"--scale=0.5"_s}, u"0.5"_s},
        {{u"--scale=8.01"_s}, u"8.01"_s},
        {{u"--scale=nan"_s}, u"nan"_s},
        {{u"--scale="_s}, u"scale"_s},
        {{u"--screen=319x568"_s}, u"319x568"_s},
        {{u"--screen=320x8193"_s}, u"320x8193"_s},
        {{u"--screen=320.5x568"_s}, u"320.5x568"_s},
        {{u"--screen=320x568\n"_s}, u"320x568"_s},
        {{u"--documents="_s, u"list"_s}, u"documents"_s},
        {{u"--package-root"_s, u""_s}, u"package-root"_s},
        {{u"--json"_s}, u"json"_s},
        {{u"save"_s, u"--json"_s}, u"json"_s},
        {{u"list"_s, u"--catalogue"_s}, u"catalogue"_s},
        {{u"install"_s}, u"install"_s},
        {{u"edit"_s, u"Paper"_s, u"Plum"_s}, u"Plum"_s},
        {{u"themes"_s, u"Paper"_s}, u"Paper"_s},
        {{u"list"_s, u"--set"_s, u"a=b"_s}, u"set"_s},
        {{u"save"_s, u"--set"_s, u"novalue"_s}, u"novalue"_s},
    };
    for (const auto &[arguments, culprit] : cases) {
        const auto outcome = CommandLine::parse(QStringList(u"tintloom"_s) + arguments);
        EXPECT_FALSE(outcome.options) << culprit.toStdString();
        EXPECT_EQ(outcome.exitCode, 2) << culprit.toStdString();
        EXPECT_TRUE(outcome.text.contains(culprit)) << outcome.text.toStdString();
    }
    const Finished wrong = run({u"--bogus"_s});
    EXPECT_EQ(wrong.exitCode, 2);
    EXPECT_TRUE(wrong.out.isEmpty() && !wrong.err.isEmpty());
    const Finished version = run({u"--version"_s});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.out, "Tintloom 2.1\n");
    EXPECT_TRUE(run({u"save"_s, u"--help"_s}).out.contains("--set KEY=VALUE"));
}

TEST_F(CommandLineTest, ListsInTableOrder)
{
    putSaved([] {
        PropertyDictionary saved;
        saved.setValue(u"size"_s, 2.5);
        return saved;
    }());
    const Finished listed = run({u"list"_s, u"--json"_s});
    EXPECT_EQ(listed.exitCode, 0);
    const QJsonArray rows = QJsonDocument::fromJson(listed.out).array();
    ASSERT_EQ(rows.size(), 3); // the element without a section has no row
    EXPECT_EQ(rows[0].toObject(), (QJsonObject{{"section", "A"},
                                               {"name", "Name of list-background-image"},
                                               {"description", ""},
                                               {"key", "list-background-image"},
                                               {"kind", "color"},
                                               {"color", "#222"},
                                               {"value", QJsonValue::Null},
                                               {"options", QJsonValue::Null}}));
    EXPECT_EQ(rows[2]["value"_L1], QJsonValue(2.5));
    EXPECT_EQ(rows[2]["kind"_L1], QJsonValue("choice"));
    EXPECT_EQ(rows[2]["color"_L1], QJsonValue::Null);
    EXPECT_EQ(rows[2]["options"_L1], (QJsonObject{{"Small", 1}, {"Large", 2.5}}));

    const Finished readable = run({u"list"_s});
    EXPECT_EQ(readable.exitCode, 0);
    EXPECT_LT(readable.out.indexOf("#222"), readable.out.indexOf("#111"));
    EXPECT_TRUE(readable.out.contains("Large\n"));
}

TEST_F(CommandLineTest, SavesEditsAndPrintsThePaths)
{
    const Finished first = run({u"save"_s, u"--scale"_s, u"1"_s, u"--set"_s,
                                u"background=01020304"_s, u"--set"_s, u"size=Large"_s});
    EXPECT_EQ(first.exitCode, 0) << first.err.toStdString();
    EXPECT_EQ(QString::fromUtf8(first.out).trimmed().split(u'\n'),
              QStringList({locations.packageInfo(), locations.listBackground(),
                           locations.unreadIndicator(), locations.workingCopy()}));
    EXPECT_TRUE(first.err.contains("SAVING THEME...\nbiteSMS Theme Path: "));
    EXPECT_EQ(saved(u"background"_s), QVariant(u"#01020304"_s)); // both records of that key
    EXPECT_EQ(saved(u"size"_s), QVariant(2.5));

    // The next run starts from these choices; an option beats its variable.
    const QString other = folder.filePath(u"other"_s);
    const Finished second = run({u"save"_s, u"--set"_s, u"list-background-image="_s, u"--scale"_s,
                                 u"1"_s, u"--package-root"_s, other});
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_TRUE(second.out.startsWith(other.toUtf8()));
    const auto dictionary =
        PropertyList::readDictionary(contents(other + "/Tintloom/Info.plist"_L1)).value();
    EXPECT_EQ(*dictionary.find(u"background"_s), QVariant(u"#01020304"_s));
    EXPECT_EQ(*dictionary.find(u"list-background-image"_s), QVariant(u""_s));
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
        {u"backgruond=F00"_s, "backgruond", "background"},
        {u"no-such-thing=F00"_s, "no-such-thing", "tintloom list"},
        {u"=F00"_s, "''", "tintloom list"},
        {u"background=red"_s, "red", "hexadecimal"},
        {u"background=0xFF00"_s, "0xFF00", "hexadecimal"},
        {u"size=1"_s, "'1'", "Large, Small"},
        {u"size="_s, "size", "Large, Small"},
    };
    for (const auto &[edit, culprit, accepted] : cases) {
        const Finished result = run({u"save"_s, u"--set"_s, u"background=F00"_s, u"--set"_s, edit});
        EXPECT_EQ(result.exitCode, 2) << edit.toStdString();
        EXPECT_TRUE(result.out.isEmpty());
        EXPECT_TRUE(result.err.contains(culprit)) << result.err.toStdString();
        EXPECT_TRUE(result.err.contains(accepted)) << result.err.toStdString();
    }
    EXPECT_EQ(tree(folder.path()), before);
    EXPECT_EQ(contents(locations.packageInfo()), "kept");
    EXPECT_EQ(contents(locations.workingCopy()), "kept");
}

TEST_F(CommandLineTest, AFaultyDocumentTouchesNothing)
{
    put(locations.workingCopy(), "kept");
    put(document, "[");
    const Finished refused = run({u"save"_s});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.err.contains(document.toUtf8()));
    const Finished empty = run({u"list"_s, u"--json"_s});
    EXPECT_EQ(empty.exitCode, 0);
    EXPECT_EQ(QJsonDocument::fromJson(empty.out).array(), QJsonArray());
    EXPECT_TRUE(empty.out.startsWith('[') && empty.err.contains("warning"));

    put(document, "[{\"key\":\"a\"}]");
    for (const auto &command : {u"save"_s, u"list"_s}) {
        const Finished ended = run({command});
        EXPECT_EQ(ended.exitCode, 1);
        EXPECT_TRUE(ended.out.isEmpty());
        EXPECT_TRUE(ended.err.contains("item 0 has no \"name\"")) << ended.err.toStdString();
    }
    EXPECT_EQ(contents(locations.workingCopy()), "kept");
    EXPECT_FALSE(QFile::exists(locations.packageRoot));
}

TEST_F(CommandLineTest, WhatCannotBeWrittenIsNamed)
{
    put(locations.packageRoot, "a file");
    const Finished result = run({u"save"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(QString::fromUtf8(result.out).trimmed(), locations.workingCopy());
    EXPECT_TRUE(result.err.contains("tintloom: cannot write " +
                                    locations.listBackground().toUtf8() + ": Not a directory\n"))
        << result.err.toStdString();
}

TEST_F(CommandLineTest, AMovedInstallationFindsItsData)
{
    const QTemporaryDir prefix;
    const QDir folder(prefix.path());
    ASSERT_TRUE(folder.mkpath(u"bin"_s) && folder.mkpath(u"share"_s));
    const QString program = folder.filePath(u"bin/tintloom"_s);
    ASSERT_TRUE(QFile::copy(QStringLiteral(TINTLOOM_EXECUTABLE), program));
    ASSERT_TRUE(QFile::link(resources, folder.filePath(u"share/tintloom"_s)));
    const QString link = folder.filePath(u"a link"_s);
    ASSERT_TRUE(QFile::link(program, link));

    const QString expected = QString::fromUtf8(run({u"list"_s}).out);
    ASSERT_TRUE(expected.contains("list-background-image"_L1));
    for (const QString &called : {program, link}) {
        const Finished moved = run({u"list"_s}, {{u"TINTLOOM_RESOURCES"_s, {}}}, called);
        EXPECT_EQ(QString::fromUtf8(moved.out), expected) << moved.err.toStdString();
    }
    // A shell looks for a bare name in PATH.
    const QStringList byName{u"-c"_s, u"PATH=$0:$PATH; tintloom list"_s, folder.filePath(u"bin"_s)};
    EXPECT_EQ(QString::fromUtf8(run(byName, {{u"TINTLOOM_RESOURCES"_s, {}}}, u"sh"_s).out),
              expected);
}
