#include "platform/foundation/XmlText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(XmlTextTest, LeavesOutWhatXmlCannotCarry)
{
    const QChar high(0xd83c);
    const QChar low(0xdfa8);
    const std::pair<QString, QString> cases[] = {
        {u"<&> ä \t\r\n\u007f\u0085\ufffd"_s, u"<&> ä \t\r\n\u007f\u0085\ufffd"_s},
        {u"\U0001F3A8x\U0010FFFF"_s, u"\U0001F3A8x\U0010FFFF"_s},
        {QString(QChar(0)) + u"\u0001a\u001f\u000bb\u0008"_s, u"ab"_s},
        {QString(QChar(0xfffe)) + u"a"_s + QChar(0xffff), u"a"_s},
        {QString(low) + high, u""_s},
        {high + u"a"_s + low, u"a"_s},
        {QString(high) + high + low + low, QString(high) + low},
    };
    for (const auto &[text, expected] : cases) {
        EXPECT_EQ(xmlText(text), expected) << text.toStdString();
        EXPECT_EQ(xmlText(expected), expected);
    }
}
