// Property lists, XML and binary.
#include "fuzz/FuzzTargets.h"
#include "fuzz/Values.h"

void Fuzz::propertyList(const QByteArray &bytes)
{
    const auto read = PropertyList::readDictionary(bytes);
    if (!read)
        return;
    for (const auto &[key, value] : read->entries())
        PropertyList::textOf(value);
    requireWritable(*read);
}
