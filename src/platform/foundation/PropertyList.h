// Property lists: the phone's own format for settings and theme packages.
//
// A property list is read from its XML or binary form and written as XML, both by libplist. Values
// are QVariants of these types; an invalid QVariant is the null marker and has no written form:
//
//   string QString · boolean bool · whole number qint64, from 2^63 on quint64 · real double ·
//   data QByteArray · date QDateTime, whole seconds · array QVariantList · dictionary QVariantMap
//
// Only the top level keeps the order of its entries, because there the order is visible in the file
// that people open.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariant>

#include <optional>
#include <utility>
#include <vector>

/// A dictionary that keeps the order in which its keys were first set.
class PropertyDictionary
{
public:
    using Entry = std::pair<QString, QVariant>;

    /// Replaces the value of a key in its place, or appends the key.
    void setValue(const QString &key, const QVariant &value);
    /// Null when the key is absent.
    const QVariant *find(const QString &key) const;
    const std::vector<Entry> &entries() const { return _entries; }
    bool operator==(const PropertyDictionary &) const;

private:
    std::vector<Entry> _entries;
    QHash<QString, std::size_t> _places;
};

namespace PropertyList
{
/// Equal in type and value: 1 equals 1.0, a string never equals a number, nor a boolean either.
/// Null equals null.
bool isEqual(const QVariant &left, const QVariant &right);

/// A value in words, for places that show or log text: a string as it stands, numbers in plain
/// digits, booleans as "true" and "false", null as the empty string, other types in short form.
QString textOf(const QVariant &value);

/// The dictionary in the bytes, or nothing when they are not a property list with a dictionary on
/// top. Strings come as xmlText leaves them, so that what was read can be written and is the same
/// when read again; fractions of seconds are dropped, and a whole number beyond 64 bits is not
/// kept. Never crashes on hostile bytes: what nests too deep (see PropertyListGuard.h) and binary
/// lists that expand beyond reason are refused before libplist sees them.
std::optional<PropertyDictionary> readDictionary(const QByteArray &bytes);

/// The array in the bytes, or nothing when they are not a property list with an array on top.
/// Guarded like the above.
std::optional<QVariantList> readArray(const QByteArray &bytes);

/// XML. Strings are written as xmlText leaves them; null values are skipped.
QByteArray writeDictionary(const PropertyDictionary &dictionary);
} // namespace PropertyList
