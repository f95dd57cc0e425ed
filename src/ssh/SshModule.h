// What needs the SSH library, behind one plain interface.
//
// Linking that library would cost every start of the program time, and few starts need it. So this
// is a module of its own, which delivery/SshModules.h loads when it is first used. It brings bytes
// to a file server on another machine and knows nothing of what they mean.
//
// A connection goes through its functions in the order in which they stand here. It belongs to one
// thread at a time. Texts are clauses for people; none ever holds a password.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

class Secret;

struct SshAddress {
    QString host; // or an alias of the user's configuration
    int port = 0; // 0: the configuration's, else 22
    QString user; // empty: the configuration's, else the local one's name
};

struct SshHostKey {
    enum class Standing { Known, Unknown, Changed };
    Standing standing = Standing::Unknown;
    QString type;        // as in "ssh-ed25519"
    QString fingerprint; // "SHA256:" and base64
    // Of a changed one: what is known instead, and where it stands, lines counted from 1. Empty and
    // 0 where it cannot be told.
    QString knownFingerprint;
    QString file;
    int line = 0;
};

enum class SshLogin { In, Denied, Failed };

class SshConnection
{
public:
    /// Asked about twenty times a second while something is waited for.
    using Cancelled = std::function<bool()>;
    /// Fills in the passphrase of a key; false when nobody knows it.
    using AskPassphrase = std::function<bool(const QString &prompt, Secret &passphrase)>;

    virtual ~SshConnection() = default;

    /// Reads the user's configuration, connects and agrees on the algorithms. False: see problem().
    virtual bool connect(const SshAddress &address, const Cancelled &cancelled) = 0;
    virtual SshHostKey hostKey() = 0;
    /// Adds the host's key to the user's known ones.
    virtual bool rememberHostKey() = 0;

    /// The agent's keys, then those in files.
    virtual SshLogin logInWithKeys(const AskPassphrase &ask) = 0;
    virtual bool takesPassword() = 0;
    virtual SshLogin logInWithPassword(const Secret &password) = 0;
    /// The name on the other machine.
    virtual QString user() = 0;

    /// Starts the file server there.
    virtual bool openTransfer() = 0;
    /// Hands bytes over to be sent; how many were taken, 0 when there is no room now, -1 when the
    /// connection is lost.
    virtual qint64 send(const char *bytes, qint64 count) = 0;
    /// How many bytes came, 0 when none within that time, -1 when the connection is lost. Sends
    /// meanwhile what was handed over.
    virtual qint64 receive(char *bytes, qint64 most, int milliseconds) = 0;

    virtual void finish() = 0;

    /// Why the last of the above failed; empty when it was cancelled.
    virtual QString problem() const = 0;
};

class SshModule
{
public:
    virtual ~SshModule() = default;
    virtual std::unique_ptr<SshConnection> connection() const = 0;
};

/// The module's only symbol; the number goes up with every change of the above.
using SshModuleEntry = const SshModule *();
constexpr const char *sshModuleEntry = "tintloomSsh1";
