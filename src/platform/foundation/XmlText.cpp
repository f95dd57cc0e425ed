#include "platform/foundation/XmlText.h"

#include <algorithm>

namespace
{
/// How many code units from the index on are one character that XML can carry; 0 for none.
qsizetype characterSize(QStringView text, qsizetype index)
{
    const QChar unit = text[index];
    if (unit.isSurrogate()) {
        const bool isPair =
            unit.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate();
        return isPair ? 2 : 0;
    }
    const char16_t code = unit.unicode();
    const bool fits =
        code >= 0x20 ? code < 0xfffe : code == u'\t' || code == u'\n' || code == u'\r';
    return fits ? 1 : 0;
}

/// Where the first character stands that XML cannot carry, or the end.
qsizetype firstMisfit(QStringView text)
{
    qsizetype index = 0;
    while (index < text.size()) {
        const qsizetype size = characterSize(text, index);
        if (size == 0)
            break;
        index += size;
    }
    return index;
}
} // namespace

QString xmlText(const QString &text)
{
    QStringView rest = text;
    qsizetype fitting = firstMisfit(rest);
    if (fitting == rest.size())
        return text;
    QString result;
    result.reserve(text.size());
    while (true) {
        result += rest.first(fitting);
        rest = rest.sliced(std::min(fitting + 1, rest.size()));
        if (rest.isEmpty())
            return result;
        fitting = firstMisfit(rest);
    }
}
