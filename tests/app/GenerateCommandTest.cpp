#include "app/CommandLine.h"
#include "color/Contrast.h"
#include "support/ProgramFixture.h"
#include "theme/ElementLocks.h"
#include "theme/ShownColor.h"

#include <QImage>
#include <QJsonObject>

namespace
{
struct GenerateCommandTest : ProgramFixture {
    const QString picture = folder.filePath("picture.png");
    const Variables own{{"TINTLOOM_RESOURCES", TINTLOOM_SOURCE_RESOURCES}};

    void paint(std::initializer_list<QRgb> columns)
    {
        QImage image(int(columns.size()), 4, QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y)
            std::ranges::copy(columns, reinterpret_cast<QRgb *>(image.scanLine(y)));
        ASSERT_TRUE(image.save(picture));
    }

    /// What a run with --dry-run says of an element.
    QString generated(const QString &arguments, const QString &key) const
    {
        const Finished listed = run("generate --dry-run " + arguments, own);
        EXPECT_EQ(listed.exitCode, 0) << listed.err.toStdString();
        for (const QJsonValue item : json(listed))
            if (item["key"] == key)
                return item["color"].toString();
        return {};
    }

    QByteArray saved(const QString &key) const
    {
        const auto dictionary = PropertyList::readDictionary(contents(locations.workingCopy()));
        return dictionary ? dictionary->find(key)->toString().toUtf8() : QByteArray();
    }
};
} // namespace

TEST_F(GenerateCommandTest, PrintsThePaletteOfAPicture)
{
    paint({0xFF2E8B57, 0xFF2E8B57, 0xFF2E8B57, 0xFFDF7100, 0x00FF0000});
    const Finished listed = run("palette --json " + picture);
    EXPECT_EQ(json(listed).size(), 2) << listed.err.toStdString();
    EXPECT_EQ(json(listed).at(0)["color"], "#2E8B57FF");
    EXPECT_EQ(json(listed).at(0)["share"], 0.75);
    EXPECT_EQ(run("palette " + picture).out, "#2E8B57FF   75.0 %\n#DF7100FF   25.0 %\n");
    EXPECT_EQ(generated("--picture " + picture, "green-balloon-colors_1"), "#2E8B57FF");

    paint({0xFF202020, 0xFFD0D0D0});
    const Finished grey = run("palette " + picture);
    EXPECT_EQ(grey.exitCode, 0);
    EXPECT_TRUE(grey.err.contains("no colours")) << grey.err.toStdString();
    paint({0x00202020});
    expectRefused("palette " + picture, 1, {picture.toUtf8(), "nothing"});
    put(picture, "text");
    expectRefused("palette " + picture, 1, {picture.toUtf8(), "no picture"});
    expectRefused("generate --picture " + picture, 1, {"no picture"}, own);
    EXPECT_FALSE(QFile::exists(locations.workingCopy()));
}

TEST_F(GenerateCommandTest, ChangesTheCurrentChoicesAndNothingLocked)
{
    ASSERT_EQ(run("set unread-name-color=#104080", own).exitCode, 0);
    const QByteArray before = contents(locations.workingCopy());
    EXPECT_EQ(run("generate --color #F0A0B8 --strength 0", own).out, "");
    EXPECT_EQ(generated("--color #F0A0B8", "green-balloon-colors_1"), "#F0A0B8FF");
    EXPECT_EQ(contents(locations.workingCopy()), before);

    ASSERT_FALSE(ElementLocks::remember(locations, "unread-name-color", true));
    const Finished changed = run("generate --color #F0A0B8 --harmony split --lock "
                                 "list-background-image",
                                 own);
    EXPECT_EQ(changed.exitCode, 0) << changed.err.toStdString();
    EXPECT_TRUE(changed.out.contains("green-balloon-colors_1: #8EEBB0FF becomes #F0A0B8FF\n"));
    EXPECT_EQ(saved("green-balloon-colors_1"), "#F0A0B8FF");
    EXPECT_NE(saved("navigation-bar-color"), "#0E4A3FFF");
    EXPECT_EQ(saved("unread-name-color"), "#104080FF");
    EXPECT_EQ(saved("list-background-image"), "#FFF6E5FF");
    EXPECT_EQ(saved("sender-name-color"), "") << "removed";
    EXPECT_EQ(run("check", own).exitCode, 0);
    EXPECT_EQ(run("restore", own).exitCode, 0);
    EXPECT_EQ(contents(locations.workingCopy()), before);
}

