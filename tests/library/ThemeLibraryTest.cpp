#include "library/ThemeLibrary.h"

#include "library/EditedTheme.h"
#include "support/ThemeFixture.h"

#include <thread>

using namespace Qt::StringLiterals;
using enum NSFileManager::Operation;
using Outcome = LibraryResult::Outcome;
using IfTaken = ThemeLibrary::IfTaken;

namespace
{
const QDateTime now(QDate(2026, 3, 1), QTime(12, 0), Qt::UTC);

struct ThemeLibraryTest : ThemeFixture {
    const QString themes = locations.documents + u"/Themes"_s;

    std::shared_ptr<ThemeLibrary> open() const { return ThemeLibrary::open(locations.documents); }

    static PackageContents package(const QString &color)
    {
        PackageContents contents;
        contents.info.setValue(u"name"_s, u"Tintloom"_s);
        contents.info.setValue(u"color"_s, color);
        contents.info.setValue(u"sounds"_s, QVariantMap{{u"sent"_s, u"pop"_s}});
        contents.files = {{u"a picture"_s, "picture of " + color.toUtf8()}, {u"a/b/c"_s, "deep"}};
        return contents;
    }
    Outcome keep(const QString &name, const QString &color = u"#FFF"_s,
                 IfTaken ifTaken = IfTaken::Refuse) const
    {
        return open()->keep(package(color), name, ifTaken, now).outcome;
    }
    /// Names with the colours in their packages, whole ones.
    QStringList listed() const
    {
        testing::internal::CaptureStderr();
        QStringList list;
        const auto library = open();
        for (const KeptTheme &theme : library->themes()) {
            const auto contents = library->read(theme.name).contents;
            const QString color = contents->info.find(u"color"_s)->toString();
            EXPECT_EQ(contents->files, package(color).files);
            list.append(theme.name + u' ' + color);
        }
        logged = testing::internal::GetCapturedStderr();
        return list;
    }
    mutable std::string logged;
};
} // namespace

TEST_F(ThemeLibraryTest, KeepsRenamesDuplicatesRemovesAndPutsBack)
{
    EXPECT_EQ(listed(), QStringList());
    EXPECT_FALSE(QFile::exists(locations.documents)); // looking makes nothing
    EXPECT_EQ(keep(u"sea"_s, u"#00F"_s), Outcome::Done);
    EXPECT_EQ(keep(u" Sand "_s, u"#FF0"_s), Outcome::Done);
    EXPECT_EQ(keep(u"../../Oak"_s), Outcome::Done);
    EXPECT_EQ(listed(), (QStringList{u"../../Oak #FFF"_s, u"Sand #FF0"_s, u"sea #00F"_s}));
    for (const QString &path : tree(folder.path())) // whatever the name
        EXPECT_TRUE((path + u'/').startsWith(u"documents/Themes/"_s) || path == u"documents"_s)
            << path.toStdString();

    const LibraryResult taken = open()->keep(package(u"#123"_s), u"SEA"_s, IfTaken::Refuse);
    EXPECT_EQ(taken.outcome, Outcome::NameTaken);
    EXPECT_EQ(taken.name, u"SEA 2"_s);
    EXPECT_EQ(open()->rename(u"Sand"_s, u"Sea"_s).outcome, Outcome::NameTaken);
    EXPECT_EQ(open()->duplicate(u"Sand"_s, u"sand"_s).outcome, Outcome::NameTaken);
    EXPECT_EQ(open()->rename(u"Sand"_s, u"a\nb"_s).outcome, Outcome::BadName);
    for (const QString &name : {u"Sandy"_s, u".Trash"_s, u"../Themes/Sand"_s, QString()})
        EXPECT_EQ(open()->remove(name).outcome, Outcome::NoSuchTheme);

    EXPECT_TRUE(open()->rename(u"sea"_s, u"SEA"_s).isDone());
    EXPECT_TRUE(open()->rename(u"SAND"_s, u"Dune"_s).isDone());
    EXPECT_TRUE(open()->duplicate(u"Dune"_s, u"Sand"_s).isDone());
    EXPECT_TRUE(open()->remove(u"../../oak"_s, now).isDone());
    const QStringList three{u"Dune #FF0"_s, u"Sand #FF0"_s, u"SEA #00F"_s};
    EXPECT_EQ(listed(), three);
    EXPECT_EQ(
        QDir(themes).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase),
        (QStringList{u"Dune"_s, u"Sand"_s, u"SEA"_s})); // folders follow

    EXPECT_TRUE(open()->putBack(u"../../Oak"_s, now).isDone());
    EXPECT_EQ(listed(), QStringList{u"../../Oak #FFF"_s} + three);
    EXPECT_EQ(open()->putBack(u"../../Oak"_s, now).outcome, Outcome::NoSuchTheme);
}

