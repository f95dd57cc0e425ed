#include "library/OpenedTheme.h"

#include "archives/EntryPath.h"
#include "library/Archives.h"
#include "library/PackageLimits.h"
#include "library/ShareText.h"
#include "support/MadeArchive.h"
#include "support/ThemeFixture.h"
#include "theme/ThemePackageWriter.h"

#include <QDateTime>

#include <sys/stat.h>

namespace
{
/// A picture's head, which says how large it is; nothing more is there.
QByteArray pngOf(int width, int height)
{
    QByteArray head("IHDR");
    for (const int side : {width, height})
        for (int shift = 24; shift >= 0; shift -= 8)
            head += char(side >> shift);
    head += QByteArray("\x08\x02\0\0\0", 5);
    QByteArray crc = made::littleEndian(made::crc(head), 4);
    std::ranges::reverse(crc);
    return QByteArray("\x89PNG\r\n\x1A\n\0\0\0\x0D", 12) + head + crc +
           QByteArray("\0\0\0\x01"
                      "IDAT",
                      8);
}

struct OpenedThemeTest : ThemeFixture {
    const QString package = folder.filePath("Borrowed");
    PropertyDictionary info;
    std::map<QString, QByteArray> files{{"ListBackground@2x.jpg", "their own picture"},
                                        {"Sounds/in.wav", "a sound"},
                                        {"read me.txt", "words"}};

    void SetUp() override
    {
        putElements({element("green-balloon-colors_1", "\"#111111FF\""),
                     element("green-balloon-colors_2", "\"#222222FF\""),
                     element("send-button-color", "\"#FF0000\""),
                     element("size", "null", R"({"Small":1,"Large":2})", "1"),
                     element("removed-color", "\"#333\"")});
        info.setValue("name", "Sea\tof  Calm");
        info.setValue("theme-version", "3");
        info.setValue("send-button-color", "#00FF00FF");
        info.setValue("their-key", QVariantMap{{"a", 1LL}});
        info.setValue("size", 2LL);
    }

    ThemeOpener opener() { return ThemeOpener(load()); }

    void putPackage(const QString &path)
    {
        put(path + "/Info.plist", PropertyList::writeDictionary(info));
        for (const auto &[file, bytes] : files)
            put(path + '/' + file, bytes);
    }

    std::vector<ArchiveEntry> entries(const QString &top = {}) const
    {
        std::vector<ArchiveEntry> entries;
        for (const auto &[file, bytes] : files)
            entries.push_back({top + file, bytes});
        entries.push_back({top + "Info.plist", PropertyList::writeDictionary(info)});
        return entries;
    }

    std::string problem(const QString &path)
    {
        const ThemeOpening opening = opener().fromPath(path);
        EXPECT_NE(opening.theme.has_value(), !opening.problem.isEmpty());
        return opening.problem.toStdString();
    }

    void expectProblem(const QString &path, const QStringList &told)
    {
        const std::string problem = this->problem(path);
        for (const QString &text : told)
            EXPECT_NE(problem.find(text.toStdString()), std::string::npos)
                << text.toStdString() << ": " << problem;
    }
};
} // namespace

TEST_F(OpenedThemeTest, IsTheSameInEveryForm)
{
    using Form = ArchiveModule::Form;
    const ArchiveModule &module = *Archives::module().module;
    putPackage(package);
    put(folder.filePath("a.tintloom"), module.write(entries(), Form::Zip));
    put(folder.filePath("b.zip"), module.write(entries("Top/"), Form::Zip));
    put(folder.filePath("c"), module.write(entries("Top/"), Form::TarGzip));
    ASSERT_TRUE(QFile::link(package, folder.filePath("link")));
    for (const QString path : {"Borrowed", "Borrowed/", "link", "a.tintloom", "b.zip", "c"}) {
        const auto [theme, problem] = opener().fromPath(folder.filePath(path));
        ASSERT_TRUE(theme) << path.toStdString() << ": " << problem.toStdString();
        EXPECT_EQ(theme->name, "Sea of Calm");
        EXPECT_EQ(theme->contents.info, info);
        EXPECT_EQ(theme->contents.files, files);
        EXPECT_EQ(theme->elements, 2);
        EXPECT_EQ(theme->listed, 5);
        EXPECT_EQ(theme->unknownKeys, QStringList("their-key"));
        EXPECT_EQ(theme->unknownFiles, (QStringList{"Sounds/in.wav", "read me.txt"}));
        const QStringList remarks = theme->remarks();
        ASSERT_EQ(remarks.size(), 3);
        EXPECT_TRUE(remarks[0].contains("2 of 5"));
        EXPECT_TRUE(remarks[1].contains("\"their-key\""));
        EXPECT_TRUE(remarks[2].contains("\"Sounds/in.wav\", \"read me.txt\""));
    }

    put(folder.filePath("d.txt"), "See: " + ShareText::write(info, "Sea of Calm").toUtf8());
    for (const QString path : {"Borrowed/Info.plist", "d.txt"}) {
        const auto [theme, problem] = opener().fromPath(folder.filePath(path));
        ASSERT_TRUE(theme) << path.toStdString() << ": " << problem.toStdString();
        EXPECT_EQ(theme->name, "Sea of Calm");
        EXPECT_EQ(theme->elements, 2);
        EXPECT_EQ(theme->unknownKeys, QStringList("their-key"));
        EXPECT_TRUE(theme->contents.files.empty());
    }
}

