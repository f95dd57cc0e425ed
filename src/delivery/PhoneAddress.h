// Which phone is meant, as people write it.
#pragma once

#include "ssh/SshModule.h"

#include <optional>

namespace PhoneAddress
{
/// [USER@]HOST[:PORT]; an IPv6 address stands in brackets where a port follows. Nothing when it is
/// none of these.
std::optional<SshAddress> parse(const QString &text);
/// The same back, for people.
QString text(const SshAddress &address);
} // namespace PhoneAddress
