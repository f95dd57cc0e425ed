// A connection by libssh.
//
// The library is never left to wait by itself: it runs without blocking, and each wait is cut into
// moments between which a cancel is noticed.
#pragma once

#include "ssh/SshModule.h"

#include <libssh/callbacks.h>
#include <libssh/libssh.h>

class LibSshConnection : public SshConnection
{
public:
    LibSshConnection();
    ~LibSshConnection() override;
    LibSshConnection(const LibSshConnection &) = delete;
    LibSshConnection &operator=(const LibSshConnection &) = delete;

    bool connect(const SshAddress &address, const Cancelled &cancelled) override;
    SshHostKey hostKey() override;
    bool rememberHostKey() override;
    SshLogin logInWithKeys(const AskPassphrase &ask) override;
    bool takesPassword() override;
    SshLogin logInWithPassword(const Secret &password) override;
    QString user() override;
    bool openTransfer() override;
    qint64 send(const char *bytes, qint64 count) override;
    qint64 receive(char *bytes, qint64 most, int milliseconds) override;
    void finish() override;
    QString problem() const override { return _problem; }

private:
    bool setUp(const SshAddress &address);
    /// Waits for the host's address, which the library would do without hearing a cancel.
    bool findHost();
    /// Calls until the answer is another than "again"; "again" after a cancel or a long silence.
    int repeat(int again, const std::function<int()> &call);
    /// At most that long, until something comes or can be sent.
    void wait(int milliseconds) const;
    SshLogin loggedIn(int answer);
    int answerPrompts(const Secret &password);
    bool fail(const QString &problem);
    bool failByLibrary(const QString &what);
    static int askForPassphrase(const char *prompt, char *buffer, size_t size, int, int,
                                void *connection);

    ssh_session _session = nullptr;
    ssh_channel _channel = nullptr;
    ssh_callbacks_struct _callbacks = {};
    QString _host;
    Cancelled _cancelled;
    AskPassphrase _ask; // only while keys are tried
    QString _problem;
};
