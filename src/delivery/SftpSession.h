// The client's side of the file transfer protocol, version 3 (draft-ietf-secsh-filexfer-02).
//
// A packet is its length and its kind, then for a request a number that the reply bears again, then
// fields: numbers with the highest byte first, strings after their length. Requests do not wait for
// one another: whatever does not depend on a reply is under way at the same time, and what does is
// asked for in that reply's function. The server may answer in any order.
//
// What the server says is not trusted: a reply that is no reply to anything, or that is cut short,
// ends the session.
#pragma once

#include "ssh/SshModule.h"

#include <QByteArrayList>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <vector>

struct SftpAttributes {
    std::optional<quint64> size; // bytes
    std::optional<quint32> owner;
    std::optional<quint32> mode; // kind and permissions

    enum class Kind { Unknown, File, Folder, Link, Other };
    Kind kind() const;
};

struct SftpReply {
    enum Status : quint32 { Ok = 0, EndOfFile = 1, NoSuchFile = 2, PermissionDenied = 3 };
    struct Name {
        QByteArray name;
        SftpAttributes attributes;
    };

    quint32 status = Ok; // any other number is a failure without more to tell
    QByteArray handle;
    SftpAttributes attributes;
    std::vector<Name> names;

    bool isOk() const { return status == Ok; }
};

class SftpSession
{
public:
    /// Called with the reply to a request; not at all when the session ends before it.
    using Then = std::function<void(const SftpReply &)>;
    enum class End { Open, Cancelled, Lost, Silent, Garbled };

    SftpSession(SshConnection &connection, SshConnection::Cancelled cancelled);

    void begin();
    void lstat(const QByteArray &path, Then then);
    void makeFolder(const QByteArray &path, Then then);
    /// Makes a file to write into; fails when something is there.
    void makeFile(const QByteArray &path, Then then);
    /// At most 32768 bytes.
    void write(const QByteArray &handle, quint64 offset, QByteArrayView bytes, Then then);
    void attributesOf(const QByteArray &handle, Then then);
    void setMode(const QByteArray &path, quint32 mode, Then then);
    void setModeOf(const QByteArray &handle, quint32 mode, Then then);
    void close(const QByteArray &handle, Then then);
    void openFolder(const QByteArray &path, Then then);
    void readFolder(const QByteArray &handle, Then then);
    void rename(const QByteArray &from, const QByteArray &to, Then then);
    void removeFile(const QByteArray &path, Then then);
    void removeFolder(const QByteArray &path, Then then);

    /// Sends what was asked for and runs the functions of the replies, until all have come. What
    /// was asked for together goes out together, as far as it fits into one packet of the
    /// connection. False once the session has ended.
    bool run();
    End end() const { return _end; }
    /// The same for what must not be left half done: no cancel ends it, a silence of five seconds
    /// does.
    bool runToTheEnd();
    /// Makes a cancelled session one that can tidy up; nobody hears of what was asked for before.
    void resume();

private:
    class Packet;

    void ask(const Packet &request, Then then);
    bool sendSome();
    bool receiveSome();
    bool take(QByteArrayView packet);
    bool stop(End end);

    SshConnection &_connection;
    SshConnection::Cancelled _cancelled;
    int _patience; // milliseconds without a word from the server
    End _end = End::Open;
    quint32 _lastId = 0;
    std::map<quint32, Then> _open;
    QByteArray _out, _in;
    qsizetype _sent = 0; // bytes of _out
    quint64 _moved = 0;  // bytes in both directions
};
