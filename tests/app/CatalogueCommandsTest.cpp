#include "app/CatalogueCommands.h"

#include "support/ProgramFixture.h"
#include "support/ThemeRecords.h"

namespace
{
struct CatalogueCommandsTest : ProgramFixture {
    void SetUp() override
    {
        putThemes(resources, themeRecord("Custom", "Build Your Own!") +
                                 themeRecord("Dark", "Midnight") +
                                 themeRecord("Dark", "Sunset", "Not shown", "No") +
                                 themeRecord("Bright", "Lost") + themeRecord("Bright", "../Dark"));
        put(resources + "/Midnight/Info.plist", "info");
        put(resources + "/Midnight/UIKit/dot.png", "dot");
    }
    /// What each row of the list has under the key.
    QString listed(const QString &key) const
    {
        QStringList values;
        for (const QJsonValue row : json(run("themes --json")))
            values += row[key].toVariant().toString();
        return values.join(", ");
    }
};
} // namespace

TEST_F(CatalogueCommandsTest, ListsInstallsAndEdits)
{
    EXPECT_EQ(listed("name"), "Lost, ../Dark, Build Your Own!, Midnight, Sunset");
    EXPECT_EQ(listed("section"), "Bright, Bright, Custom, Dark, Dark");
    EXPECT_EQ(listed("active"), "true, true, true, true, false");
    EXPECT_EQ(listed("installed"), "false, false, false, false, false");

    put(locations.workingCopy(), "mine");
    const Finished installed = run("install Midnight");
    EXPECT_EQ(installed.err, "SAVING THEME... Midnight\n");
    EXPECT_EQ(installed.out,
              "Midnight has been installed in " + locations.packageFolder().toUtf8() + "\n");
    EXPECT_EQ(contents(locations.workingCopy()), "mine");
    const QByteArray readable = run("themes").out;
    EXPECT_TRUE(readable.contains("* Midnight         About it\n")) << readable.toStdString();
    EXPECT_TRUE(readable.contains("  Sunset           Coming soon!\n"));

    put(locations.packageFolder() + "/touched", "");
    EXPECT_EQ(run("install Midnight").out, "Midnight is already your chosen theme.\n");
    EXPECT_TRUE(QFile::exists(locations.packageFolder() + "/touched"));

    const Finished edited = run("edit Midnight");
    EXPECT_TRUE(edited.err.startsWith("SAVING PREDEFINED THEME... Midnight\n"));
    EXPECT_TRUE(edited.out.contains(locations.workingCopy().toUtf8()));
    EXPECT_EQ(contents(locations.workingCopy()), "info");
    EXPECT_EQ(listed("installed"), "false, false, true, false, false");

    QFile::remove(resources + "/themes.plist");
    for (const QString command : {"themes", "install Midnight"})
        expectRefused(command, 1, {"themes.plist: No such file"});
}

TEST_F(CatalogueCommandsTest, WhatCannotBeInstalledTouchesNothingAndIsNamed)
{
    const QStringList before = tree(folder.path());
    const auto refuses = [this](const QString &name, int exitCode, const QByteArray &told) {
        for (const QString command : {"install ", "edit "})
            expectRefused(command + name, exitCode, {told});
    };
    refuses("midnihgt", 2, "near it: Midnight");
    refuses("Sunset", 2, "coming soon");
    refuses("\"Build Your Own!\"", 2, "editor");
    refuses("\"nothing like it\"", 2, "tintloom themes");
    refuses("Lost", 1, "/Lost");
    refuses("../Dark", 1, "../Dark");
    EXPECT_EQ(tree(folder.path()), before);
}
