#include "platform/foundation/PropertyList.h"

#include "platform/foundation/PropertyListGuard.h"
#include "platform/foundation/XmlText.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <clocale>
#include <limits>
#include <memory>
#include <plist/plist.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
struct PlistDeleter {
    void operator()(void *node) const { plist_free(node); }
};
using PlistOwner = std::unique_ptr<void, PlistDeleter>;

struct FreeDeleter {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T>
using MallocOwner = std::unique_ptr<T, FreeDeleter>;

/// libplist reads and writes reals by the numeric locale, in a German one 0.75 as 0. For its
/// lifetime this gives the calling thread, and no other, the locale that the format means.
class PlainNumbers
{
public:
    PlainNumbers() : _previous(uselocale(plain())) {}
    ~PlainNumbers() { uselocale(_previous); }
    PlainNumbers(const PlainNumbers &) = delete;
    PlainNumbers &operator=(const PlainNumbers &) = delete;

private:
    static locale_t plain()
    {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", locale_t(nullptr));
        return locale;
    }

    const locale_t _previous;
};

bool isWhole(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

bool isReal(const QVariant &value)
{
    return value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float;
}

bool isNull(const QVariant &value)
{
    return !value.isValid() || value.typeId() == QMetaType::Nullptr;
}

bool isSigned(const QVariant &whole)
{
    return whole.typeId() != QMetaType::ULongLong ||
           whole.toULongLong() <= quint64(std::numeric_limits<qint64>::max());
}

bool isSameWhole(const QVariant &left, const QVariant &right)
{
    return isSigned(left) == isSigned(right) && left.toULongLong() == right.toULongLong();
}

/// Without rounding on the way: 2^53 + 1 is no double.
bool isSameNumber(const QVariant &whole, double real)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (!isSigned(whole))
        return real >= limit && real < 2.0 * limit && quint64(real) == whole.toULongLong();
    return real >= -limit && real < limit && qint64(real) == whole.toLongLong() &&
           double(qint64(real)) == real;
}

/// The XML of a single value.
QByteArray xmlOf(plist_t node)
{
    const PlainNumbers plainNumbers;
    char *xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(node, &xml, &length);
    const std::unique_ptr<char, decltype(&plist_to_xml_free)> owner(xml, &plist_to_xml_free);
    return {xml, qsizetype(length)};
}

// Through libplist's functions, whole numbers above 2^63 - 1 and negative ones look alike, and
// dates end in 1932 and 2069. What it reads and writes as text knows no such limits.

PlistOwner nodeFromXml(const QByteArray &xml)
{
    plist_t node = nullptr;
    plist_from_xml(xml.constData(), uint32_t(xml.size()), &node);
    return PlistOwner(node);
}

/// What stands between the tags of a single value without markup.
QByteArray textOfNode(plist_t node)
{
    const QByteArray xml = xmlOf(node);
    const qsizetype end = xml.lastIndexOf("</", xml.lastIndexOf("</plist>") - 1);
    const qsizetype start = end < 0 ? -1 : xml.lastIndexOf('>', end) + 1;
    return end < 0 ? QByteArray() : xml.sliced(start, end - start);
}

PlistOwner nodeFromWhole(const QVariant &value)
{
    if (isSigned(value))
        return PlistOwner(plist_new_uint(uint64_t(value.toLongLong()))); // keeps the bits of a sign
    return nodeFromXml("<integer>" + QByteArray::number(value.toULongLong()) + "</integer>");
}

QVariant wholeFromNode(plist_t node)
{
    uint64_t value = 0;
    plist_get_uint_val(node, &value);
    if (qint64(value) >= 0 || textOfNode(node).startsWith('-'))
        return qint64(value);
    return quint64(value);
}

PlistOwner nodeFromDate(const QDateTime &date)
{
    return nodeFromXml("<date>" + date.toUTC().toString(Qt::ISODate).toLatin1() + "</date>");
}

/// Null for a null value.
PlistOwner nodeFromValue(const QVariant &value)
{
    if (isNull(value))
        return {};
    if (isWhole(value))
        return nodeFromWhole(value);
    if (isReal(value))
        return PlistOwner(plist_new_real(value.toDouble()));
    switch (value.typeId()) {
    case QMetaType::Bool:
        return PlistOwner(plist_new_bool(value.toBool()));
    case QMetaType::QByteArray: {
        const QByteArray data = value.toByteArray();
        return PlistOwner(plist_new_data(data.constData(), uint64_t(data.size())));
    }
    case QMetaType::QDateTime:
        return nodeFromDate(value.toDateTime());
    case QMetaType::QVariantList: {
        PlistOwner array(plist_new_array());
        for (const QVariant &item : value.toList()) {
            if (PlistOwner node = nodeFromValue(item))
                plist_array_append_item(array.get(), node.release());
        }
        return array;
    }
    case QMetaType::QVariantMap: {
        PlistOwner dictionary(plist_new_dict());
        const QVariantMap map = value.toMap();
        for (auto item = map.begin(); item != map.end(); ++item) {
            if (PlistOwner node = nodeFromValue(item.value()))
                plist_dict_set_item(dictionary.get(), xmlText(item.key()).toUtf8(), node.release());
        }
        return dictionary;
    }
    default:
        return PlistOwner(plist_new_string(xmlText(PropertyList::textOf(value)).toUtf8()));
    }
}

QVariant valueFromNode(plist_t node);

/// Calls `take(key, value)` for each entry, in order.
template <typename Take>
void forEachEntry(plist_t dictionary, Take take)
{
    plist_dict_iter rawIterator = nullptr;
    plist_dict_new_iter(dictionary, &rawIterator);
    const MallocOwner<void> iterator(rawIterator);
    while (true) {
        char *key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(dictionary, iterator.get(), &key, &item);
        const MallocOwner<char> keyOwner(key);
        if (!item)
            return;
        take(xmlText(QString::fromUtf8(key)), valueFromNode(item));
    }
}

QVariantList listFromNode(plist_t array)
{
    QVariantList list;
    plist_array_iter rawIterator = nullptr;
    plist_array_new_iter(array, &rawIterator);
    const MallocOwner<void> iterator(rawIterator);
    while (true) {
        plist_t item = nullptr;
        plist_array_next_item(array, iterator.get(), &item);
        if (!item)
            return list;
        list.append(valueFromNode(item));
    }
}

/// A date of four-digit years; what else libplist takes for a date, comes as its text.
QVariant dateFromNode(plist_t node)
{
    const QString text = QString::fromLatin1(textOfNode(node));
    const QDateTime date =
        QDateTime::fromString(text.rightJustified(20, u'0'), Qt::ISODate); // years below 1000
    return date.isValid() ? QVariant(date) : QVariant(text);
}

QVariant valueFromNode(plist_t node)
{
    uint64_t length = 0;
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }
    case PLIST_UINT:
        return wholeFromNode(node);
    case PLIST_UID: {
        uint64_t value = 0;
        plist_get_uid_val(node, &value);
        return qint64(value);
    }
    case PLIST_REAL: {
        double value = 0.0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_STRING: {
        const char *text = plist_get_string_ptr(node, &length);
        return xmlText(QString::fromUtf8(text ? text : "", qsizetype(length)));
    }
    case PLIST_DATA: {
        const char *data = plist_get_data_ptr(node, &length);
        return QByteArray(data ? data : "", qsizetype(length));
    }
    case PLIST_DATE:
        return dateFromNode(node);
    case PLIST_ARRAY:
        return listFromNode(node);
    case PLIST_DICT: {
        QVariantMap map;
        forEachEntry(node, [&](const QString &key, const QVariant &value) { map[key] = value; });
        return map;
    }
    default:
        return {};
    }
}

