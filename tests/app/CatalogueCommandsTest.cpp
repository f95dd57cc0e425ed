#include "app/CatalogueCommands.h"

#include "support/ProgramFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace
{
struct CatalogueCommandsTest : ProgramFixture {
    void SetUp() override
    {
        const auto record = [](const QByteArray &section, const QByteArray &name,
                               const QByteArray &active) {
            return "<dict><key>section</key><string>" + section +
                   "</string><key>name</key><string>" + name +
                   "</string><key>details</key><string>About it</string>"
                   "<key>active</key><string>" +
                   active + "</string></dict>";
        };
        put(resources + "/themes.plist"_L1,
            "<plist><array>" + record("Custom", "Build Your Own!", "Yes") +
                record("Dark", "Midnight", "Yes") + record("Dark", "Sunset", "No") +
                record("Bright", "Lost", "Yes") + record("Bright", "../Dark", "Yes") +
                "</array></plist>");
        put(resources + "/Midnight/Info.plist"_L1, "info");
        put(resources + "/Midnight/UIKit/dot.png"_L1, "dot");
    }
    QStringList rows(const QByteArray &key)
    {
        QStringList values;
        for (const QJsonValue row :
             QJsonDocument::fromJson(run({u"themes"_s, u"--json"_s}).out).array())
            values += row[QLatin1StringView(key)].toVariant().toString();
        return values;
    }
};
} // namespace

TEST_F(CatalogueCommandsTest, ListsTheCatalogue)
{
    EXPECT_EQ(rows("name"),
              (QStringList{"Lost", "../Dark", "Build Your Own!", "Midnight", "Sunset"}));
    EXPECT_EQ(rows("section"), (QStringList{"Bright", "Bright", "Custom", "Dark", "Dark"}));
    EXPECT_EQ(rows("active"), (QStringList{"true", "true", "true", "true", "false"}));
    EXPECT_FALSE(rows("installed").contains("true"));
    EXPECT_EQ(run({u"install"_s, u"Midnight"_s}).exitCode, 0);
    EXPECT_EQ(rows("installed"), (QStringList{"false", "false", "false", "true", "false"}));
    const QByteArray readable = run({u"themes"_s}).out;
    EXPECT_TRUE(readable.contains("* Midnight         About it\n")) << readable.toStdString();
    EXPECT_TRUE(readable.contains("  Sunset           Coming soon!\n"));

    QFile::remove(resources + "/themes.plist"_L1);
    for (const QStringList &arguments :
         {QStringList{"themes"}, QStringList{"install", "Midnight"}}) {
        const Finished none = run(arguments);
        EXPECT_EQ(none.exitCode, 1);
        EXPECT_TRUE(none.err.contains("themes.plist: No such file")) << none.err.toStdString();
    }
}

TEST_F(CatalogueCommandsTest, InstallsAndEdits)
{
    put(locations.workingCopy(), "mine");
    const Finished installed = run({u"install"_s, u"Midnight"_s});
    EXPECT_EQ(installed.exitCode, 0) << installed.err.toStdString();
    EXPECT_EQ(installed.err, "SAVING THEME... Midnight\n");
    EXPECT_EQ(installed.out,
              "Midnight has been installed in " + locations.packageFolder().toUtf8() + "\n");
    EXPECT_EQ(tree(locations.packageFolder()),
              (QStringList{"Info.plist", "UIKit", "UIKit/dot.png"}));
    EXPECT_EQ(contents(locations.workingCopy()), "mine");

    put(locations.packageFolder() + "/touched"_L1, "");
    const Finished again = run({u"install"_s, u"Midnight"_s});
    EXPECT_EQ(again.exitCode, 0);
    EXPECT_EQ(again.out, "Midnight is already your chosen theme.\n");
    EXPECT_TRUE(QFile::exists(locations.packageFolder() + "/touched"_L1));

    const Finished edited = run({u"edit"_s, u"Midnight"_s});
    EXPECT_EQ(edited.exitCode, 0);
    EXPECT_TRUE(edited.err.startsWith("SAVING PREDEFINED THEME... Midnight\n"));
    EXPECT_TRUE(edited.out.contains(locations.workingCopy().toUtf8()));
    EXPECT_EQ(contents(locations.workingCopy()), "info");
    EXPECT_FALSE(QFile::exists(locations.packageFolder() + "/touched"_L1));
    EXPECT_EQ(rows("installed"), (QStringList{"false", "false", "true", "false", "false"}));
}

TEST_F(CatalogueCommandsTest, ANameThatCannotBeInstalledTouchesNothing)
{
    put(locations.packageInfo(), "kept");
    put(locations.workingCopy(), "kept");
    const QStringList before = tree(folder.path());
    const struct {
        QString name;
        int exitCode;
        QByteArray told;
    } cases[] = {
        {u"midnihgt"_s, 2, "near it: Midnight"},
        {u"Sunset"_s, 2, "coming soon"},
        {u"Build Your Own!"_s, 2, "editor"},
        {u"nothing like it"_s, 2, "tintloom themes"},
        {u"Lost"_s, 1, "/Lost"},
        {u"../Dark"_s, 1, "../Dark"},
    };
    for (const auto &[name, exitCode, told] : cases) {
        for (const QString &command : {u"install"_s, u"edit"_s}) {
            const Finished result = run({command, name});
            EXPECT_EQ(result.exitCode, exitCode) << name.toStdString();
            EXPECT_TRUE(result.out.isEmpty());
            EXPECT_TRUE(result.err.contains(told)) << result.err.toStdString();
        }
    }
    EXPECT_EQ(tree(folder.path()), before);
    EXPECT_EQ(contents(locations.packageInfo()) + contents(locations.workingCopy()), "keptkept");
}

TEST_F(CatalogueCommandsTest, WhatCannotBeCopiedIsNamed)
{
    put(locations.packageRoot, "a file");
    const Finished result = run({u"install"_s, u"Midnight"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.out.isEmpty());
    EXPECT_TRUE(result.err.contains("tintloom: cannot write " + locations.packageInfo().toUtf8() +
                                    ": Not a directory\n"))
        << result.err.toStdString();
}
