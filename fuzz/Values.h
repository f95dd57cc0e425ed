// Checks of property list values that several targets share.
#pragma once

#include "platform/foundation/PropertyList.h"

namespace Fuzz
{
/// Like PropertyList::isEqual, but "not a number" equals itself.
bool isSame(const QVariant &left, const QVariant &right);

/// Like isSame, whatever the order of the keys.
bool hasSameContents(const PropertyDictionary &left, const PropertyDictionary &right);

/// Throws unless the dictionary is written as well-formed XML that reads back the same. Returns
/// that XML.
QByteArray requireWritable(const PropertyDictionary &dictionary);
} // namespace Fuzz
