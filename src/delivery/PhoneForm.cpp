#include "delivery/PhoneForm.h"

#include "delivery/PhoneAddress.h"
#include "theme/ThemeLocations.h"

using namespace Qt::StringLiterals;

PhoneForm PhoneForm::of(const RememberedPhone &phone)
{
    const SshAddress &address = phone.address;
    return {phone.name, address.host, address.port > 0 ? QString::number(address.port) : QString(),
            address.user, phone.folder};
}

PhoneForm::Reading PhoneForm::read() const
{
    if (host.trimmed().isEmpty())
        return {{}, u"Type the phone's address, such as 192.168.1.20."_s};
    auto address = PhoneAddress::parse(host.trimmed());
    if (!address)
        return {{}, u"\"%1\" is no address of a phone."_s.arg(host.trimmed())};
    if (const QString typed = port.trimmed(); !typed.isEmpty()) {
        bool isNumber = false;
        address->port = typed.toInt(&isNumber);
        if (!isNumber || address->port < 1 || address->port > 65535)
            return {{}, u"A port is a number from 1 to 65535."_s};
    }
    if (const QString typed = user.trimmed(); !typed.isEmpty()) {
        address->user = typed;
        const auto whole = PhoneAddress::parse(PhoneAddress::text(*address));
        if (!whole || whole->user != typed)
            return {{}, u"\"%1\" is no user's name."_s.arg(typed)};
    }
    const QString called = name.trimmed(), themes = folder.trimmed();
    return {RememberedPhone{called.isEmpty() ? PhoneAddress::text(*address) : called, *address,
                            themes.isEmpty() ? ThemeLocations::phonePackageRoot() : themes},
            {}};
}