/// Null unless the bytes are a harmless property list.
PlistOwner parse(QByteArrayView bytes)
{
    constexpr auto byteOrderMark = "\xEF\xBB\xBF"_L1;
    if (std::cmp_greater(bytes.size(), std::numeric_limits<uint32_t>::max()))
        return {};
    const PlainNumbers plainNumbers;
    plist_t node = nullptr;
    if (bytes.startsWith("bplist")) {
        if (PropertyListGuard::isSafeBinary(bytes))
            plist_from_bin(bytes.data(), uint32_t(bytes.size()), &node);
        return PlistOwner(node);
    }
    if (bytes.startsWith(QByteArrayView(byteOrderMark.data(), byteOrderMark.size())))
        bytes = bytes.sliced(byteOrderMark.size());
    if (PropertyListGuard::isSafeXml(bytes))
        plist_from_xml(bytes.data(), uint32_t(bytes.size()), &node);
    return PlistOwner(node);
}
} // namespace

void PropertyDictionary::setValue(const QString &key, const QVariant &value)
{
    const auto place = _places.constFind(key);
    if (place != _places.cend()) {
        _entries[*place].second = value;
        return;
    }
    _places.insert(key, _entries.size());
    _entries.emplace_back(key, value);
}

const QVariant *PropertyDictionary::find(const QString &key) const
{
    const auto place = _places.constFind(key);
    return place == _places.cend() ? nullptr : &_entries[*place].second;
}

