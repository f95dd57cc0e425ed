#include "theme/HexFieldRules.h"

#include <gtest/gtest.h>

TEST(HexFieldRulesTest, AnswersByLengthAndLetters)
{
    const std::tuple<QString, NSRange, QString, HexFieldAnswer> cases[] = {
        {"#FFFFFFFF", {9, 0}, "A", {false, {}}}, // a tenth character
        {"#FFFFFFFF", {1, 1}, "A", {true, {}}},
        {"#FFFFFFF", {8, 0}, "f", {true, {}}},
        {"#FFFF", {5, 0}, "g", {false, {}}},
        {"#FFFF", {5, 0}, "#", {false, {}}},
        {"#FFFF", {5, 0}, "\uFF11", {false, {}}}, // a digit, but not one of ours
        {"#FFFF", {1, 3}, "", {true, {}}},
        {"", {0, 0}, "", {true, {}}},
        // A whole colour text goes in whatever it spells, if it fits.
        {"#FFFFFFFF", {0, 9}, "wholeText", {true, {}}},
        {"#", {1, 0}, "#12345678", {false, {}}},
        {"#FFFFFFFF", {0, 9}, "#1234567", {false, {}}},
        // The first character brings the "#" along.
        {"", {0, 0}, "A", {true, "#"}},
        {"", {0, 0}, "z", {false, "#"}},
        {"#FFFFFFFF", {0, 9}, "A", {true, "#"}},
        {"#F", {1, 1}, "", {true, "##"}},
    };
    for (const auto &[text, range, replacement, expected] : cases)
        EXPECT_EQ(answerHexFieldEdit(text, range, replacement), expected)
            << range.length << " of " << text.toStdString() << " to " << replacement.toStdString();
}
