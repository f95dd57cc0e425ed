#include "support/ProgramFixture.h"
#include "support/ThemeRecords.h"
#include "theme/ElementLocks.h"

#include <QJsonObject>

namespace
{
struct CheckCommandTest : ProgramFixture {
    void SetUp() override
    {
        QByteArrayList elements;
        for (const auto &[key, color] : {std::pair("name", "\"#888\""), std::pair("title", "\"\"")})
            elements += element(key, color).chopped(1) + ",\"on\":{\"text\":[\"ground\"]}}";
        putElements(elements + QByteArrayList{element("ground", "\"#FFF\"")});
        putThemes(resources, themeRecord("Dark", "Midnight"));
        PropertyDictionary info;
        info.setValue("name", "#000");
        put(resources + "/Midnight/Info.plist", PropertyList::writeDictionary(info));
    }
};
} // namespace

TEST_F(CheckCommandTest, PrintsTheFindingsForPeopleAndPrograms)
{
    const Finished told = run("check");
    EXPECT_EQ(told.exitCode, 3) << told.err.toStdString();
    EXPECT_EQ(told.out, "name on ground: contrast 3.54, needs 4.50; darker #767676FF\n");
    const Finished listed = run("check --json");
    EXPECT_EQ(listed.exitCode, 3);
    EXPECT_EQ(json(listed), (QJsonArray{QJsonObject{{"element", "name"},
                                                    {"on", "ground"},
                                                    {"kind", "contrast"},
                                                    {"eyes", QJsonValue::Null},
                                                    {"ratio", 3.54},
                                                    {"threshold", 4.5},
                                                    {"lighter", QJsonValue::Null},
                                                    {"darker", "#767676FF"}}}));
    const Finished well = run("check Midnight"), empty = run("check Midnight --json");
    EXPECT_EQ(well.exitCode, 0);
    EXPECT_EQ(well.out, "");
    EXPECT_EQ(empty.exitCode, 0);
    EXPECT_EQ(empty.out.trimmed(), "[\n]");
    EXPECT_FALSE(QFile::exists(locations.workingCopy()));

    expectRefused("check midnihgt", 2, {"'midnihgt'", "near it: Midnight"});
    expectRefused("check --fix Midnight", 2, {"'Midnight'"});
    expectRefused("list --fix", 2, {"belongs to 'check'"});
    expectRefused("check Midnight more", 2, {"'more'"});
    put(document, "{}");
    for (const QString command : {"check", "check --fix"})
        expectRefused(command, 1, {"array"});
}

TEST_F(CheckCommandTest, FixesTheCurrentChoicesAndNoLockedElement)
{
    const auto saved = [this](const QString &key) {
        return PropertyList::readDictionary(contents(locations.workingCopy()))
            ->find(key)
            ->toString();
    };
    ASSERT_FALSE(ElementLocks::remember(locations, "name", true));
    ASSERT_FALSE(ElementLocks::remember(locations, "ground", true));
    const Finished stuck = run("check --fix");
    EXPECT_EQ(stuck.exitCode, 3);
    EXPECT_TRUE(stuck.out.contains("locked")) << stuck.out.toStdString();
    EXPECT_EQ(json(run("check --fix --json")).at(0)["left"], "locked");
    EXPECT_FALSE(QFile::exists(locations.workingCopy())) << "nothing has changed";

    ASSERT_FALSE(ElementLocks::remember(locations, "name", false));
    const Finished mended = run("check --fix");
    EXPECT_EQ(mended.exitCode, 0) << mended.err.toStdString();
    EXPECT_EQ(mended.out, "name: #888 becomes #767676FF\n");
    EXPECT_EQ(saved("name"), "#767676FF");
    EXPECT_EQ(saved("ground"), "#FFF");
    EXPECT_EQ(run("check").exitCode, 0);
    EXPECT_FALSE(QFile::exists(locations.packageInfo())) << "the theme itself stays";
}
