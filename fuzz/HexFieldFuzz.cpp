// The chooser's hex field under a sequence of edits. Each edit takes three bytes for where, how
// much and what, and a pasted text as many more as it is long.
#include "fuzz/FuzzTargets.h"
#include "platform/foundation/TextEdit.h"
#include "theme/ColorText.h"
#include "theme/HexFieldRules.h"

#include <algorithm>

namespace
{
/// The field's text under edits, each asked about as by a field in a window.
class Field
{
public:
    const QString &text() const { return _text; }

    void edit(NSRange range, const QString &replacement)
    {
        const qsizetype end = range.location + range.length;
        const TextContent before{_text, range.location, end, end};
        const TextContent after = TextContent::withCursor(
            QString(_text).replace(range.location, range.length, replacement),
            range.location + replacement.size());
        const TextEdit found = editBetween(before, after);
        Fuzz::require(found.range == range && found.replacement == replacement,
                      "the edit is told by what it left");
        const auto [allowed, instead] = answerHexFieldEdit(_text, range, replacement);
        _text = contentAfterAnswer(before, replacement, allowed, instead).value_or(after).text;
    }

private:
    QString _text = QStringLiteral("#FFFFFFFF");
};

class Edits
{
public:
    explicit Edits(const QByteArray &bytes) : _bytes(bytes) {}
    bool atEnd() const { return _position >= _bytes.size(); }
    uchar byte() { return atEnd() ? 0 : uchar(_bytes[_position++]); }
    QString text(qsizetype length)
    {
        const QByteArray part = _bytes.mid(_position, length);
        _position += length;
        return QString::fromLatin1(part);
    }

private:
    const QByteArray &_bytes;
    qsizetype _position = 0;
};

bool isDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f');
}
} // namespace

void Fuzz::hexField(const QByteArray &bytes)
{
    constexpr qsizetype wholeText = 9;
    Edits edits(bytes);
    Field field;
    bool wasPastedWhole = false; // which goes in whatever it spells
    while (!edits.atEnd()) {
        const QString before = field.text();
        const qsizetype location = edits.byte() % (before.size() + 1);
        const qsizetype length = edits.byte() % (before.size() - location + 1);
        const uchar what = edits.byte(); // up to 12: the length of a paste; else a key
        const QString replacement = what <= 12 ? edits.text(what) : QString(QChar(what));
        field.edit({location, length}, replacement);
        const QString &after = field.text();
        wasPastedWhole |= replacement.size() == wholeText && after == replacement;

        require(after.size() <= wholeText, "the field holds nine characters at most");
        if (replacement.isEmpty())
            require(after == QString(before).remove(location, length), "a deletion deletes");
        if (before.isEmpty() && replacement.size() == 1)
            require(after.startsWith(u'#'), "the sign supplies itself");
        if (!wasPastedWhole)
            require(after.count(u'#') <= 1 &&
                        std::ranges::all_of(after, [](QChar c) { return c == u'#' || isDigit(c); }),
                    "only digits are typed, behind one sign");
        require(hexStringForColor(colorFromHexString(after)).size() == wholeText,
                "whatever stands there is a colour");
    }
}
