#include "library/ShareText.h"
#include "library/ThemeLibrary.h"
#include "support/MadeArchive.h"
#include "support/ProgramFixture.h"
#include "support/ThemeRecords.h"

#include <QImage>

namespace
{
struct SharingCommandsTest : ProgramFixture {
    const QString package = folder.filePath("Borrowed");
    const QString elsewhere = folder.filePath("elsewhere");

    void SetUp() override
    {
        putElements({element("list-background-image", "\"#806040FF\""),
                     element("unread-indicator-image", "\"#FF0000FF\""),
                     element("send-button-color", "\"#00FF00FF\"")});
        putThemes(resources, themeRecord("Dark", "Midnight"));
        putPackage(resources + "/Midnight", {{"name", "Tintloom"}, {"send-button-color", "#111"}});
        putPackage(package, {{"name", "Sea Calm"},
                             {"list-background-image", "#AABBCCFF"},
                             {"their-key", QVariantList{"x", 2LL}}});
    }

    static void putPackage(const QString &path, const QList<std::pair<QString, QVariant>> &entries)
    {
        PropertyDictionary info;
        for (const auto &[key, value] : entries)
            info.setValue(key, value);
        put(path + "/Info.plist", PropertyList::writeDictionary(info));
    }

    Finished runElsewhere(const QString &arguments) const
    {
        return run(arguments, {{"TINTLOOM_DOCUMENTS", elsewhere}});
    }

    static QString quoted(const QString &text) { return '"' + text + '"'; }

    /// Path and bytes of every file of a kept theme.
    static std::map<QString, QByteArray> kept(const QString &documents, const QString &name)
    {
        const auto theme = ThemeLibrary::open(documents)->find(name);
        EXPECT_TRUE(theme) << name.toStdString();
        std::map<QString, QByteArray> files;
        for (const QString &file : theme ? tree(theme->folder) : QStringList())
            files[file] = contents(theme->folder + '/' + file);
        return files;
    }
};
} // namespace

TEST_F(SharingCommandsTest, WhatIsImportedAndExportedIsTheSameElsewhereByteForByte)
{
    put(package + "/Sounds/in.wav", "a sound");
    put(package + "/ListBackground@2x.jpg", "their own picture");
    const Finished imported = run("import " + quoted(package));
    ASSERT_EQ(imported.exitCode, 0) << imported.err.toStdString();
    EXPECT_EQ(imported.out, "Sea Calm\n");
    for (const char *told : {"1 of 3 elements", "\"their-key\"", "\"Sounds/in.wav\""})
        EXPECT_TRUE(imported.err.contains(told)) << imported.err.toStdString();
    const auto original = kept(locations.documents, "Sea Calm");
    EXPECT_EQ(original.at("ListBackground@2x.jpg"), "their own picture");
    EXPECT_EQ(original.at("Sounds/in.wav"), "a sound");
    EXPECT_TRUE(original.at("Info.plist").contains("their-key"));
    EXPECT_TRUE(original.at("Info.plist").contains("#00FF00FF")) << "the list's own";
    EXPECT_TRUE(original.contains("UIKit/UnreadIndicator@2x.png"));

    for (const QString form : {"a.tintloom", "a.zip", "a.tar.gz", "a"}) {
        const QString path = folder.filePath(form);
        const Finished exported = run("export \"sea calm\" " + quoted(path));
        ASSERT_EQ(exported.exitCode, 0) << exported.err.toStdString();
        EXPECT_EQ(exported.out, path.toUtf8() + '\n');
        const Finished again = runElsewhere("import --replace " + quoted(path));
        ASSERT_EQ(again.out, "Sea Calm\n") << again.err.toStdString();
        EXPECT_EQ(kept(elsewhere, "Sea Calm"), original) << form.toStdString();
    }

    const Finished shared = run("share \"Sea Calm\"");
    EXPECT_EQ(shared.exitCode, 0);
    EXPECT_TRUE(shared.err.contains("ListBackground@2x.jpg") &&
                shared.err.contains("Sounds/in.wav") && !shared.err.contains("Unread"))
        << shared.err.toStdString();
    const QString text = "Mine: " + QString(shared.out).insert(30, "\n ");
    ASSERT_EQ(runElsewhere("import --as Again " + quoted(text)).out, "Again\n");
    auto again = kept(elsewhere, "Again");
    EXPECT_EQ(QByteArray(again.at("Info.plist")).replace("Again", "Sea Calm"),
              original.at("Info.plist"));
}