bool PropertyDictionary::operator==(const PropertyDictionary &other) const
{
    return std::ranges::equal(_entries, other._entries, [](const Entry &left, const Entry &right) {
        return left.first == right.first && PropertyList::isEqual(left.second, right.second);
    });
}

bool PropertyList::isEqual(const QVariant &left, const QVariant &right)
{
    if (isNull(left) || isNull(right))
        return isNull(left) && isNull(right);
    if (isWhole(left) && isWhole(right))
        return isSameWhole(left, right);
    if (isWhole(left) && isReal(right))
        return isSameNumber(left, right.toDouble());
    if (isReal(left) && isWhole(right))
        return isSameNumber(right, left.toDouble());
    if (isReal(left) && isReal(right))
        return left.toDouble() == right.toDouble();
    if (left.typeId() != right.typeId())
        return false;
    if (left.typeId() == QMetaType::QVariantList)
        return std::ranges::equal(left.toList(), right.toList(), isEqual);
    if (left.typeId() == QMetaType::QVariantMap) {
        const QVariantMap leftMap = left.toMap();
        const QVariantMap rightMap = right.toMap();
        return leftMap.keys() == rightMap.keys() &&
               std::equal(leftMap.begin(), leftMap.end(), rightMap.begin(), isEqual);
    }
    return left == right;
}

QString PropertyList::textOf(const QVariant &value)
{
    if (isNull(value))
        return {};
    if (isReal(value))
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    switch (value.typeId()) {
    case QMetaType::QByteArray:
        return u"<%1 bytes>"_s.arg(value.toByteArray().size());
    case QMetaType::QDateTime:
        return value.toDateTime().toString(Qt::ISODate);
    case QMetaType::QVariantList:
        return u"(%1 values)"_s.arg(value.toList().size());
    case QMetaType::QVariantMap:
        return u"{%1 values}"_s.arg(value.toMap().size());
    default:
        return value.toString();
    }
}

std::optional<PropertyDictionary> PropertyList::readDictionary(const QByteArray &bytes)
{
    const PlistOwner root = parse(bytes);
    if (!root || plist_get_node_type(root.get()) != PLIST_DICT)
        return std::nullopt;
    PropertyDictionary dictionary;
    forEachEntry(root.get(), [&](const QString &key, const QVariant &value) {
        dictionary.setValue(key, value);
    });
    return dictionary;
}

std::optional<QVariantList> PropertyList::readArray(const QByteArray &bytes)
{
    const PlistOwner root = parse(bytes);
    if (!root || plist_get_node_type(root.get()) != PLIST_ARRAY)
        return std::nullopt;
    return listFromNode(root.get());
}

QByteArray PropertyList::writeDictionary(const PropertyDictionary &dictionary)
{
    const PlistOwner root(plist_new_dict());
    for (const auto &[key, value] : dictionary.entries()) {
        if (PlistOwner node = nodeFromValue(value))
            plist_dict_set_item(root.get(), xmlText(key).toUtf8(), node.release());
    }
    return xmlOf(root.get());
}
