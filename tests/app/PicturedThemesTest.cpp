#include "library/ThemeLibrary.h"
#include "support/ProgramFixture.h"
#include "theme/ElementPicture.h"
#include "theme/PictureEntry.h"
#include "theme/ThemeDocument.h"
#include "theme/ThemePackageWriter.h"

#include <QImage>

namespace
{
struct PicturedThemesTest : ProgramFixture {
    const ThemeLocations elsewhere{folder.filePath("their root"), folder.filePath("theirs")};
    ElementPicture picture;

    void SetUp() override
    {
        putElements({element("list-background-image", "\"#806040FF\""),
                     element("unread-indicator-image", "\"#FF0000FF\"")});
        QImage image(300, 400, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgb(x / 2, y / 2, 90));
        const QString path = folder.filePath("beach.png");
        ASSERT_TRUE(image.save(path));
        picture = ElementPicture::read(path).picture.value();
        picture.zoom = 1.7;
        picture = picture.moved({300, 400}, 1.0 / 7.0, -1.0 / 3.0);
        ThemeDocument document(load());
        document.changeAll({{0, *picture.choice()}}, "Place");
        testing::internal::CaptureStderr();
        writeTheme(buildTheme(document.elements(), locations, 2.0));
        testing::internal::GetCapturedStderr();
    }

    Finished runElsewhere(const QString &arguments) const
    {
        return run(arguments, {{"TINTLOOM_DOCUMENTS", elsewhere.documents},
                               {"TINTLOOM_PACKAGE_ROOT", elsewhere.packageRoot}});
    }
    QString quoted(const QString &name) const { return '"' + folder.filePath(name) + '"'; }

    static std::map<QString, QByteArray> filesBelow(const QString &folder)
    {
        std::map<QString, QByteArray> files;
        for (const QString &file : tree(folder))
            files[file] = contents(folder + '/' + file);
        return files;
    }
    static std::map<QString, QByteArray> kept(const QString &documents, const QString &name)
    {
        const auto theme = ThemeLibrary::open(documents)->find(name);
        EXPECT_TRUE(theme) << name.toStdString();
        return theme ? filesBelow(theme->folder) : std::map<QString, QByteArray>();
    }
    std::optional<ElementPicture> current(const ThemeLocations &where)
    {
        testing::internal::CaptureStderr();
        const auto elements = ElementDataSource::load(resources, where.documents);
        testing::internal::GetCapturedStderr();
        return ElementPicture::behindList(elements);
    }
};
} // namespace

TEST_F(PicturedThemesTest, KeepThePictureAndItsPlaceWhereverTheyGo)
{
    const QString file = PictureEntry::fileName(picture.jpeg);
    ASSERT_EQ(run("keep Beach").exitCode, 0);
    const auto original = kept(locations.documents, "Beach");
    EXPECT_EQ(original.at(file), picture.jpeg);

    // Through another program's choices and back, however the theme is called meanwhile.
    ASSERT_EQ(run("set list-background-image=#123456").exitCode, 0);
    ASSERT_EQ(run("duplicate Beach Copy").exitCode, 0);
    ASSERT_EQ(run("rename Copy Bay").exitCode, 0);
    ASSERT_EQ(run("set unread-indicator-image=#010203").exitCode, 0);
    EXPECT_FALSE(QFile::exists(locations.workingCopyFolder() + '/' + file)) << "nobody's any more";
    const Finished edited = run("edit Bay");
    ASSERT_EQ(edited.exitCode, 0) << edited.err.toStdString();
    EXPECT_EQ(current(locations), picture);
    ASSERT_EQ(run("keep Bay --replace").exitCode, 0);
    ASSERT_EQ(run("rename Bay Beach2").exitCode, 0);
    ASSERT_EQ(run("remove Beach").exitCode, 0);
    ASSERT_EQ(run("rename Beach2 Beach").exitCode, 0);
    EXPECT_EQ(kept(locations.documents, "Beach"), original);

    for (const QString form : {"beach.tintloom", "beach.tar.gz", "beach"}) {
        ASSERT_EQ(run("export --replace Beach " + quoted(form)).exitCode, 0);
        const Finished imported = runElsewhere("import --replace " + quoted(form));
        EXPECT_EQ(imported.out, "Beach\n");
        EXPECT_EQ(imported.err, "") << "nothing of it is unknown";
        EXPECT_EQ(kept(elsewhere.documents, "Beach"), original) << form.toStdString();
    }
    ASSERT_EQ(runElsewhere("edit Beach").exitCode, 0);
    EXPECT_EQ(current(elsewhere), picture);
    EXPECT_EQ(filesBelow(elsewhere.packageFolder()), original) << "installed as it is";
    ASSERT_EQ(runElsewhere("keep Again").exitCode, 0);
    auto again = kept(elsewhere.documents, "Again");
    again["Info.plist"].replace("Again", "Beach");
    EXPECT_EQ(again, original);

    const Finished shared = run("share Beach");
    EXPECT_TRUE(shared.err.contains("ListBackground@2x.jpg") && !shared.err.contains("Picture-"))
        << shared.err.toStdString();
    EXPECT_EQ(runElsewhere("import --as Text " + shared.out).out, "Text\n");
    EXPECT_FALSE(kept(elsewhere.documents, "Text").at("Info.plist").contains("picture"));
    // Seen, not only named.
    ASSERT_EQ(runElsewhere("preview --view list Beach --out " + quoted("seen.png")).exitCode, 0);
    ASSERT_EQ(runElsewhere("preview --view list Text --out " + quoted("text.png")).exitCode, 0);
    EXPECT_NE(contents(folder.filePath("seen.png")), contents(folder.filePath("text.png")));
}

