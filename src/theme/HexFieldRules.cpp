#include "theme/HexFieldRules.h"

#include <algorithm>

HexFieldAnswer answerHexFieldEdit(const QString &text, NSRange range, const QString &replacement)
{
    constexpr qsizetype wholeText = 9; // "#RRGGBBAA"
    const auto isDigit = [](QChar c) {
        return (u'0' <= c && c <= u'9') || (u'A' <= c && c <= u'F') || (u'a' <= c && c <= u'f');
    };
    const qsizetype newLength = text.size() - range.length + replacement.size();
    if (newLength > wholeText)
        return {false, {}};
    if (replacement.size() == wholeText)
        return {true, {}};
    HexFieldAnswer answer{std::ranges::all_of(replacement, isDigit), {}};
    if (newLength == 1)
        answer.instead = QString(text).replace(range.location, range.length, u'#');
    return answer;
}
