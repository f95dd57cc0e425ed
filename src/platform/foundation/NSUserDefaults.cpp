#include "platform/foundation/NSUserDefaults.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/PropertyList.h"

#include <QFileInfo>

namespace
{
PropertyDictionary readFile(const QString &file)
{
    const auto [bytes, error] = NSFileManager::contentsAtPath(file);
    return error ? PropertyDictionary()
                 : PropertyList::readDictionary(bytes).value_or(PropertyDictionary());
}
} // namespace

NSUserDefaults::NSUserDefaults(const QString &file) : _file(file)
{
    const PropertyDictionary stored = readFile(file);
    for (const auto &[key, value] : stored.entries())
        _values[key] = value;
}

QVariant NSUserDefaults::objectForKey(const QString &key) const
{
    const MutexLock lock(_mutex);
    return _values.value(key);
}

void NSUserDefaults::setObjectForKey(const QVariant &value, const QString &key)
{
    const MutexLock lock(_mutex);
    _values[key] = value;
    _unsaved[key] = value;
}

std::error_code NSUserDefaults::synchronize()
{
    const MutexLock lock(_mutex);
    PropertyDictionary dictionary = readFile(_file);
    for (auto value = _unsaved.begin(); value != _unsaved.end(); ++value)
        dictionary.setValue(value.key(), value.value());
    if (const auto error = NSFileManager::createDirectoryAtPath(QFileInfo(_file).path()))
        return error;
    const auto error = NSFileManager::writeToFile(_file, PropertyList::writeDictionary(dictionary));
    if (!error)
        _unsaved.clear();
    return error;
}
