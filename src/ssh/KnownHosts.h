// Host keys, and what is known of them.
#pragma once

#include "ssh/SshModule.h"

#include <libssh/libssh.h>

namespace KnownHosts
{
/// The key with which the host of a connected session has proved who it is; without fingerprint
/// where there is none.
SshHostKey keyOf(ssh_session session);
/// Appends it to the user's file; false when that cannot be written.
bool remember(ssh_session session);
/// The user's file, where the environment says so; else empty, and the library's own rule holds.
QByteArray fileByEnvironment();
} // namespace KnownHosts
