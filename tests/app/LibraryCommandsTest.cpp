#include "app/LibraryCommands.h"

#include "library/EditedTheme.h"
#include "library/ThemeLibrary.h"
#include "support/ProgramFixture.h"
#include "support/ThemeRecords.h"

using namespace Qt::StringLiterals;

namespace
{
struct LibraryCommandsTest : ProgramFixture {
    void SetUp() override
    {
        putElements({element("list-background-image", "\"#FFFFFFFF\""),
                     element("unread-indicator-image", "\"#00AA00FF\"")});
        putThemes(resources, themeRecord("Calm", "Sea") + themeRecord("Calm", "Lake"));
        for (const char *name : {"/Sea/Info.plist", "/Lake/Info.plist"})
            put(resources + name, "ready-made");
    }

    /// What people are told by a command that does its work.
    QByteArray done(const QString &command) const
    {
        const Finished ended = run(command);
        EXPECT_EQ(ended.exitCode, 0) << command.toStdString() << ": " << ended.err.toStdString();
        return ended.out;
    }
    /// Rows of the list: "name", with "kept" and "installed" where they are.
    QStringList listed() const
    {
        QStringList rows;
        for (const QJsonValue row : json(run("themes --json"))) {
            EXPECT_EQ(row["section"].toString() == "My Themes"_L1, row["kept"].toBool());
            rows += row["name"].toString() + (row["kept"].toBool() ? " kept"_L1 : ""_L1) +
                    (row["installed"].toBool() ? " installed"_L1 : ""_L1);
        }
        return rows;
    }
    QMap<QString, QByteArray> filesIn(const QString &folder) const
    {
        QMap<QString, QByteArray> files;
        for (const QString &path : tree(folder))
            if (QFileInfo(folder + u'/' + path).isFile())
                files[path] = contents(folder + u'/' + path);
        return files;
    }
    std::optional<QString> edited() const { return EditedTheme(locations.preferences()).name(); }
};
} // namespace

TEST_F(LibraryCommandsTest, KeptThemesAreListedInstalledAndEditedLikeReadyMadeOnes)
{
    done("set list-background-image=C00");
    EXPECT_EQ(done("keep Sea"), "\"Sea\" has been kept\n");
    EXPECT_EQ(edited(), u"Sea"_s);
    done("install Lake");
    EXPECT_EQ(listed(), (QStringList{"Sea", "Lake installed", "Sea kept"}));
    done("install sea");
    EXPECT_EQ(listed(), (QStringList{"Sea", "Lake", "Sea kept installed"}));
    const QString sea = locations.documents + "/Themes/Sea";
    EXPECT_EQ(filesIn(locations.packageFolder()), filesIn(sea)); // not the ready-made one
    EXPECT_EQ(filesIn(sea).size(), 3);
    EXPECT_TRUE(done("themes").contains("\nMy Themes\n* Sea\n"));

    done("set list-background-image=00C");
    done("keep Sea --replace");
    done("install Sea"); // once more: it has been changed
    EXPECT_EQ(filesIn(locations.packageFolder()), filesIn(sea));
    done("rename Sea \"Red Sea\"");
    EXPECT_EQ(listed(), (QStringList{"Sea", "Lake", "Red Sea kept installed"}));
    EXPECT_EQ(edited(), u"Red Sea"_s);
    done("duplicate \"red sea\" Copy");
    EXPECT_TRUE(done("remove Copy").startsWith("\"Copy\" has been removed"));
    done("remove \"Red Sea\"");
    EXPECT_EQ(edited(), std::nullopt);
    done("remove --undo \"red sea\"");
    EXPECT_EQ(edited(), u"Red Sea"_s);
    done("remove \"Red Sea\"");
    done("remove --undo Sea"); // the one that was replaced
    EXPECT_EQ(listed(), (QStringList{"Sea", "Lake", "Sea kept"}));
    const QJsonArray before = json(run("list --json"));
    EXPECT_EQ(before.first()["color"], "#0000CCFF");
    done("edit Sea");
    EXPECT_EQ(json(run("list --json")).first()["color"], "#CC0000FF");
    EXPECT_EQ(edited(), u"Sea"_s);
    EXPECT_EQ(listed(), (QStringList{"Sea", "Lake", "Sea kept"}));
    done("restore");
    EXPECT_EQ(json(run("list --json")), before);
    EXPECT_EQ(edited(), std::nullopt);
    done("edit Sea");
    done("remove Sea");
    done("edit Lake");
    done("remove --undo Sea");
    EXPECT_EQ(edited(), std::nullopt); // a ready-made one has no name to keep
    EXPECT_EQ(run("check Sea --json").exitCode, 0);
    done("preview sea --out " + folder.filePath("sea.png"));
}

