#include "library/CompactBytes.h"

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/XmlText.h"

#include <QDateTime>
#include <QTimeZone>
#include <QtEndian>

#include <algorithm>
#include <bit>

namespace
{
enum Tag : quint8 { False, True, Whole, LargeWhole, Real, Text, Data, Date, List, Map, Color };

quint64 zigzag(qint64 value)
{
    return (quint64(value) << 1) ^ (value < 0 ? ~quint64(0) : 0);
}

qint64 fromZigzag(quint64 value)
{
    return qint64((value >> 1) ^ (value & 1 ? ~quint64(0) : 0));
}
} // namespace

std::optional<QByteArray> bytesOfColorText(const QString &text)
{
    const auto isDigit = [](QChar c) {
        return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F');
    };
    if (text.size() != 9 || text[0] != u'#' || !std::all_of(text.begin() + 1, text.end(), isDigit))
        return std::nullopt;
    return QByteArray::fromHex(text.sliced(1).toLatin1());
}

QString colorTextOfBytes(const QByteArray &bytes)
{
    return u'#' + QString::fromLatin1(bytes.toHex().toUpper());
}

void CompactWriter::number(quint64 value)
{
    for (; value >= 128; value >>= 7)
        byte(quint8(value | 128));
    byte(quint8(value));
}

void CompactWriter::data(const QByteArray &data)
{
    number(quint64(data.size()));
    raw(data);
}

void CompactWriter::value(const QVariant &value)
{
    const auto isSomething = [](const QVariant &item) { return item.isValid(); };
    switch (value.typeId()) {
    case QMetaType::Bool:
        return byte(value.toBool() ? True : False);
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        byte(Whole);
        return number(zigzag(value.toLongLong()));
    case QMetaType::ULongLong:
        byte(LargeWhole);
        return number(value.toULongLong());
    case QMetaType::Double:
    case QMetaType::Float: {
        byte(Real);
        QByteArray bytes(8, Qt::Uninitialized);
        qToLittleEndian(std::bit_cast<quint64>(value.toDouble()), bytes.data());
        return raw(bytes);
    }
    case QMetaType::QByteArray:
        byte(Data);
        return data(value.toByteArray());
    case QMetaType::QDateTime:
        byte(Date);
        return number(zigzag(value.toDateTime().toSecsSinceEpoch()));
    case QMetaType::QVariantList: {
        const QVariantList list = value.toList();
        byte(List);
        number(quint64(std::ranges::count_if(list, isSomething)));
        for (const QVariant &item : list)
            if (isSomething(item))
                this->value(item);
        return;
    }
    case QMetaType::QVariantMap: {
        const QVariantMap map = value.toMap();
        byte(Map);
        number(quint64(std::ranges::count_if(map, isSomething)));
        for (auto item = map.begin(); item != map.end(); ++item) {
            if (!isSomething(item.value()))
                continue;
            text(item.key());
            this->value(item.value());
        }
        return;
    }
    default:
        break;
    }
    const QString text = PropertyList::textOf(value);
    if (const auto color = bytesOfColorText(text)) {
        byte(Color);
        return raw(*color);
    }
    byte(Text);
    this->text(text);
}

template <typename Value>
Value CompactReader::fail()
{
    _good = false;
    _position = _bytes.size();
    return {};
}

quint8 CompactReader::byte()
{
    return atEnd() ? fail<quint8>() : quint8(_bytes[_position++]);
}

QByteArray CompactReader::raw(quint64 size)
{
    if (size > quint64(_bytes.size() - _position))
        return fail<QByteArray>();
    _position += qsizetype(size);
    return _bytes.sliced(_position - qsizetype(size), qsizetype(size));
}

quint64 CompactReader::number()
{
    quint64 value = 0;
    for (int shift = 0; shift < 64; shift += 7) {
        const quint8 next = byte();
        const quint64 bits = next & 127;
        if (shift == 63 && bits > 1)
            return fail<quint64>();
        value |= bits << shift;
        if (next < 128)
            return _good ? value : 0;
    }
    return fail<quint64>();
}

QString CompactReader::text()
{
    const QByteArray bytes = data();
    return bytes.isValidUtf8() ? xmlText(QString::fromUtf8(bytes)) : fail<QString>();
}

quint64 CompactReader::count(quint64 least)
{
    const quint64 count = number();
    return count <= quint64(_bytes.size() - _position) / least ? count : fail<quint64>();
}

QVariant CompactReader::real()
{
    const QByteArray bytes = raw(8);
    return _good ? std::bit_cast<double>(qFromLittleEndian<quint64>(bytes.constData()))
                 : QVariant();
}

/// A property list's years have four digits.
QVariant CompactReader::date()
{
    constexpr qint64 first = -62'167'219'200, end = 253'402'300'800;
    const qint64 seconds = fromZigzag(number());
    if (!_good || seconds < first || seconds >= end)
        return fail<QVariant>();
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
}

QVariant CompactReader::list(int depth)
{
    QVariantList list;
    for (quint64 left = count(1); left > 0 && _good; --left)
        list.append(value(depth + 1));
    return list;
}

QVariant CompactReader::map(int depth)
{
    QVariantMap map;
    for (quint64 left = count(2); left > 0 && _good; --left) {
        const QString key = text();
        if (map.contains(key))
            return fail<QVariant>();
        map.insert(key, value(depth + 1));
    }
    return map;
}

QVariant CompactReader::value(int depth)
{
    if (depth > deepest)
        return fail<QVariant>();
    switch (byte()) {
    case False:
        return _good ? QVariant(false) : QVariant(); // a missing byte reads as 0
    case True:
        return true;
    case Whole:
        return fromZigzag(number());
    case LargeWhole:
        return number();
    case Real:
        return real();
    case Text:
        return text();
    case Data:
        return data();
    case Date:
        return date();
    case List:
        return list(depth);
    case Map:
        return map(depth);
    case Color:
        return colorTextOfBytes(raw(4));
    default:
        return fail<QVariant>();
    }
}
