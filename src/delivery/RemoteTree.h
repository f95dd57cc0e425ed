// What is in a folder on the phone, at every depth.
#pragma once

#include "delivery/SftpSession.h"

class RemoteTree
{
public:
    /// Starts looking; the session's run ends it. Links are not followed. What lies beyond bounds
    /// that no theme comes near is left out. Keep this until then.
    void look(SftpSession &session, const QByteArray &path);

    /// Starts removing it all from a folder, which may have another name by now, and then the
    /// folder itself.
    void remove(SftpSession &session, const QByteArray &path) const;

private:
    void lookInto(SftpSession &session, const QByteArray &root, const QByteArray &folder,
                  int level);
    void read(SftpSession &session, const QByteArray &root, const QByteArray &folder, int level,
              const QByteArray &handle);

    QByteArrayList _files, _folders; // relative to the root; a folder before what is in it
};

namespace RemoteFolder
{
using Each = std::function<void(const SftpReply::Name &)>;
/// Starts reading an opened folder to its end and then closes it. Two requests are always under
/// way, as the second of most folders only says that this was all. Names that could not be a file's
/// are left out, and so are "." and "..".
void read(SftpSession &session, const QByteArray &handle, const Each &each);
} // namespace RemoteFolder