TEST_F(LibraryCommandsTest, WhatAForeignThemeHoldsStaysWithIt)
{
    done("set list-background-image=C00");
    done("keep Plain");
    PackageContents package = *ThemeLibrary::open(locations.documents)->read("Plain").contents;
    package.info.setValue("description", "by somebody");
    package.info.setValue("sounds", QVariantMap{{"sent", "pop"}});
    package.files["ListBackground@2x.jpg"] = "a photo";
    package.files["UIKit/sounds/pop"] = "pop";
    package.files["read me"] = "";
    ASSERT_TRUE(ThemeLibrary::open(locations.documents)
                    ->keep(package, "Foreign", ThemeLibrary::IfTaken::Refuse)
                    .isDone());
    const QString kept = locations.documents + "/Themes/Foreign";
    const auto files = filesIn(kept);
    EXPECT_EQ(files.size(), 5);
    done("install Foreign");
    EXPECT_EQ(filesIn(locations.packageFolder()), files);
    done("edit Foreign");
    EXPECT_EQ(filesIn(locations.packageFolder()), files);
    EXPECT_EQ(contents(locations.workingCopy()), files["Info.plist"]);

    // Through the editor and back; a save in between has its own rules.
    done("set unread-indicator-image=123456");
    done("set unread-indicator-image=00AA00FF");
    done("save");
    EXPECT_EQ(filesIn(locations.packageFolder()).size(), 3);
    done("keep Foreign --replace");
    EXPECT_EQ(filesIn(kept), files);
    done("set list-background-image=00C");
    done("keep Changed");
    const auto changed = filesIn(locations.documents + "/Themes/Changed");
    EXPECT_EQ(changed["UIKit/sounds/pop"], "pop");
    EXPECT_NE(changed["ListBackground@2x.jpg"], "a photo"); // the colour behind it is another one
    EXPECT_TRUE(changed["Info.plist"].contains("pop"));
}

TEST_F(LibraryCommandsTest, RefusalsTouchNothingAndNameTheNearest)
{
    done("keep Foam");
    const QStringList before = tree(folder.path());
    for (const QString command : {"install", "edit", "remove", "check"})
        expectRefused(command + " foaam", 2, {"near it: Foam"});
    expectRefused("preview foaam --out x.png", 2, {"near it: Foam"});
    for (const QString command : {"rename", "duplicate"}) {
        expectRefused(command + " foaam New", 2, {"near it: Foam"});
        expectRefused(command + " Foam " + QString(81, 'x'), 2, {"at most 80"});
        expectRefused(command, 2, {"needs the name"});
        expectRefused(command + " Foam", 2, {"new name"});
    }
    expectRefused("duplicate Foam FOAM", 2, {"\"FOAM 2\" is free"});
    expectRefused("keep foam", 2, {"\"foam 2\" is free", "--replace"});
    expectRefused("keep \" \"", 2, {"at least one"});
    expectRefused("remove --undo Foam", 2, {"no theme \"Foam\" has been removed"});
    expectRefused("remove --replace Foam", 2, {"--replace belongs to 'keep'"});
    EXPECT_EQ(tree(folder.path()), before);

    ASSERT_TRUE(QDir().rename(locations.documents + "/Themes", folder.filePath("away")));
    ASSERT_TRUE(QFile::link(folder.filePath("away"), locations.documents + "/Themes"));
    for (const QString command : {"keep New", "themes", "install Lake", "remove Foam",
                                  "rename Foam New", "check Foam", "remove --undo Foam"})
        expectRefused(command, 1, {"Themes is a symbolic link"});
    ASSERT_TRUE(QFile::remove(locations.documents + "/Themes"));
    put(document, "{}");
    expectRefused("keep New", 1, {"malformed data source"});
}