TEST_F(SharingCommandsTest, PassesOnTheCurrentChoicesAndReadyMadeThemes)
{
    PropertyDictionary saved;
    saved.setValue("send-button-color", "#123456FF");
    saved.setValue("theirs", "kept");
    putSaved(saved);
    const QString png = folder.filePath("code.png");
    const Finished shared = run("share --qr " + quoted(png));
    EXPECT_EQ(shared.exitCode, 0) << shared.err.toStdString();
    EXPECT_FALSE(shared.err.contains("does not hold"))
        << "pictures of one colour are made anew: " << shared.err.toStdString();
    const auto theme = ShareText::read(shared.out).theme;
    ASSERT_TRUE(theme);
    EXPECT_EQ(theme->name, "Tintloom");
    EXPECT_EQ(*theme->info.find("send-button-color"), "#123456FF");
    EXPECT_EQ(*theme->info.find("theirs"), "kept");
    const QImage code(png);
    EXPECT_TRUE(code.width() >= 600 && code.width() == code.height());

    const QString path = folder.filePath("now.tintloom");
    ASSERT_EQ(run("export " + quoted(path)).exitCode, 0);
    ASSERT_EQ(run("import " + quoted(path)).out, "now\n");
    ASSERT_EQ(run("export Midnight " + quoted(folder.filePath("m.zip"))).exitCode, 0);
    EXPECT_EQ(run("import " + quoted(folder.filePath("m.zip"))).out, "Midnight\n");
    EXPECT_EQ(run("import " + quoted(folder.filePath("m.zip"))).out, "Midnight 2\n");
    EXPECT_EQ(run("import --replace " + quoted(folder.filePath("m.zip"))).out, "Midnight\n");
    EXPECT_EQ(ThemeLibrary::open(locations.documents)->themes().size(), 3U);
    EXPECT_TRUE(ShareText::read(run("share " + quoted(package)).out).theme);
}

TEST_F(SharingCommandsTest, RefusesAndLeavesEverythingAsItIs)
{
    put(folder.filePath("bad.zip"), made::zip({{"../up", "x"}}));
    put(folder.filePath("there.zip"), "dear");
    ASSERT_EQ(run("import --as Taken " + quoted(package)).out, "Taken\n");
    const QStringList before = tree(folder.path());
    const auto path = [&](const QString &name) { return quoted(folder.filePath(name)); };
    expectRefused("import " + path("bad.zip"), 1, {"nothing imported", "\"../up\" leads out"});
    expectRefused("import " + path("none.zip"), 1, {"none.zip: No such file"});
    expectRefused("import \"look: tintloom:1:AAAA\"", 1, {"nothing imported"});
    expectRefused("import tintloom:3:AAAA", 1, {"version 3"});
    expectRefused("import --as taken " + quoted(package), 2, {"--replace"});
    expectRefused("import --as \"\n\" " + quoted(package), 2, {});
    expectRefused("import", 2, {"shared text"});
    expectRefused("import --as= x", 2, {"--as needs a name"});
    expectRefused("export " + path("there.zip"), 2, {"there.zip already", "--replace"});
    expectRefused("export midnihgt " + path("new.zip"), 2, {"near it: Midnight"});
    expectRefused("export takne " + path("new.zip"), 2, {"near it: Taken"});
    expectRefused("export --replace " + path(""), 1, {"no theme's folder"});
    expectRefused("export " + path("none/new.zip"), 1, {"none/new.zip"});
    expectRefused("export", 2, {"the path to write to"});
    expectRefused("share midnihgt", 2, {"near it: Midnight"});
    expectRefused("share --qr " + path("none/x.png"), 1, {"none/x.png"});
    expectRefused("share --qr=", 2, {"--qr needs"});
    expectRefused("share --as x", 2, {"belongs to 'import'"});
    expectRefused("list --replace", 2, {"belongs to 'keep'"});
    expectRefused("list --qr x", 2, {"belongs to 'share'"});
    EXPECT_EQ(tree(folder.path()), before);
    EXPECT_EQ(contents(folder.filePath("there.zip")), "dear");
    put(document, "{}");
    expectRefused("import " + quoted(package), 1, {"array"});
}

TEST_F(SharingCommandsTest, AKilledImportLeavesTheThemeWholeOrNotThereAtAll)
{
    const auto withFault = [&](const QString &fault) {
        QDir(locations.documents).removeRecursively();
        return run("import " + quoted(package), {{"TINTLOOM_TEST_FAULT", fault}}, faultyProgram);
    };
    const int count = withFault("count").err.split(' ').last().trimmed().toInt();
    ASSERT_GE(count, 10);
    const auto whole = kept(locations.documents, "Sea Calm");
    int absent = 0;
    for (int place = 0; place < count; ++place) {
        EXPECT_TRUE(withFault("kill:" + QString::number(place)).crashed) << place;
        if (ThemeLibrary::open(locations.documents)->themes().empty())
            ++absent;
        else
            EXPECT_EQ(kept(locations.documents, "Sea Calm"), whole) << place;
    }
    EXPECT_GE(absent, 5);
}
