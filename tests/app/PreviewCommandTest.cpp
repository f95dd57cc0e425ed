#include "color/ColorVision.h"
#include "preview/PreviewPicture.h"
#include "support/ProgramFixture.h"
#include "support/ThemeRecords.h"

namespace
{
struct PreviewCommandTest : ProgramFixture {
    const QString out = folder.filePath("now.png");

    void SetUp() override
    {
        putElements({element("conversation-background-color", "\"#204060\""),
                     element("list-background-image", "\"#806040\""),
                     element("send-button-color", "\"#FF0000\"")});
        putThemes(resources, themeRecord("Dark", "Midnight") + themeRecord("Custom", "Other") +
                                 themeRecord("Bright", "Lost") +
                                 themeRecord("Dark", "Sunset", "", "No") +
                                 themeRecord("Dark", "Later", "", "No"));
        putPackage(resources + "/Midnight", "#000011");
        putPackage(resources + "/Sunset", "#661100");
        putPackage(folder.filePath("Midnight"), "#FFFFFF"); // the catalogue's goes before it
        putPackage(folder.filePath("mine/Tintloom"), "#00FF00");
    }

    static void putPackage(const QString &path, const QString &color)
    {
        PropertyDictionary info;
        info.setValue("list-background-image", color);
        put(path + "/Info.plist", PropertyList::writeDictionary(info));
    }

    /// The picture that the program writes; its standard output names it.
    QImage picture(const QString &arguments)
    {
        QFile::remove(out);
        const Finished result = run("preview --out \"" + out + "\" " + arguments);
        EXPECT_EQ(result.exitCode, 0)
            << arguments.toStdString() << ": " << result.err.toStdString();
        EXPECT_EQ(result.out, out.toUtf8() + '\n');
        return QImage(out);
    }

    QRgb listGround(const QString &arguments)
    {
        return picture(arguments + " --view list --scale 1").pixel(2, 566);
    }
};
} // namespace

TEST_F(PreviewCommandTest, DrawsTheChoicesAThemeOrAPackageFolder)
{
    EXPECT_EQ(listGround(""), 0xFF806040);
    PropertyDictionary saved;
    saved.setValue("list-background-image", "#123456");
    putSaved(saved);
    const QByteArray before = contents(locations.workingCopy());
    EXPECT_EQ(listGround(""), 0xFF123456);
    EXPECT_EQ(listGround("Midnight"), 0xFF000011);
    EXPECT_EQ(listGround("Sunset"), 0xFF661100) << "announced, and there already";
    EXPECT_EQ(listGround('"' + folder.filePath("mine/Tintloom") + '"'), 0xFF00FF00);
    EXPECT_EQ(listGround('"' + folder.filePath("Midnight/") + '"'), 0xFFFFFFFF);
    EXPECT_EQ(contents(locations.workingCopy()), before);

    // What the package leaves out is the list's own, not what is chosen now.
    saved.setValue("conversation-background-color", "#FFFFFF");
    putSaved(saved);
    EXPECT_EQ(picture("Midnight --view conversation --scale 1").pixel(2, 500), 0xFF204060);
}

TEST_F(PreviewCommandTest, ViewsScalesAndEyesAreThoseOfThePicture)
{
    const QImage both = picture(""), larger = picture("--view conversation --scale 2.5");
    EXPECT_EQ(both.size(), QSize(1312, 1136));
    EXPECT_TRUE(both.hasAlphaChannel());
    EXPECT_EQ(larger.size(), QSize(800, 1420));
    for (const auto &[name, eyes] :
         {std::pair("protan", Eyes::Protan), std::pair("deutan", Eyes::Deutan),
          std::pair("tritan", Eyes::Tritan), std::pair("grey", Eyes::Grey)})
        EXPECT_EQ(picture(QString("--eyes ") + name).convertToFormat(QImage::Format_ARGB32),
                  seenBy(eyes, both.convertToFormat(QImage::Format_ARGB32)))
            << name;

    const Finished piped = run("preview --out -");
    EXPECT_EQ(piped.exitCode, 0);
    EXPECT_EQ(QImage::fromData(piped.out, "PNG"), both);
}

