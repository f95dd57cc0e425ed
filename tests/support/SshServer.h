// A real SSH server of a test's own, on this machine alone: keys, configuration and folders are in
// a temporary folder, and so is the home of who connects to it. Nothing of the system's is read or
// changed. It runs as the user of the test, or as "nobody" where that is the administrator.
#pragma once

#include "support/Files.h"

#include <QProcess>
#include <QTemporaryDir>

#include <arpa/inet.h>
#include <optional>
#include <pwd.h>
#include <unistd.h>

/// Sets an environment variable, or takes it away, until the end.
class Variable
{
public:
    Variable(const char *name, const std::optional<QByteArray> &value)
        : _name(name),
          _before(qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt)
    {
        set(value);
    }
    ~Variable() { set(_before); }
    Variable(const Variable &) = delete;
    Variable &operator=(const Variable &) = delete;

private:
    void set(const std::optional<QByteArray> &value)
    {
        if (value)
            qputenv(_name, *value);
        else
            qunsetenv(_name);
    }

    const char *const _name;
    const std::optional<QByteArray> _before;
};

/// A port of 127.0.0.1 that nobody listens at.
inline int freePort()
{
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
    socklen_t size = sizeof address;
    auto *const general = reinterpret_cast<sockaddr *>(&address);
    const bool isBound =
        ::bind(socket, general, size) == 0 && ::getsockname(socket, general, &size) == 0;
    ::close(socket);
    return isBound ? ntohs(address.sin_port) : 0;
}

class SshServer
{
public:
    static constexpr uid_t nobody = 65534;

    /// More lines of its configuration, and what it is started by.
    explicit SshServer(const QByteArray &configuration = {}, const QStringList &starter = {})
        : _home("HOME", home().toUtf8()), _agent("SSH_AUTH_SOCK", std::nullopt)
    {
        QDir().mkpath(themes());
        QDir().mkpath(home() + "/.ssh");
        for (const QString &key : {hostKey(), userKey()}) {
            if (QProcess::execute("ssh-keygen", {"-q", "-t", "ed25519", "-N", "", "-f", key}) != 0)
                _problem = "there is no ssh-keygen";
        }
        QFile::copy(userKey() + ".pub", path("authorized"));
        openToServer();
        for (int attempt = 0; attempt < 5 && _problem.isEmpty() && !isRunning(); ++attempt)
            start(configuration, starter);
        if (_problem.isEmpty() && !isRunning())
            _problem = "no server can be started: " + _said;
    }
    ~SshServer()
    {
        _server.terminate();
        _server.waitForFinished();
    }
    SshServer(const SshServer &) = delete;
    SshServer &operator=(const SshServer &) = delete;

    bool isRunning() const { return _port > 0; }
    QString problem() const { return QString::fromUtf8(_problem); }
    int port() const { return _port; }
    QString themes() const { return path("themes"); }
    QString home() const { return path("home"); }
    QString userKey() const { return home() + "/.ssh/id_ed25519"; }
    QString hostKey() const { return path("host_key"); }
    QString knownHosts() const { return home() + "/.ssh/known_hosts"; }
    QString configuration() const { return home() + "/.ssh/config"; }
    static QString user()
    {
        return QString::fromLocal8Bit(::getpwuid(::geteuid() == 0 ? nobody : ::geteuid())->pw_name);
    }
    /// Lets the server's user have what the test has made.
    void giveToServer(const QString &file) const
    {
        if (::geteuid() == 0) {
            ASSERT_EQ(::lchown(QFile::encodeName(file), nobody, nobody), 0);
        }
    }

    void trust() const
    {
        put(knownHosts(),
            QString("[127.0.0.1]:%1 ").arg(_port).toUtf8() + contents(hostKey() + ".pub"));
    }

private:
    QString path(const QString &name) const { return _folder.filePath(name); }

    void openToServer() const
    {
        QFile::setPermissions(_folder.path(), QFile::Permissions(0x7755));
        for (const char *name : {"themes", "host_key", "authorized"})
            giveToServer(path(name));
    }

    void start(const QByteArray &configuration, const QStringList &starter)
    {
        const int port = freePort();
        const QByteArray folder = QFile::encodeName(_folder.path());
        // Without PAM it takes the accounts for locked whose passwords it may not read.
        put(path("configuration"),
            configuration + "\nListenAddress 127.0.0.1\nPort " + QByteArray::number(port) +
                "\nHostKey " + folder + "/host_key\nAuthorizedKeysFile " + folder +
                "/authorized\nStrictModes no\nUsePAM yes\nPidFile none\nMaxStartups 100\n"
                "PasswordAuthentication no\nKbdInteractiveAuthentication no\n"
                "Subsystem sftp internal-sftp\n");
        NSFileManager::setPosixPermissions(path("configuration"), 0644);
        QStringList command = starter;
        if (::geteuid() == 0)
            command +=
                {"setpriv", "--pdeathsig=TERM", "--reuid=65534", "--regid=65534", "--clear-groups"};
        command += {"/usr/sbin/sshd", "-D", "-e", "-f", path("configuration")};
        _server.setProcessChannelMode(QProcess::MergedChannels);
        _server.start(command.takeFirst(), command);
        _said.clear();
        while (!_said.contains("listening") && _server.waitForReadyRead(60'000))
            _said += _server.readAll();
        if (_said.contains("listening"))
            _port = port;
        else
            _server.waitForFinished();
    }

    const QTemporaryDir _folder;
    const Variable _home, _agent;
    QProcess _server;
    QByteArray _said, _problem;
    int _port = 0;
};
