#include "platform/foundation/PropertyListGuard.h"

#include <algorithm>
#include <optional>

namespace
{
/// Position after a tag or declaration that starts at `start`, or nothing when it is not plain.
std::optional<qsizetype> endOfTag(QByteArrayView xml, qsizetype start)
{
    bool quoted = false;
    for (qsizetype i = start + 1; i < xml.size(); ++i) {
        const char character = xml[i];
        if (character == '>')
            return quoted ? std::nullopt : std::optional(i + 1);
        if (character == '<' || character == '[')
            return std::nullopt;
        if (character == '"')
            quoted = !quoted;
    }
    return std::nullopt;
}

/// Position after `terminator`, or nothing when it does not come.
std::optional<qsizetype> endOfBlock(QByteArrayView xml, qsizetype start, QByteArrayView terminator)
{
    const qsizetype found = xml.indexOf(terminator, start);
    return found < 0 ? std::nullopt : std::optional(found + terminator.size());
}

/// How a tag, "<" and ">" included, changes the depth.
int depthStep(QByteArrayView tag)
{
    if (tag == "</dict>" || tag == "</array>")
        return -1;
    const bool container = tag.startsWith("<dict") || tag.startsWith("<array");
    return container && !tag.endsWith("/>") ? 1 : 0;
}

/// Walks a binary list the way libplist will, counting what it would make.
///
/// Format: "bplist00", the objects, a table of their offsets, and a trailer of 32 bytes that gives
/// the widths of offsets and references, the number of objects, the root's index and the table's
/// offset. Everything is big-endian. An object starts with a byte of type (high half) and length
/// (low half; 15 means that an integer object with the length follows).
class BinaryWalk
{
public:
    explicit BinaryWalk(QByteArrayView bytes) : _bytes(bytes)
    {
        // Without shared containers every object is reached by a reference of at least one byte, so
        // an honest list stays below its own length. The floor lets a small list share a little.
        _nodesLeft = std::max<qint64>(bytes.size(), 64 * 1024);
        _payloadLeft = std::max<qint64>(bytes.size(), 1024 * 1024) * 16;
    }

    bool run()
    {
        constexpr qint64 trailerSize = 32;
        const qint64 trailer = _bytes.size() - trailerSize;
        if (trailer < 0)
            return false;
        _offsetWidth = quint8(_bytes[trailer + 6]);
        _referenceWidth = quint8(_bytes[trailer + 7]);
        const auto count = number(trailer + 8, 8);
        const auto root = number(trailer + 16, 8);
        const auto table = number(trailer + 24, 8);
        const auto widthFits = [](int width) { return width >= 1 && width <= 8; };
        if (!widthFits(_offsetWidth) || !widthFits(_referenceWidth) || !count || !root || !table ||
            *count > trailer || *table > trailer || *count * _offsetWidth > trailer - *table)
            return false;
        _count = *count;
        _table = *table;
        return visit(*root, 0);
    }

private:
    std::optional<qint64> number(qint64 position, int width) const
    {
        if (position < 0 || position > _bytes.size() - width)
            return std::nullopt;
        quint64 value = 0;
        for (int i = 0; i < width; ++i)
            value = value << 8 | quint8(_bytes[position + i]);
        if (value > quint64(std::numeric_limits<qint64>::max()))
            return std::nullopt;
        return qint64(value);
    }

    bool visit(qint64 index, int depth)
    {
        if (index >= _count || depth > PropertyListGuard::maximumDepth || --_nodesLeft < 0)
            return false;
        const auto position = number(_table + index * _offsetWidth, _offsetWidth);
        if (!position || *position >= _bytes.size())
            return false;
        const int type = quint8(_bytes[*position]) >> 4;
        const int low = quint8(_bytes[*position]) & 15;
        if (type < 4 || type == 8) // booleans, numbers, dates, identifiers
            return true;
        qint64 length = low;
        qint64 contents = *position + 1;
        if (low == 15) {
            const auto marker = number(contents, 1);
            if (!marker || *marker >> 4 != 1 || (*marker & 15) > 3)
                return false;
            const int width = 1 << (*marker & 15);
            const auto longLength = number(contents + 1, width);
            if (!longLength || *longLength > _bytes.size())
                return false;
            length = *longLength;
            contents += 1 + width;
        }
        if (type == 0xa || type == 0xc)
            return visitReferences(contents, length, depth);
        if (type == 0xd)
            return visitReferences(contents, 2 * length, depth); // the keys, then the values
        return isSafePayload(contents, length, type);
    }

    /// Data, or text of one byte (5) or two bytes (6) a character.
    bool isSafePayload(qint64 position, qint64 length, int type)
    {
        const qint64 size = type == 6 ? 2 * length : length;
        _payloadLeft -= size;
        if (_payloadLeft < 0 || size > _bytes.size() - position)
            return false;
        // A key with a zero character inside makes libplist end the program.
        const QByteArrayView payload = _bytes.sliced(position, size);
        if (type == 5)
            return !payload.contains('\0');
        for (qint64 i = 0; type == 6 && i < size; i += 2) {
            if (payload[i] == 0 && payload[i + 1] == 0)
                return false;
        }
        return true;
    }

    bool visitReferences(qint64 position, qint64 count, int depth)
    {
        for (qint64 i = 0; i < count; ++i) {
            const auto index = number(position + i * _referenceWidth, _referenceWidth);
            if (!index || !visit(*index, depth + 1))
                return false;
        }
        return true;
    }

    const QByteArrayView _bytes;
    qint64 _nodesLeft;
    qint64 _payloadLeft;
    int _offsetWidth = 0;
    int _referenceWidth = 0;
    qint64 _count = 0;
    qint64 _table = 0;
};
} // namespace

bool PropertyListGuard::isSafeXml(QByteArrayView xml)
{
    int depth = 0;
    qsizetype position = 0;
    while ((position = xml.indexOf('<', position)) >= 0) {
        const QByteArrayView rest = xml.sliced(position);
        std::optional<qsizetype> end;
        if (rest.startsWith("<!--"))
            end = endOfBlock(xml, position + 4, "-->");
        else if (rest.startsWith("<![CDATA["))
            end = endOfBlock(xml, position + 9, "]]>");
        else
            end = endOfTag(xml, position);
        if (!end)
            return false;
        const QByteArrayView tag = xml.sliced(position, *end - position);
        if (tag.startsWith("<?") && !tag.endsWith("?>"))
            return false;
        depth += depthStep(tag);
        if (depth < 0 || depth > maximumDepth)
            return false;
        position = *end;
    }
    return true;
}

bool PropertyListGuard::isSafeBinary(QByteArrayView bytes)
{
    return BinaryWalk(bytes).run();
}
