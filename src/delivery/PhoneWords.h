// What people are told about files on the phone.
#pragma once

#include "delivery/SftpSession.h"

namespace PhoneWords
{
/// A path of the phone in quotes; what somebody else named must not steer a terminal.
QString path(const QByteArray &path);
/// Why it could not be done: the phone tells little.
QString reason(const SftpReply &reply);
QString cannotWrite(const QByteArray &path, const SftpReply &reply);
} // namespace PhoneWords