TEST_F(PicturedThemesTest, ChoosingAColorTakesThePictureOutOfTheKeptTheme)
{
    ASSERT_EQ(run("keep Beach").exitCode, 0);
    const QString color =
        PropertyList::textOf(*themeDictionary(load()).find("list-background-image"));
    // The very colour that stood for it, too.
    for (const QString &chosen : {QString("#00C000FF"), color}) {
        ASSERT_EQ(run("edit Beach").exitCode, 0);
        ASSERT_EQ(run("set list-background-image=#000001").exitCode, 0);
        ASSERT_EQ(run("set list-background-image=" + chosen).exitCode, 0);
        ASSERT_EQ(run("keep Plain --replace").exitCode, 0);
        const auto plain = kept(locations.documents, "Plain");
        EXPECT_EQ(plain.size(), 4U) << "Info.plist, two pictures and a folder";
        EXPECT_NE(plain.at("ListBackground@2x.jpg"),
                  kept(locations.documents, "Beach").at("ListBackground@2x.jpg"));
        EXPECT_FALSE(plain.at("Info.plist").contains(".picture"));
    }
}

TEST_F(PicturedThemesTest, WhatLeadsToNoPictureOfTheThemeIsLeftOut)
{
    ASSERT_EQ(run("export " + quoted("beach")).exitCode, 0);
    const QString package = folder.filePath("beach");
    const QString infoPath = package + "/Info.plist";
    const QString file = PictureEntry::fileName(picture.jpeg);
    const auto good = *PropertyList::readDictionary(contents(infoPath));
    const QVariantMap entry = good.find(PictureEntry::key())->toMap();
    put(folder.filePath("outside.jpg"), picture.jpeg);
    put(package + "/inside.jpg", picture.jpeg);
    const QByteArray text = "no picture at all";
    put(package + '/' + PictureEntry::fileName(text), text);
    const QByteArray png = contents(folder.filePath("beach.png"));
    put(package + '/' + PictureEntry::fileName(png), png);
    const QString missing = PictureEntry::fileName("nowhere");
    const auto with = [&entry](const QString &key, const QVariant &value) {
        QVariantMap changed = entry;
        changed.insert(key, value);
        return changed;
    };
    auto inlined = with("file", missing);
    inlined.insert("jpeg", picture.jpeg);
    for (const QVariant &hostile :
         {QVariant(with("file", missing)), QVariant(with("file", "../outside.jpg")),
          QVariant(with("file", folder.filePath("outside.jpg"))),
          QVariant(with("file", "inside.jpg")),
          QVariant(with("file", PictureEntry::fileName(text))),
          QVariant(with("file", PictureEntry::fileName(png))), QVariant(inlined),
          QVariant(with("color", "#000000FF")), QVariant("text"), QVariant(QVariantMap())}) {
        auto info = good;
        info.setValue(PictureEntry::key(), hostile);
        put(infoPath, PropertyList::writeDictionary(info));
        const Finished imported = run("import --as Theirs --replace " + quoted("beach"));
        ASSERT_EQ(imported.out, "Theirs\n") << imported.err.toStdString();
        EXPECT_TRUE(imported.err.contains("left out: \"list-background-image.picture\""))
            << imported.err.toStdString();
        const auto theirs = kept(locations.documents, "Theirs");
        EXPECT_FALSE(theirs.at("Info.plist").contains(".picture"));
        EXPECT_EQ(theirs.at("inside.jpg"), picture.jpeg) << "somebody's file stays";
        ASSERT_EQ(run("edit Theirs").exitCode, 0);
        EXPECT_FALSE(current(locations));
    }
    // Numbers that are none, and what nobody knows, do no harm.
    auto odd = with("zoom", "far");
    odd.insert("x", -1e300);
    odd.insert("more", "of it");
    auto info = good;
    info.setValue(PictureEntry::key(), odd);
    put(infoPath, PropertyList::writeDictionary(info));
    ASSERT_EQ(run("import --as Odd " + quoted("beach")).exitCode, 0);
    EXPECT_FALSE(kept(locations.documents, "Odd").at("Info.plist").contains("of it"));
    ASSERT_EQ(run("edit Odd").exitCode, 0);
    EXPECT_EQ(current(locations)->jpeg, picture.jpeg);
    EXPECT_EQ(current(locations)->zoom, 1.0);

    // Damaged after it was kept.
    const auto theme = ThemeLibrary::open(locations.documents)->find("Odd");
    put(theme->folder + '/' + file, text);
    ASSERT_EQ(run("edit Odd").exitCode, 0);
    EXPECT_FALSE(current(locations));
    QFile::remove(theme->folder + '/' + file);
    const Finished edited = run("edit Odd");
    EXPECT_EQ(edited.exitCode, 1);
    EXPECT_TRUE(edited.err.contains(file.toUtf8())) << edited.err.toStdString();
}
