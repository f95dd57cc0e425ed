#include "delivery/RememberedPhones.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/PropertyList.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr std::size_t mostPhones = 12;
const QString key = u"phones"_s;

QVariantMap mapOf(const RememberedPhone &phone)
{
    return {{u"name"_s, phone.name},
            {u"host"_s, phone.address.host},
            {u"port"_s, qint64(phone.address.port)},
            {u"user"_s, phone.address.user},
            {u"folder"_s, phone.folder}};
}

/// Whatever stands in the file: what is no phone has no host.
RememberedPhone phoneOf(const QVariantMap &map)
{
    const qint64 port = map.value(u"port"_s).toLongLong();
    return {map.value(u"name"_s).toString(),
            {map.value(u"host"_s).toString(), port > 0 && port < 65536 ? int(port) : 0,
             map.value(u"user"_s).toString()},
            map.value(u"folder"_s).toString()};
}
} // namespace

RememberedPhones::RememberedPhones(const QString &documents)
    : _folder(documents), _file(documents + "/Phones.plist"_L1)
{
}

std::vector<RememberedPhone> RememberedPhones::all() const
{
    std::vector<RememberedPhone> phones;
    const auto contents = PropertyList::readDictionary(NSFileManager::contentsAtPath(_file).bytes);
    const QVariant *list = contents ? contents->find(key) : nullptr;
    if (!list)
        return phones;
    for (const QVariant &item : list->toList()) {
        RememberedPhone phone = phoneOf(item.toMap());
        if (!phone.name.isEmpty() && !phone.address.host.isEmpty() && phones.size() < mostPhones)
            phones.push_back(std::move(phone));
    }
    return phones;
}

std::error_code RememberedPhones::remember(const RememberedPhone &phone) const
{
    std::vector<RememberedPhone> phones = all();
    std::erase_if(phones, [&](auto &other) { return other.name == phone.name; });
    phones.insert(phones.begin(), phone);
    if (phones.size() > mostPhones)
        phones.resize(mostPhones);
    return write(phones);
}

std::error_code RememberedPhones::forget(const QString &name) const
{
    std::vector<RememberedPhone> phones = all();
    return std::erase_if(phones, [&](auto &phone) { return phone.name == name; }) > 0
               ? write(phones)
               : std::error_code();
}

std::error_code RememberedPhones::write(const std::vector<RememberedPhone> &phones) const
{
    QVariantList list;
    for (const RememberedPhone &phone : phones)
        list.append(mapOf(phone));
    PropertyDictionary contents;
    contents.setValue(key, list);
    if (const auto error = NSFileManager::createDirectoryAtPath(_folder))
        return error;
    return NSFileManager::writeToFile(_file, PropertyList::writeDictionary(contents));
}
