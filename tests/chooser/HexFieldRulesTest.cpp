#include "chooser/HexFieldRules.h"

#include <QString>

#include <gtest/gtest.h>

void PrintTo(const HexFieldAnswer &answer, std::ostream *stream)
{
    *stream << (answer.allowed ? "allowed" : "refused") << (answer.suppliesHash ? ", #" : "");
}

TEST(HexFieldRulesTest, AnswersByLengthAndLetters)
{
    constexpr HexFieldAnswer allowed{true, false};
    constexpr HexFieldAnswer refused{false, false};
    const struct {
        qsizetype length;
        qsizetype rangeLength;
        QString replacement;
        HexFieldAnswer answer;
    } cases[] = {
        {9, 0, "A", refused}, // a tenth character
        {9, 1, "A", allowed},
        {8, 0, "f", allowed},
        {5, 0, "g", refused},
        {5, 0, "#", refused},
        {5, 0, QString(QChar(0xFF11)), refused}, // a digit, but not one of ours
        {5, 0, QString(QChar(0x0661)), refused},
        {5, 0, " ", refused},
        {5, 3, "", allowed},
        {0, 0, "", allowed},
        // A whole colour text goes in whatever it spells, if it fits.
        {9, 9, "#12345678", allowed},
        {0, 0, "wholeText", allowed},
        {1, 0, "#12345678", refused},
        {9, 9, "#1234567", refused},
        {9, 9, "#123456789", refused},
        {9, 9, "12345678", allowed},
        // The first character brings the "#" along.
        {0, 0, "A", {true, true}},
        {0, 0, "z", {false, true}},
        {9, 9, "A", {true, true}},
        {2, 1, "", {true, true}},
    };
    for (const auto &c : cases)
        EXPECT_EQ(answerHexFieldEdit(c.length, c.rangeLength, c.replacement), c.answer)
            << c.length << " - " << c.rangeLength << " + '" << c.replacement.toStdString() << "'";
}
