#include "library/ThemeExport.h"

#include "library/OpenedTheme.h"
#include "library/PackageLimits.h"
#include "library/QrPicture.h"
#include "support/ThemeFixture.h"

#include <set>

namespace
{
using enum ThemeExport::IfThere;

struct ThemeExportTest : ThemeFixture {
    PackageContents package;

    void SetUp() override
    {
        putElements({element("send-button-color", "\"#FF0000\"")});
        package = {};
        package.info.setValue("name", "Mine");
        package.info.setValue("send-button-color", "#00FF00FF");
        package.info.setValue("foreign", QVariantMap{{"x", QVariantList{1.5, "ü"}}});
        package.files = {{"ListBackground@2x.jpg", QByteArray(5000, 'p')},
                         {"Ünder/the sea/nöte", "words"},
                         {"empty", ""}};
    }

    QString at(const QString &name) const { return folder.filePath(name); }
    std::string problem(const QString &path, ThemeExport::IfThere ifThere = Refuse)
    {
        return ThemeExport::write(package, path, ifThere).problem.toStdString();
    }
};
} // namespace

TEST_F(ThemeExportTest, EveryFormOpensAgainAndExportsToTheSameBytes)
{
    for (const QString name : {"a.tintloom", "a.zip", "A.ZIP", "a.tar.gz", "a.TGZ", "a", "a.b/"}) {
        const QString path = at("first/" + name), second = at("second/" + name);
        QDir().mkpath(at("first"));
        QDir().mkpath(at("second"));
        ASSERT_EQ(problem(QDir::cleanPath(path)), "") << name.toStdString();
        const auto [theme, why] = ThemeOpener(load()).fromPath(path);
        ASSERT_TRUE(theme) << why.toStdString();
        EXPECT_EQ(theme->contents.info, package.info);
        EXPECT_EQ(theme->contents.files, package.files) << name.toStdString();
        ASSERT_EQ(ThemeExport::write(theme->contents, QDir::cleanPath(second), Refuse).problem, "");
        if (QFileInfo(path).isDir()) {
            EXPECT_EQ(tree(path), tree(second));
            for (const QString &file : tree(path))
                EXPECT_EQ(contents(path + '/' + file), contents(second + '/' + file));
        } else {
            EXPECT_EQ(contents(path), contents(second)) << name.toStdString();
        }
    }
    EXPECT_EQ(contents(at("first/a.zip")).first(4), "PK\3\4");
    EXPECT_EQ(contents(at("first/a.TGZ")).first(2), "\x1F\x8B");
    EXPECT_EQ(
        QDir(at("first")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
        7)
        << "nothing else is left";
}

TEST_F(ThemeExportTest, OverwritesOnlyWhenToldAndOnlyWhatIsLikeIt)
{
    put(at("x.zip"), "old");
    EXPECT_TRUE(ThemeExport::write(package, at("x.zip"), Refuse).exists);
    EXPECT_EQ(contents(at("x.zip")), "old");
    EXPECT_EQ(problem(at("x.zip"), Replace), "");
    EXPECT_NE(contents(at("x.zip")), "old");

    put(at("theme/Info.plist"), "old");
    put(at("theme/more"), "old");
    put(at("photos/me.jpg"), "dear");
    EXPECT_NE(problem(at("theme")), "");
    EXPECT_EQ(problem(at("theme"), Replace), "");
    EXPECT_EQ(
        tree(at("theme")),
        QStringList({"Info.plist", "ListBackground@2x.jpg", "empty", QString::fromUtf8("Ünder"),
                     QString::fromUtf8("Ünder/the sea"), QString::fromUtf8("Ünder/the sea/nöte")}));
    const QStringList before = tree(folder.path());
    for (const QString name : {"photos", "x.zip/y", "nowhere/x.zip"})
        EXPECT_NE(problem(at(name), Replace), "") << name.toStdString();
    QDir().mkpath(at("folder.zip"));
    EXPECT_NE(problem(at("folder.zip"), Replace), "");
    QDir().rmdir(at("folder.zip"));
    ASSERT_TRUE(QFile::link(at("theme"), at("link")));
    EXPECT_NE(problem(at("link"), Replace), "");
    QFile::remove(at("link"));
    EXPECT_EQ(tree(folder.path()), before);
}

TEST_F(ThemeExportTest, RefusesWhatCouldNotBeOpenedAgain)
{
    const auto refuses = [&](const char *told) {
        for (const QString name : {"no.zip", "no"})
            EXPECT_NE(problem(at(name)).find(told), std::string::npos) << problem(at(name));
        SetUp();
    };
    package.files["1/2/3/4/5/6/7/8/9"] = "";
    refuses("8 levels");
    package.files["../up"] = "";
    refuses("\"../up\" leads out");
    package.files["large"] = QByteArray(64 << 20, 'x');
    refuses("64 MB");
    package.info.setValue("large", QString(5 << 20, 'x'));
    refuses("4 MB");
    for (int i = 0; i < 200 - 6; ++i) // beside three files, two folders and the property list
        package.files["n" + QString::number(i)] = "";
    EXPECT_EQ(problem(at("full.zip")), "");
    EXPECT_EQ(problem(at("full")), "");
    for (const QString name : {"full.zip", "full"})
        EXPECT_EQ(ThemeOpener(load()).fromPath(at(name)).problem, "");
    package.files["one more"] = "";
    refuses("200");
    EXPECT_FALSE(QFile::exists(at("no")));
}

TEST_F(ThemeExportTest, AFaultAnywhereLeavesTheOldFolderOrTheWholeNewOne)
{
    const QString path = at("theme");
    put(path + "/Info.plist", "old");
    int spared = 0, place = 0;
    for (bool struck = true; struck; ++place) {
        struck = false;
        QDir(path).removeRecursively();
        put(path + "/Info.plist", "old");
        int asked = 0;
        ThemeExport::Result result;
        {
            const FaultHookGuard guard([&](auto, const QString &) {
                const bool strikes = asked++ == place;
                struck |= strikes;
                return strikes ? std::make_error_code(std::errc::no_space_on_device)
                               : std::error_code();
            });
            result = ThemeExport::write(package, path, Replace);
        }
        const bool isOld = contents(path + "/Info.plist") == "old";
        EXPECT_EQ(tree(path).size(), isOld ? 1 : 6) << place;
        EXPECT_TRUE(!isOld || !result.problem.isEmpty()) << place;
        spared += isOld;
        for (const QString &left : QDir(folder.path()).entryList({"theme.tintloom-*"}, QDir::Dirs))
            QDir(at(left)).removeRecursively(); // its removal was what failed
    }
    EXPECT_GE(spared, 10);
}

TEST_F(ThemeExportTest, AQrCodeHasAQuietMarginAndWholeModules)
{
    const auto [image, problem] = QrPicture::of("tintloom:1:AbC-_", 300);
    ASSERT_EQ(problem, "");
    ASSERT_EQ(image.size(), QSize(330, 330)) << "33 modules of 10 pixels";
    std::set<QRgb> colors;
    for (int y = 0; y < 330; ++y)
        for (int x = 0; x < 330; ++x) {
            colors.insert(image.pixel(x, y));
            const bool isMargin = std::min({x, y, 329 - x, 329 - y}) < 40;
            EXPECT_TRUE(!isMargin || image.pixel(x, y) == 0xFFFFFFFF);
        }
    EXPECT_EQ(colors, (std::set<QRgb>{0xFF000000, 0xFFFFFFFF}));
    EXPECT_EQ(image.pixel(40, 40), 0xFF000000) << "a finder's corner";
    EXPECT_EQ(image.pixel(49, 59), 0xFF000000);
    EXPECT_EQ(image.pixel(50, 50), 0xFFFFFFFF);
    EXPECT_EQ(QrPicture::of("short", 1).image.width(), 29);
    EXPECT_NE(QrPicture::of(QString(5000, 'x'), 300).problem, "");
}
