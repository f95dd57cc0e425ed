#include "theme/ColorText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{
/// The 32 bits that a colour was read from.
quint32 bits(const UIColor &color)
{
    const auto [red, green, blue, alpha] = color.components();
    const auto byte = [](double component) {
        const auto value = quint32(component * 255.0 + 0.5);
        EXPECT_EQ(component, double(float(value) / 255.0F)); // single precision, stored as double
        return value;
    };
    return byte(red) << 24 | byte(green) << 16 | byte(blue) << 8 | byte(alpha);
}
} // namespace

TEST(ColorTextTest, ReadsAnyText)
{
    const std::pair<quint32, QStringList> cases[] = {
        {0xFF0000FF, {"#F00", "##FF0000", "F#F0#0#00"}},
        {0xFF00AAFF, {"f0a"}},
        {0xFF000080, {"FF000080", "  \t\nFF000080", "0XFF000080"}},
        {0x0000ABCD, {"ABCD"}},
        {0x01234567, {"1234567"}},
        {0xFFFFFFFF, {"#123456789", "FFFFFFFFFFFFFFFFFFFFF"}},
        {0x00000001, {"000000001"}},
        {0x00012345, {"12345g78"}},
        {0x00FF00FF, {"0xFF00"}},
        {0x12345678, {" 0x12345678"}},
        {0,
         {"", "#", "null", "0xF", "0x", "0x0x12345", "-FF000080", "\uFF11\uFF12\uFF13",
          "\U0001F3A8a"}},
    };
    for (const auto &[expected, texts] : cases)
        for (const QString &text : texts)
            EXPECT_EQ(bits(colorFromHexString(text)), expected) << text.toStdString();
}

TEST(ColorTextTest, WritesTruncated)
{
    const std::pair<UIColor, QString> cases[] = {
        {UIColor::colorWithRed(0.5, 1.0, 0.0, 0.999), u"#7FFF00FE"_s},
        {UIColor::colorWithRed(0.1, 0.2, 0.3, 0.4), u"#19334C66"_s},
        {UIColor::whiteColor(), u"#FFFFFFFF"_s},
        {UIColor::clearColor(), u"#00000000"_s},
        {colorFromHexString(u"#FF000080"_s), u"#FF000080"_s}};
    for (const auto &[color, expected] : cases)
        EXPECT_EQ(hexStringForColor(color), expected);
}

TEST(ColorTextTest, BrightnessDecidesTheTextsColor)
{
    const std::tuple<UIColor, double, bool> cases[] = {
        {colorFromHexString(u"#FFFFFF40"_s), 1.0, true},
        {colorFromHexString(u"#00000030"_s), 1.0, true}, // below an alpha of 0.2
        {colorFromHexString(u"#000000FF"_s), 0.0, false},
        {colorFromHexString(u"#F00"_s), 0.2126, false},
        {colorFromHexString(u"#0F0"_s), 0.7152, true},
        {colorFromHexString(u""_s), 1.0, true},
        // The limit is 0.2 in single precision, a trace above 0.2.
        {UIColor::colorWithRed(0.0, 0.0, 0.0, 0.2), 1.0, true},
        {UIColor::colorWithRed(0.0, 0.0, 0.0, double(0.2F)), 0.0, false},
    };
    for (const auto &[color, brightness, black] : cases) {
        EXPECT_DOUBLE_EQ(brightnessFromColor(color), brightness);
        EXPECT_EQ(prefersBlackText(color), black);
    }
}

TEST(ColorTextTest, TypedTextIsTakenDigitForDigitOrRefused)
{
    EXPECT_EQ(normalizedColorText(u"#f0A"_s), u"#FF00AAFF"_s);
    EXPECT_EQ(normalizedColorText(u"12ab9f"_s), u"#12AB9FFF"_s);
    // Bytes that a colour's round trip would lower.
    EXPECT_EQ(normalizedColorText(u"#01020304"_s), u"#01020304"_s);
    for (const QString &refused :
         {u""_s, u"#"_s, u"##F00"_s, u"F#00"_s, u"12"_s, u"1234"_s, u"123456789"_s, u"0xFF00"_s,
          u" F00"_s, u"F0G"_s, u"\uFF11\uFF12\uFF13"_s})
        EXPECT_FALSE(normalizedColorText(refused)) << refused.toStdString();
}
