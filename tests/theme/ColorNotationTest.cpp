#include "theme/ColorNotation.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ColorNotationTest, ReadsWhatPeopleHaveOnTheClipboard)
{
    const std::pair<const char *, const char *> cases[] = {
        {"#8EEBB0", "#8EEBB0FF"},
        {"f0a", "#FF00AAFF"},
        {" 12345678\n", "#12345678"},
        {"rgb(255, 0, 128)", "#FF0080FF"},
        {"RGB(255 0 128 / 50%)", "#FF008080"},
        {"rgba(1,2,3,0.5)", "#01020380"},
        {"rgba( 10% , 20.5%, 100% , .25 )", "#1A34FF40"},
        {"rgb(-4, 300, 12.6)", "#00FF0DFF"},
        {"rgba(0, 0, 0, 7)", "#000000FF"},
        {"RebeccaPurple", "#663399FF"},
        {"transparent", "#00000000"},
    };
    for (const auto &[notation, text] : cases)
        EXPECT_EQ(colorTextFromNotation(QString::fromLatin1(notation)), QString::fromLatin1(text))
            << notation;
    for (const QString &refused :
         {u"#12345"_s, u"##123456"_s, u"rgb(1, 2)"_s, u"rgb(1, 2, 3"_s, u"rgb(1, 2, 3) x"_s,
          u"hsl(1, 2%, 3%)"_s, u"no color"_s, u""_s, QString(1 << 20, u'1')})
        EXPECT_FALSE(colorTextFromNotation(refused))
            << refused.first(qMin(20, refused.size())).toStdString();
}
