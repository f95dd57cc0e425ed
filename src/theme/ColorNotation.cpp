#include "theme/ColorNotation.h"

#include "theme/ColorText.h"

#include <QColor>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
/// A byte of what is written as a number, of which `whole` is all, or as a percentage.
int byteOf(const QString &text, double whole)
{
    const bool isPercentage = text.endsWith(u'%');
    const double share =
        (isPercentage ? text.chopped(1) : text).toDouble() / (isPercentage ? 100.0 : whole);
    return int(std::lround(std::clamp(share, 0.0, 1.0) * 255.0));
}
} // namespace

std::optional<QString> colorTextFromNotation(const QString &notation)
{
    const QString text = notation.trimmed().toLower();
    if (const auto hexadecimal = normalizedColorText(text))
        return hexadecimal;

    static const QRegularExpression function(
        uR"(\Argba?\(\s*NUMBER\s*SEP\s*NUMBER\s*SEP\s*NUMBER\s*(?:[,/\s]\s*NUMBER\s*)?\)\z)"_s
            .replace("NUMBER"_L1, uR"(([-+]?(?:\d+\.?\d*|\.\d+)%?))"_s)
            .replace("SEP"_L1, u"[,\\s]"_s));
    if (const auto match = function.match(text); match.hasMatch()) {
        const auto byte = [&](int part) { return byteOf(match.captured(part), 255.0); };
        const QString alpha = match.captured(4);
        return hexStringForRgb(
            qRgba(byte(1), byte(2), byte(3), alpha.isEmpty() ? 255 : byteOf(alpha, 1.0)));
    }

    static const QRegularExpression name(u"\\A[a-z]+\\z"_s);
    QColor named = name.match(text).hasMatch() ? QColor(text) : QColor();
    if (text == "rebeccapurple"_L1) // younger than the list that Qt has
        named = QColor(0x66, 0x33, 0x99);
    if (!named.isValid())
        return std::nullopt;
    return hexStringForRgb(named.rgba());
}
