#include "catalogue/ThemeList.h"

#include "catalogue/SelectedTheme.h"
#include "support/ThemeRecords.h"

#include <QTemporaryDir>

TEST(ThemeList, LeavesOutWhatIsNoRecordAndSurvivesWhatIsNoList)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("themes.plist");
    EXPECT_EQ(ThemeList::load(folder.path()).numberOfSections(), 0);
    for (const QByteArray bytes : {"", "no list", "<plist><dict/></plist>", "bplist00"})
        EXPECT_TRUE(ThemeList::parse(bytes, file).problem().contains(file));
    putThemes(folder.path(),
              "<string>s</string><dict/>"
              "<dict><key>section</key><integer>1</integer><key>name</key><string>n</string></dict>"
              "<dict><key>section</key><string>b</string><key>name</key><string>1</string></dict>"
              "<dict><key>section</key><string>B</string><key>name</key><string>2</string>"
              "<key>active</key><true/><key>details</key><integer>3</integer></dict>" +
                  themeRecord("a", "3", "", "yes") + themeRecord("b", "0"));
    testing::internal::CaptureStderr();
    const ThemeList list = ThemeList::load(folder.path());
    const auto log = QString::fromStdString(testing::internal::GetCapturedStderr());
    EXPECT_TRUE(log.startsWith("Theme 0 of") && log.count("has no section or no name") == 3);
    ASSERT_EQ(list.numberOfSections(), 3);
    EXPECT_EQ(list.titleForSection(0) + list.titleForSection(1) + list.titleForSection(2), "aBb");
    EXPECT_EQ(list.record(2, 0).name, "1"); // in the order of the file
    for (const QString name : {"1", "2", "3"})
        EXPECT_EQ(list.find(name)->subtitle(), "Coming soon!");
    EXPECT_EQ(list.installableNames(), QStringList{"0"});
}

TEST(SelectedTheme, OutlivesTheProgramAndDistrustsWhatItReads)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("documents/Preferences.plist");
    EXPECT_FALSE(SelectedTheme(file).name());
    put(file,
        "<plist><dict><key>selectedTheme</key><array/><key>other</key><true/></dict></plist>");
    EXPECT_EQ(SelectedTheme(file).name(), ""); // no name, so no row is marked
    EXPECT_FALSE(SelectedTheme(file).set("Mine"));
    EXPECT_EQ(SelectedTheme(file).name(), "Mine");
    EXPECT_TRUE(contents(file).contains("other")); // what others have stored stays

    SelectedTheme nowhere(file + "/below a file/Preferences.plist");
    EXPECT_TRUE(nowhere.set("Mine"));
    EXPECT_EQ(nowhere.name(), "Mine"); // for this run
}
