#include "theme/ElementLocks.h"

#include "platform/foundation/NSFileManager.h"

using namespace Qt::StringLiterals;

namespace
{
QString fileIn(const ThemeLocations &locations)
{
    return locations.workingCopyFolder() + "/Locks.plist"_L1;
}

PropertyDictionary dictionaryAt(const QString &file)
{
    const auto [bytes, error] = NSFileManager::contentsAtPath(file);
    return error ? PropertyDictionary()
                 : PropertyList::readDictionary(bytes).value_or(PropertyDictionary());
}

QVariantList keysIn(const PropertyDictionary &dictionary)
{
    const QVariant *keys = dictionary.find(u"locked"_s);
    return keys ? keys->toList() : QVariantList();
}
} // namespace

std::vector<int> ElementLocks::load(const ThemeLocations &locations,
                                    const ElementDataSource &elements)
{
    std::vector<int> locked;
    for (const QVariant &key : keysIn(dictionaryAt(fileIn(locations))))
        for (const int index : elements.indexesOfKey(key.toString()))
            locked.push_back(index);
    return locked;
}

std::error_code ElementLocks::remember(const ThemeLocations &locations, const QString &key,
                                       bool isLocked)
{
    if (NSFileManager::itemAtPath(locations.workingCopyFolder()).kind == NSFileManager::Kind::Link)
        return std::make_error_code(std::errc::too_many_symbolic_link_levels);
    PropertyDictionary dictionary = dictionaryAt(fileIn(locations));
    QVariantList keys = keysIn(dictionary);
    keys.removeAll(key);
    if (isLocked)
        keys.append(key);
    dictionary.setValue(u"locked"_s, keys);
    if (const auto error = NSFileManager::createDirectoryAtPath(locations.workingCopyFolder()))
        return error;
    return NSFileManager::writeToFile(fileIn(locations), PropertyList::writeDictionary(dictionary));
}
