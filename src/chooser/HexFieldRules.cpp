#include "chooser/HexFieldRules.h"

#include <algorithm>

HexFieldAnswer answerHexFieldEdit(qsizetype length, qsizetype rangeLength, QStringView replacement)
{
    constexpr qsizetype wholeText = 9; // "#RRGGBBAA"
    const auto isDigit = [](QChar c) {
        return (u'0' <= c && c <= u'9') || (u'A' <= c && c <= u'F') || (u'a' <= c && c <= u'f');
    };
    const qsizetype newLength = length - rangeLength + replacement.size();
    if (newLength > wholeText)
        return {false, false};
    if (replacement.size() == wholeText)
        return {true, false};
    return {std::ranges::all_of(replacement, isDigit), newLength == 1};
}