TEST_F(GenerateCommandTest, StartsFromAThemeInATone)
{
    const auto light = [this](const QString &arguments) {
        return relativeLuminance(
            rgbFromHexString(generated(arguments, "conversation-background-color")));
    };
    EXPECT_GT(light("--color teal"), 0.8);
    EXPECT_LT(light("--color teal --dark"), 0.1);
    EXPECT_LT(light("--color teal --base Midnight"), 0.1);
    EXPECT_GT(light("--color teal --base Midnight --light"), 0.5);
    EXPECT_LT(light("--seed 5 --base Midnight"), 0.1);
    EXPECT_EQ(generated("--color teal --base Midnight --strength 0 --lock send-button-color",
                        "send-button-color"),
              "#00D644FF");
    const QByteArray seven = run("generate --dry-run --seed 7", own).out;
    EXPECT_EQ(run("generate --dry-run --seed 7", own).out, seven);
    EXPECT_NE(run("generate --dry-run --seed 8", own).out, seven);

    expectRefused("generate --color teal --base midnihgt", 2, {"near it: Midnight"}, own);
    expectRefused("generate --color teal --lock send-buton-color", 2, {"send-button-color"}, own);
    EXPECT_FALSE(QFile::exists(locations.workingCopy()));
}

TEST_F(GenerateCommandTest, RefusesWhatExcludesEachOther)
{
    const std::pair<QStringList, const char *> wrong[] = {
        {{"generate"}, "one of --color"},
        {{"generate", "--color", "red", "--seed", "1"}, "one of --color"},
        {{"generate", "--picture", "a", "--color", "red"}, "one of --color"},
        {{"generate", "--color", "reddish"}, "'reddish'"},
        {{"generate", "--picture", ""}, "needs a file"},
        {{"generate", "--seed", "-1"}, "'-1'"},
        {{"generate", "--seed", "1", "--light", "--dark"}, "exclude each other"},
        {{"generate", "--seed", "1", "--harmony", "tetradic"}, "there are analogous"},
        {{"generate", "--seed", "1", "--strength", "1.1"}, "'1.1'"},
        {{"generate", "--seed", "1", "--strength", "nan"}, "'nan'"},
        {{"generate", "--seed", "1", "more"}, "'more'"},
        {{"generate", "--seed", "1", "--json"}, "--json belongs to"},
        {{"check", "--dark"}, "--dark belongs to 'generate'"},
        {{"palette"}, "needs a picture"},
        {{"palette", "a", "b"}, "'b'"},
    };
    for (const auto &[arguments, told] : wrong) {
        const auto outcome = CommandLine::parse(QStringList{"tintloom"} + arguments);
        EXPECT_EQ(outcome.exitCode, 2) << arguments.join(" ").toStdString();
        EXPECT_TRUE(outcome.text.contains(told)) << outcome.text.toStdString();
    }
}

TEST_F(GenerateCommandTest, SavesAPictureBehindTheList)
{
    const QString key = "list-background-image";
    paint({0xFF2E8B57, 0xFF2E8B57});
    const Finished done = run("save --picture " + key + '=' + picture, own);
    EXPECT_EQ(done.exitCode, 0) << done.err.toStdString();
    EXPECT_TRUE(done.out.contains("/Picture-"));
    const Finished listed = run("list --json", own);
    EXPECT_FALSE(listed.out.contains("jpeg"));
    for (const QJsonValue item : json(listed))
        EXPECT_EQ(item["key"] == key, item["value"].toObject().contains("zoom"));
    const QByteArray before = contents(locations.workingCopy());

    EXPECT_EQ(run("set send-button-color=123456", own).exitCode, 0);
    EXPECT_TRUE(contents(locations.workingCopy()).contains("Picture-")) << "it stays";
    put(picture, "text");
    expectRefused("save --picture " + key + '=' + picture, 1, {picture.toUtf8(), "no picture"},
                  own);
    expectRefused("save --picture send-button-color=" + picture, 2, {"takes no picture"}, own);
    expectRefused("save --picture " + picture, 2, {"KEY=FILE"}, own);
    EXPECT_EQ(run("set " + key + "=123456", own).exitCode, 0);
    EXPECT_FALSE(contents(locations.workingCopy()).contains("Picture-"));
    EXPECT_EQ(run("restore", own).exitCode, 0);
    EXPECT_NE(contents(locations.workingCopy()), before);
    EXPECT_TRUE(contents(locations.workingCopy()).contains("Picture-"));
}