TEST_F(OpenedThemeTest, NamesAThemeAfterItsFolderOrFileWhereItsOwnNameTellsNothing)
{
    const auto nameOf = [&](const QVariant &own, const QString &path) {
        info.setValue("name", own);
        put(path, path.endsWith(".plist") ? PropertyList::writeDictionary(info)
                                          : Archives::module().module->write(
                                                entries("Tintloom/"), ArchiveModule::Form::Zip));
        return opener().fromPath(path).theme.value_or(OpenedTheme()).name;
    };
    EXPECT_EQ(nameOf("Tintloom", folder.filePath("My v1.2/Info.plist")), "My v1.2");
    EXPECT_EQ(nameOf("Tintloom", folder.filePath("mine.v2.tintloom")), "mine.v2");
    EXPECT_EQ(nameOf("", folder.filePath("mine.zip")), "mine");
    EXPECT_EQ(nameOf(5LL, folder.filePath("Tintloom/Info.plist")), "Tintloom");
    EXPECT_EQ(nameOf(" \n", folder.filePath("Tintloom/Info.plist")), "Tintloom");
    const QString faces = QString::fromUtf8("😀").repeated(100);
    EXPECT_EQ(nameOf("x" + faces, folder.filePath("n.zip")), "x" + faces.first(158));
    EXPECT_EQ(opener().fromText(ShareText::write(info, "\u2028")).theme->name, "Shared Theme");
}

TEST_F(OpenedThemeTest, LeavesOutStrangeValuesAndKeepsAllElse)
{
    info.setValue("retina", "perhaps");
    info.setValue("send-button-color", 7LL);
    info.setValue("size", QVariantList{2LL});
    info.setValue("removed-color", "(null)");
    info.setValue("green-balloon-colors", QVariantList{"#AAAAAAFF"});
    info.setValue("blue-balloon-colors", "#BBB");
    files["UIKit/UnreadIndicator@2x.png"] = "a mark";
    putPackage(package);
    const OpenedTheme theme = opener().fromPath(package).theme.value();
    EXPECT_EQ(theme.strangeKeys,
              (QStringList{"send-button-color", "size", "retina", "blue-balloon-colors"}));
    EXPECT_EQ(theme.elements, 1) << "the balloon that was there as an array alone";
    for (const QString &key : theme.strangeKeys)
        EXPECT_FALSE(theme.contents.info.find(key)) << key.toStdString();
    EXPECT_TRUE(theme.remarks()[3].contains("\"send-button-color\", \"size\""));

    const auto elements = ElementDataSource::loadWith(resources, &theme.contents.info);
    PackageContents made{themeDictionary(elements), {}};
    made.info.setValue("name", "Ours");
    made.files = {{"ListBackground@2x.jpg", "made"}, {"UIKit/UnreadIndicator@2x.png", "made"}};
    const PackageContents whole = completedPackage(theme, made);
    EXPECT_EQ(whole.files, files);
    const auto has = [&](const QString &key, const QVariant &value) {
        const QVariant *found = whole.info.find(key);
        return found && PropertyList::isEqual(*found, value);
    };
    EXPECT_TRUE(has("name", "Ours") && has("theme-version", "3") && has("retina", false));
    EXPECT_TRUE(has("their-key", QVariantMap{{"a", 1LL}}) && has("size", 1LL));
    EXPECT_TRUE(has("send-button-color", "#FF0000") && has("green-balloon-colors_1", "#AAAAAAFF"));
    EXPECT_TRUE(has("green-balloon-colors", (QVariantList{"#AAAAAAFF", "#222222FF"})));
}

