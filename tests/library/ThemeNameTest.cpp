#include "library/ThemeName.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{
bool isSafeFolder(const QString &folder)
{
    return !folder.isEmpty() && folder.toUtf8().size() <= 100 && !folder.contains(u'/') &&
           !folder.contains(u'.') && !folder.contains(QChar(u'\0'));
}
} // namespace

TEST(ThemeNameTest, ANameIsWhatWasTypedOrASentenceSaysWhyNot)
{
    const QString most(80, u'x');
    const QString emojis = QString::fromUtf8("🌊").repeated(80);
    const QString rightToLeft = u"\u200Fים סוף"_s;
    for (const QString &name : {u"Sea Mist"_s, u"."_s, u".."_s, u"../../etc"_s, u"CON"_s, u"-rf"_s,
                                u".Trash"_s, u"a\\b:c*?"_s, most, emojis, rightToLeft}) {
        const auto [kept, problem] = ThemeName::fromTyped(u" \t"_s + name + u"\n "_s);
        EXPECT_EQ(kept, name);
        EXPECT_EQ(problem, "") << name.toStdString();
        EXPECT_TRUE(isSafeFolder(ThemeName::freeFolder(name, {})))
            << ThemeName::freeFolder(name, {}).toStdString();
    }
    const std::pair<QString, QString> wrong[] = {
        {u""_s, u"at least one"_s},
        {u" \t\u00A0 "_s, u"at least one"_s},
        {u"\u200B\u200D"_s, u"at least one"_s},
        {most + u'x', u"at most 80 characters; this one has 81"_s},
        {QString(300, u'é'), u"has 300"_s},
        {u"a\nb"_s, u"control"_s},
        {u"a\tb"_s, u"control"_s},
        {QString(u"a"_s + QChar(u'\0') + u'b'), u"control"_s},
        {u"a\u202Eb"_s, u"control"_s},
        {u"a\uFFFFb"_s, u"control"_s},
        {u"a"_s + QChar(0xd83c), u"control"_s},
    };
    for (const auto &[name, told] : wrong)
        EXPECT_TRUE(ThemeName::fromTyped(name).problem.contains(told))
            << name.toStdString() << ": " << ThemeName::fromTyped(name).problem.toStdString();
}

TEST(ThemeNameTest, FoldersAreReadableAndApart)
{
    EXPECT_EQ(ThemeName::freeFolder(u"Sea Mist"_s, {}), "Sea Mist");
    EXPECT_EQ(ThemeName::freeFolder(u"sea mist"_s, {u"Sea Mist"_s}), "sea mist-2");
    EXPECT_EQ(ThemeName::freeFolder(u"A"_s, {u"a"_s, u"A-2"_s}), "A-3");
    EXPECT_TRUE(ThemeName::freeFolder(u"Straße"_s, {}).startsWith(u"Straße-"_s));
    // What is replaced or cut off tells nothing any more.
    const QString longer = QString(79, u'é');
    QSet<QString> folders;
    for (const QString &name : {u"a/b"_s, u"a_b"_s, u"a.b"_s, u"."_s, u".."_s, u"🌊"_s, u"🌋"_s,
                                longer + u'1', longer + u'2'})
        folders.insert(ThemeName::freeFolder(name, {}));
    EXPECT_EQ(folders.size(), 9);
}

TEST(ThemeNameTest, NamesAreTheSameWithoutRegardToCaseAndNumbersTellThemApart)
{
    EXPECT_EQ(ThemeName::key(u"ÄRGER"_s), ThemeName::key(u"a\u0308rger"_s));
    EXPECT_NE(ThemeName::key(u"Sea"_s), ThemeName::key(u"Sea 2"_s));
    const auto taken = [](const QStringList &names) {
        QSet<QString> keys;
        for (const QString &name : names)
            keys.insert(ThemeName::key(name));
        return keys;
    };
    EXPECT_EQ(ThemeName::freeName(u"Sea"_s, taken({u"Lake"_s})), "Sea");
    EXPECT_EQ(ThemeName::freeName(u"Sea"_s, taken({u"SEA"_s})), "Sea 2");
    EXPECT_EQ(ThemeName::freeName(u"Sea"_s, taken({u"sea"_s, u"sea 2"_s})), "Sea 3");
    const QString most(80, u'x');
    const QString next = ThemeName::freeName(most, taken({most}));
    EXPECT_EQ(next, QString(78, u'x') + u" 2"_s);
    EXPECT_EQ(ThemeName::fromTyped(next).problem, "");
}
