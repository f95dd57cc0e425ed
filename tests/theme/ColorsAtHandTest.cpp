#include "theme/ColorsAtHand.h"

#include "support/ThemeFixture.h"

struct ColorsAtHandTest : ThemeFixture {
    QString file = locations.documents + "/Colors.plist";
    QStringList recent() const { return ColorsAtHand::recent(locations.documents); }
    std::error_code remember(const QString &color) const
    {
        return ColorsAtHand::remember(color, locations.documents);
    }
};

TEST_F(ColorsAtHandTest, AThemesColoursComeOnceWithTheirElements)
{
    putElements({element("a", "\"#F00\""), element("b", "\"\""), element("c", "\"#FF0000\""),
                 element("d", "\"#00FF0080\""), element("e", "\"#F00\""), element("f", "\"#F00\""),
                 element("g", "\"#F00\""), element("choice", "null", "{\"A\":1}", "1")});
    const auto colors = ColorsAtHand::inTheme(load());
    ASSERT_EQ(colors.size(), 2U);
    EXPECT_EQ(colors[0].text, "#FF0000FF");
    EXPECT_EQ(colors[0].names, u"Name of a, Name of c, Name of e, \u2026");
    EXPECT_EQ(colors[1].text, "#00FF0080");
    EXPECT_EQ(colors[1].names, "Name of d");
}

TEST_F(ColorsAtHandTest, TheLastTwelveAreRememberedAndNonsenseIsNot)
{
    EXPECT_TRUE(recent().isEmpty());
    for (int i = 0; i < 14; ++i)
        EXPECT_FALSE(remember(QString("#0000%1FF").arg(i, 2, 16, QChar('0')).toUpper()));
    EXPECT_FALSE(remember("#000005FF")); // again
    EXPECT_EQ(recent().size(), 12);
    EXPECT_EQ(recent().first(3), (QStringList{"#000005FF", "#00000DFF", "#00000CFF"}));
    EXPECT_EQ(recent().count("#000005FF"), 1);

    put(file, "<plist><dict><key>recent</key><array><string>red</string><string>#abcdef</string>"
              "<integer>7</integer><dict/><string>#ABCDEFFF</string></array></dict></plist>");
    EXPECT_EQ(recent(), QStringList{"#ABCDEFFF"});
    for (const char *bad : {"", "nonsense", "<plist><array/></plist>",
                            "<plist><dict><key>recent</key><string>#FFF</string></dict></plist>"}) {
        put(file, bad);
        EXPECT_TRUE(recent().isEmpty()) << bad;
    }
    EXPECT_FALSE(remember("#112233FF"));
    EXPECT_EQ(recent(), QStringList{"#112233FF"});
    {
        const FaultHookGuard guard(failing(NSFileManager::Operation::Write, "Colors.plist"));
        EXPECT_TRUE(remember("#445566FF"));
    }
    EXPECT_EQ(recent(), QStringList{"#112233FF"}) << "whole, as it was";
}