TEST_F(ThemeLibraryTest, WhatIsReplacedOrRemovedStaysForThirtyDays)
{
    keep(u"Sea"_s, u"#1"_s);
    EXPECT_EQ(keep(u"SEA"_s, u"#2"_s, IfTaken::Replace), Outcome::Done);
    EXPECT_EQ(keep(u"Sea"_s, u"#3"_s, IfTaken::Replace), Outcome::Done); // the same millisecond
    EXPECT_EQ(listed(), QStringList{u"Sea #3"_s});
    const LibraryResult back = open()->putBack(u"Sea"_s, now.addDays(30));
    EXPECT_EQ(back.name, u"SEA 2"_s); // it was that one's name
    EXPECT_EQ(open()->putBack(u"Sea"_s, now.addDays(31)).outcome, Outcome::NoSuchTheme);
    EXPECT_EQ(listed(), (QStringList{u"Sea #3"_s, u"SEA 2 #2"_s}));

    put(themes + u"/.Trash/somebody's/file"_s, "stays");
    EXPECT_TRUE(open()->remove(u"Sea 2"_s, now.addDays(29)).isDone());
    EXPECT_EQ(tree(themes + u"/.Trash"_s).filter(u"Info.plist"_s).size(), 2);
    EXPECT_TRUE(open()->remove(u"Sea"_s, now.addDays(31)).isDone());
    EXPECT_EQ(tree(themes + u"/.Trash"_s).filter(u"Info.plist"_s).size(), 2); // not the oldest
    EXPECT_EQ(contents(themes + u"/.Trash/somebody's/file"_s), "stays");
    EXPECT_EQ(listed(), QStringList());
}

TEST_F(ThemeLibraryTest, WhatOthersPutThereIsSkippedNumberedOrRefused)
{
    keep(u"Sea"_s, u"#1"_s);
    const QString elsewhere = this->folder.filePath(u"elsewhere"_s);
    ASSERT_TRUE(QDir().rename(themes + u"/Sea"_s, elsewhere));
    keep(u"Sea"_s, u"#2"_s);
    put(themes + u"/Empty/notes"_s, "no theme");
    put(themes + u"/Broken/Info.plist"_s, "no list");
    put(themes + u"/file"_s, "none either");
    ASSERT_TRUE(QFile::link(elsewhere, themes + u"/Link"_s));
    EXPECT_EQ(listed(), QStringList{u"Sea #2"_s});
    for (const char *name : {"Broken", "Empty", "Link", "file"})
        EXPECT_NE(logged.find(name), std::string::npos) << name;
    EXPECT_EQ(keep(u"Broken"_s), Outcome::Failed); // it may be a theme of that name
    EXPECT_EQ(contents(themes + u"/Broken/Info.plist"_s), "no list");
    EXPECT_EQ(keep(u"Link"_s, u"#5"_s), Outcome::Failed);

    ASSERT_FALSE(NSFileManager::copyItemAtPath(themes + u"/Sea"_s, themes + u"/Twin"_s));
    EXPECT_EQ(listed(), (QStringList{u"Sea #2"_s, u"Sea 2 #2"_s}));
    EXPECT_TRUE(open()->rename(u"Sea 2"_s, u"Lake"_s).isDone());
    EXPECT_EQ(listed(), (QStringList{u"Lake #2"_s, u"Sea #2"_s}));

    for (const QString &path : {u"../x"_s, u"/x"_s, u"a//b"_s, u"a/./b"_s, u""_s, u"Info.plist"_s,
                                u"Info.plist/x"_s, u"a/.."_s}) {
        PackageContents hostile = package(u"#4"_s);
        hostile.files[path] = "x";
        const auto result = open()->keep(hostile, u"Hostile"_s, IfTaken::Refuse);
        EXPECT_EQ(result.outcome, Outcome::Failed);
        EXPECT_TRUE(result.sentence.contains(u'"' + path + u'"'));
    }
    const QStringList before = tree(folder.path());
    ASSERT_TRUE(QDir().rename(themes, this->folder.filePath(u"away"_s)));
    ASSERT_TRUE(QFile::link(this->folder.filePath(u"away"_s), themes));
    EXPECT_EQ(keep(u"New"_s), Outcome::Failed);
    EXPECT_TRUE(open()->rename(u"Lake"_s, u"New"_s).sentence.contains(u"symbolic link"_s));
    EXPECT_EQ(open()->remove(u"Lake"_s).outcome, Outcome::Failed);
    EXPECT_TRUE(open()->themes().empty());
    ASSERT_TRUE(QFile::remove(themes));
    ASSERT_TRUE(QDir().rename(this->folder.filePath(u"away"_s), themes));
    EXPECT_EQ(tree(folder.path()), before);
}

TEST_F(ThemeLibraryTest, TwoAtOnceBothStand)
{
    constexpr int count = 12;
    const auto keepMany = [this](const QString &who) {
        for (int i = 0; i < count; ++i) {
            EXPECT_TRUE(
                open()->keep(package(who), who + QString::number(i), IfTaken::Refuse).isDone());
            const auto shared = open()->keep(package(who), u"Shared"_s, IfTaken::Replace);
            EXPECT_TRUE(shared.isDone()) << shared.sentence.toStdString();
        }
    };
    testing::internal::CaptureStderr(); // that one waits for the other
    std::thread one(keepMany, u"one"_s), two(keepMany, u"two"_s);
    one.join();
    two.join();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(listed().size(), 2 * count + 1);
    EXPECT_EQ(listed().filter(u"Shared"_s).size(), 1);
}

TEST_F(ThemeLibraryTest, RemembersWhichThemeIsEdited)
{
    const QString preferences = locations.preferences();
    EXPECT_EQ(EditedTheme(preferences).name(), std::nullopt);
    EXPECT_FALSE(EditedTheme(preferences).set(std::nullopt));
    EXPECT_FALSE(QFile::exists(preferences)); // nothing to remember
    EXPECT_FALSE(EditedTheme(preferences).set(u"Sea"_s));
    EXPECT_EQ(EditedTheme(preferences).name(), u"Sea"_s);
    EXPECT_FALSE(EditedTheme(preferences).set(std::nullopt));
    EXPECT_EQ(EditedTheme(preferences).name(), std::nullopt);
}