TEST_F(PreviewCommandTest, WhatCannotBeDrawnOrWrittenIsNamedAndLeavesNothing)
{
    const QStringList before = tree(folder.path());
    const QString to = " --out \"" + out + '"';
    expectRefused("preview midnihgt" + to, 2, {"'midnihgt'", "near it: Midnight"});
    expectRefused("preview Other" + to, 2, {"'Other'", "tintloom themes"});
    expectRefused("preview Later" + to, 2, {"'Later'"});
    expectRefused("preview Lost" + to, 1, {"/Lost/Info.plist: No such file"});
    expectRefused("preview --view lsit" + to, 2, {"'lsit'", "near it: list"});
    expectRefused("preview --eyes x" + to, 2, {"'x'", "deutan, grey, normal, protan, tritan"});
    for (const QString arguments : {"", "--out=", "Midnight Lost --out x"})
        expectRefused("preview " + arguments, 2, {"Try 'tintloom --help'"});
    for (const QString option : {"--view list", "--eyes grey", "--out x"})
        expectRefused("list " + option, 2, {"belongs to 'preview'"});
    expectRefused("preview --out \"" + out + "/deeper.png\"", 1, {"now.png/deeper.png"});
    expectRefused("preview --out \"" + resources + '"', 1, {"resources: Is a directory"});
    EXPECT_EQ(tree(folder.path()), before);

    QProcess full;
    full.setStandardOutputFile("/dev/full");
    start(full, TINTLOOM_EXECUTABLE, "preview --out -");
    const Finished unread = finish(full);
    EXPECT_EQ(unread.exitCode, 1);
    EXPECT_TRUE(unread.err.contains("standard output"));

    put(document, "{}");
    expectRefused("preview Midnight" + to, 1, {"malformed"});
    put(document, "[1]");
    expectRefused("preview" + to, 1, {"not an object"});
    put(resources + "/Midnight/Info.plist", "no list");
    expectRefused("preview Midnight" + to, 1, {"Midnight/Info.plist: no property list"});
    EXPECT_FALSE(QFile::exists(out));
}

TEST_F(PreviewCommandTest, AFaultAnywhereLeavesTheOldPictureOrTheWholeNewOne)
{
    const QString arguments = "preview Midnight --scale 1 --out \"" + out + '"';
    ASSERT_EQ(run(arguments).exitCode, 0);
    const QByteArray whole = contents(out);
    const QStringList files = tree(folder.path());
    const auto withFault = [&](const QString &fault) {
        put(out, "an old picture");
        return run(arguments, {{"TINTLOOM_TEST_FAULT", fault}}, faultyProgram);
    };
    const int count = withFault("count").err.split(' ').last().trimmed().toInt();
    ASSERT_GE(count, 5);
    int spared = 0, failures = 0;
    for (int place = 0; place < count; ++place) {
        const Finished full = withFault("full:" + QString::number(place));
        const bool isOld = contents(out) == "an old picture";
        EXPECT_TRUE(isOld || contents(out) == whole) << place;
        EXPECT_TRUE(full.exitCode != 0 || !isOld) << place;
        EXPECT_EQ(tree(folder.path()), files) << place;
        spared += isOld;
        failures += full.exitCode != 0;
        EXPECT_TRUE(withFault("kill:" + QString::number(place)).crashed);
        EXPECT_TRUE(contents(out) == "an old picture" || contents(out) == whole) << place;
        for (const QString &left : tree(folder.path()).filter(".tintloom-"))
            QFile::remove(folder.filePath(left)); // what nobody could tidy up any more
    }
    EXPECT_GE(spared, 3);
    EXPECT_GE(failures, spared);
}
