#include "library/ChosenPackage.h"

#include "support/ThemeFixture.h"
#include "theme/ThemePackageWriter.h"

namespace
{
struct ChosenPackageTest : ThemeFixture {
    void SetUp() override
    {
        putElements({element("list-background-image", "\"#FFF\""), element("none", "null"),
                     element("green-balloon-colors_1", "\"#0F0\""),
                     element("unread-indicator-image", "\"#0A0\"")});
    }
};
} // namespace

TEST_F(ChosenPackageTest, IsWhatASaveWritesWithItsOwnNameAndTheForeignEntries)
{
    PropertyDictionary saved;
    saved.setValue("name", "Somebody's");
    saved.setValue("list-background-image", "#C00");
    saved.setValue("sounds", QVariantMap{{"sent", "pop"}});
    putSaved(saved);
    const auto source = load();
    const PackageContents package = packageContents(source, "Sea", 1.0);

    testing::internal::CaptureStderr();
    const BuiltTheme built = buildTheme(source, locations, 1.0);
    writeTheme(built);
    testing::internal::GetCapturedStderr();
    auto expected = built.dictionary;
    expected.setValue("name", "Sea");
    EXPECT_EQ(package.info.entries().size(), expected.entries().size() + 1);
    expected.setValue("sounds", QVariantMap{{"sent", "pop"}});
    EXPECT_EQ(package.info, expected);
    QStringList paths;
    for (const auto &[path, bytes] : package.files) {
        EXPECT_EQ(bytes, contents(locations.packageFolder() + '/' + path)) << path.toStdString();
        paths.append(path);
    }
    EXPECT_EQ(paths, (QStringList{"ListBackground@2x.jpg", "UIKit/UnreadIndicator@2x.png"}));
}

TEST_F(ChosenPackageTest, GuestsGoWithTheChoicesAndPicturesWithTheirColours)
{
    PackageContents origin;
    origin.info.setValue("name", "Origin");
    origin.info.setValue("list-background-image", "#FFF");
    origin.info.setValue("unread-indicator-image", "#123");
    origin.info.setValue("none", "#456");
    origin.info.setValue("sounds", "pop");
    origin.files = {{"ListBackground@2x.jpg", "a photo"},
                    {"UIKit/UnreadIndicator@2x.png", "a star"},
                    {"read me", "hello"}};
    const auto originElements = ElementDataSource::loadWith(resources, &origin.info);
    PackageContents package = packageContents(load(), "Mine", 1.0);
    const QByteArray ownIndicator = package.files["UIKit/UnreadIndicator@2x.png"];
    addGuestsOf(origin, originElements, package);
    EXPECT_EQ(*package.info.find("name"), QVariant("Mine"));
    EXPECT_EQ(*package.info.find("sounds"), QVariant("pop"));
    EXPECT_EQ(package.info.find("none"), nullptr); // an element's, and not chosen now
    EXPECT_EQ(package.files["ListBackground@2x.jpg"], "a photo");
    EXPECT_EQ(package.files["UIKit/UnreadIndicator@2x.png"], ownIndicator);
    EXPECT_EQ(package.files["read me"], "hello");
}