TEST_F(OpenedThemeTest, RefusesFoldersAsItRefusesArchives)
{
    const auto fresh = [&] {
        QDir(package).removeRecursively();
        putPackage(package);
    };
    fresh();
    ASSERT_TRUE(QFile::link("/etc", package + "/UIKit"));
    expectProblem(package, {"\"UIKit\" is a link"});
    fresh();
    ASSERT_EQ(::mkfifo(QFile::encodeName(package + "/pipe"), 0600), 0);
    expectProblem(package, {"\"pipe\" is neither"});
    fresh();
    put(package + "/1/2/3/4/5/6/7/8", "");
    EXPECT_EQ(problem(package), "");
    put(package + "/1/2/3/4/5/6/7/8b/9", "");
    expectProblem(package, {"/9\"", "8 levels"});
    fresh();
    for (int i = 0; i < 195; ++i) // beside the property list, three files and a folder
        put(package + QString("/n%1").arg(i, 3, 10, QChar('0')), "");
    EXPECT_EQ(problem(package), "");
    put(package + "/zz", "");
    expectProblem(package, {"\"zz\"", "200 entries"});
    fresh();
    QFile holes(package + "/holes");
    ASSERT_TRUE(holes.open(QIODevice::WriteOnly) && holes.resize(PackageLimits::package.unpacked));
    expectProblem(package, {"\"holes\"", "64 MB"});
    fresh();
    put(package + "/line\nbreak", "");
    expectProblem(package, {"\"line?break\"", "control"});
}

TEST_F(OpenedThemeTest, RefusesWhatIsNoThemeOrTooLargeAndSaysWhichFile)
{
    const auto archive = [&](const std::vector<ArchiveEntry> &entries) {
        put(folder.filePath("x.zip"),
            Archives::module().module->write(entries, ArchiveModule::Form::Zip));
        return folder.filePath("x.zip");
    };
    const QByteArray plist = PropertyList::writeDictionary(info);
    expectProblem(archive({{"else", "x"}}), {"no Info.plist"});
    expectProblem(archive({{"a/Info.plist", plist}, {"b/Info.plist", plist}}),
                  {"\"a/Info.plist\" and \"b/Info.plist\""});
    EXPECT_EQ(problem(archive({{"Info.plist", plist}, {"b/Info.plist", plist}})), "");
    expectProblem(archive({{"a/Info.plist", "words"}}), {"\"a/Info.plist\" is no property list"});
    expectProblem(archive({{"Info.plist", "<plist><array/></plist>"}}), {"no property list"});
    expectProblem(archive({{"Info.plist", QByteArray((4 << 20) + 1, ' ')}}),
                  {"\"Info.plist\" is larger than 4 MB"});
    expectProblem(archive({{"Info.plist", plist}, {"1/2/3/4/5/6/7/8/9", ""}}), {"8 levels"});
    expectProblem(
        archive({{"Info.plist", plist}, {"UIKit/UnreadIndicator@2x.png", pngOf(8000, 5001)}}),
        {"\"UIKit/UnreadIndicator@2x.png\" is a picture of more than 40 megapixels"});
    EXPECT_EQ(problem(archive({{"Info.plist", plist}, {"a.png", pngOf(8000, 5000)}})), "");
    const auto beside = opener().fromPath(archive({{"a/Info.plist", plist}, {"more", "x"}}));
    EXPECT_EQ(beside.theme->besides, QStringList("more"));
    EXPECT_TRUE(beside.theme->remarks().last().contains("\"more\""));

    put(folder.filePath("words"), "Only words");
    expectProblem(folder.filePath("words"), {"no archive of a kind that is known"});
    put(folder.filePath("cut"), ShareText::write(info, "Name").first(40).toUtf8());
    expectProblem(folder.filePath("cut"), {"cut off"});
    expectProblem(folder.filePath("nothing"), {"nothing: No such file"});
    QFile large(folder.filePath("large.zip"));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize((32 << 20) + 1));
    expectProblem(large.fileName(), {"\"large.zip\" is larger than 32 MB"});
}
