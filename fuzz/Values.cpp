#include "fuzz/Values.h"

#include "fuzz/FuzzTargets.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

namespace
{
bool isNotANumber(const QVariant &value)
{
    return value.typeId() == QMetaType::Double && std::isnan(value.toDouble());
}

bool isWellFormed(const QByteArray &xml)
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd())
        reader.readNext();
    return !reader.hasError();
}
} // namespace

bool Fuzz::isSame(const QVariant &left, const QVariant &right)
{
    if (isNotANumber(left) && isNotANumber(right))
        return true;
    if (left.typeId() != right.typeId())
        return PropertyList::isEqual(left, right);
    if (left.typeId() == QMetaType::QVariantList)
        return std::ranges::equal(left.toList(), right.toList(), isSame);
    if (left.typeId() == QMetaType::QVariantMap) {
        const QVariantMap leftMap = left.toMap();
        const QVariantMap rightMap = right.toMap();
        return leftMap.keys() == rightMap.keys() &&
               std::equal(leftMap.begin(), leftMap.end(), rightMap.begin(), isSame);
    }
    return PropertyList::isEqual(left, right);
}

bool Fuzz::hasSameContents(const PropertyDictionary &left, const PropertyDictionary &right)
{
    return left.entries().size() == right.entries().size() &&
           std::ranges::all_of(left.entries(), [&](const PropertyDictionary::Entry &entry) {
               const QVariant *other = right.find(entry.first);
               return other && isSame(entry.second, *other);
           });
}

QByteArray Fuzz::requireWritable(const PropertyDictionary &dictionary)
{
    const QByteArray xml = PropertyList::writeDictionary(dictionary);
    require(isWellFormed(xml), "what is written is well-formed");
    const auto again = PropertyList::readDictionary(xml);
    require(again.has_value(), "what is written can be read");
    require(hasSameContents(dictionary, *again), "what is written reads back the same");
    return xml;
}
