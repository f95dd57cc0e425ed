// The phones to which themes were sent, remembered between runs: never a password.
#pragma once

#include "ssh/SshModule.h"

#include <system_error>
#include <vector>

struct RememberedPhone {
    QString name; // what the user calls it; tells it from the others
    SshAddress address;
    QString folder; // of themes
};

class RememberedPhones
{
public:
    explicit RememberedPhones(const QString &documents);

    /// The one used last comes first. Empty where the file cannot be read. Any thread.
    std::vector<RememberedPhone> all() const;
    /// Puts it in front, in the place of one of the same name; the oldest beyond a dozen go. The
    /// file is written whole or not at all.
    std::error_code remember(const RememberedPhone &phone) const;
    std::error_code forget(const QString &name) const;

private:
    std::error_code write(const std::vector<RememberedPhone> &phones) const;

    const QString _folder, _file;
};
