#include "ssh/LibSshConnection.h"

#include "ssh/Algorithms.h"
#include "ssh/KnownHosts.h"
#include "ssh/Secret.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <future>
#include <netdb.h>
#include <poll.h>
#include <string>
#include <thread>

using namespace Qt::StringLiterals;

namespace
{
constexpr int moment = 50;       // milliseconds after which a cancel is noticed
constexpr int patience = 30'000; // milliseconds without an answer

/// What the other side said must not steer a terminal.
QString harmless(const char *text)
{
    QString shown = QString::fromLocal8Bit(text).left(2000);
    std::ranges::replace_if(
        shown, [](QChar c) { return !c.isPrint() && !c.isSurrogate(); }, u'?');
    return shown;
}
} // namespace

LibSshConnection::LibSshConnection() : _session(ssh_new())
{
    _callbacks.userdata = this;
    _callbacks.auth_function = askForPassphrase;
    ssh_callbacks_init(&_callbacks);
}

LibSshConnection::~LibSshConnection()
{
    finish();
}

bool LibSshConnection::setUp(const SshAddress &address)
{
    if (!_session)
        return false;
    const int noDelay = 1, quiet = SSH_LOG_NOLOG, no = 0;
    const QByteArray host = QFile::encodeName(address.host);
    const QByteArray user = address.user.toUtf8();
    const QByteArray home = qgetenv("HOME");
    const auto set = [this](ssh_options_e option, const void *value) {
        return ssh_options_set(_session, option, value) == SSH_OK;
    };
    if (!set(SSH_OPTIONS_HOST, host.constData()) || !set(SSH_OPTIONS_NODELAY, &noDelay) ||
        !set(SSH_OPTIONS_LOG_VERBOSITY, &quiet))
        return false;
    // The library would ask the user database for the home folder.
    if (!home.isEmpty() &&
        (!set(SSH_OPTIONS_SSH_DIR, QByteArray(home + "/.ssh").constData()) ||
         !set(SSH_OPTIONS_KNOWNHOSTS, KnownHosts::fileByEnvironment().constData())))
        return false;
    if (ssh_options_parse_config(_session, nullptr) != SSH_OK)
        return false;
    // What was said outright goes before the configuration.
    return set(SSH_OPTIONS_PROCESS_CONFIG, &no) &&
           (address.port == 0 || set(SSH_OPTIONS_PORT, &address.port)) &&
           (user.isEmpty() || set(SSH_OPTIONS_USER, user.constData())) &&
           ssh_set_callbacks(_session, &_callbacks) == SSH_OK;
}

bool LibSshConnection::connect(const SshAddress &address, const Cancelled &cancelled)
{
    _host = address.host;
    _cancelled = cancelled;
    if (!setUp(address))
        return failByLibrary(u"cannot set up the connection"_s);
    if (!findHost())
        return false;
    ssh_set_blocking(_session, 0);
    const int answer = repeat(SSH_AGAIN, [this] { return ssh_connect(_session); });
    if (answer == SSH_OK)
        return true;
    if (answer == SSH_AGAIN)
        return fail(u"%1 does not answer"_s.arg(_host));
    const QString algorithms = explainAlgorithms(harmless(ssh_get_error(_session)), _host);
    return algorithms.isEmpty() ? failByLibrary(u"cannot connect to %1"_s.arg(_host))
                                : fail(algorithms);
}

/// The library will look the host up once more, and then somebody near knows the answer.
bool LibSshConnection::findHost()
{
    char *text = nullptr;
    const bool isByProxy = ssh_options_get(_session, SSH_OPTIONS_PROXYCOMMAND, &text) == SSH_OK;
    ssh_string_free_char(text);
    if (isByProxy)
        return true;
    if (ssh_options_get(_session, SSH_OPTIONS_HOST, &text) != SSH_OK)
        return failByLibrary(u"cannot set up the connection"_s);
    const std::string host = text;
    ssh_string_free_char(text);
    // Nothing can interrupt it: after a cancel it goes on alone, and nobody waits.
    std::packaged_task<int()> task([host] {
        addrinfo *addresses = nullptr;
        const int answer = ::getaddrinfo(host.c_str(), nullptr, nullptr, &addresses);
        if (answer == 0)
            ::freeaddrinfo(addresses);
        return answer;
    });
    std::future<int> finding = task.get_future();
    std::thread(std::move(task)).detach();
    while (finding.wait_for(std::chrono::milliseconds(moment)) != std::future_status::ready)
        if (_cancelled && _cancelled())
            return fail({});
    const int answer = finding.get();
    return answer == 0 ||
           fail(u"cannot find %1: %2"_s.arg(_host, QString::fromLocal8Bit(::gai_strerror(answer))));
}

int LibSshConnection::repeat(int again, const std::function<int()> &call)
{
    QElapsedTimer waiting;
    waiting.start();
    int answer = call();
    while (answer == again && waiting.elapsed() < patience && !(_cancelled && _cancelled())) {
        wait(moment);
        answer = call();
    }
    return answer;
}

void LibSshConnection::wait(int milliseconds) const
{
    const int flags = ssh_get_poll_flags(_session);
    pollfd file{ssh_get_fd(_session), POLLIN, 0};
    if (flags & SSH_WRITE_PENDING || !ssh_is_connected(_session))
        file.events |= POLLOUT;
    ::poll(&file, 1, milliseconds);
}

SshHostKey LibSshConnection::hostKey()
{
    const SshHostKey key = KnownHosts::keyOf(_session);
    if (key.fingerprint.isEmpty())
        failByLibrary(u"cannot tell whether %1 is known"_s.arg(_host));
    return key;
}

bool LibSshConnection::rememberHostKey()
{
    return KnownHosts::remember(_session) ||
           failByLibrary(u"cannot remember the key of %1"_s.arg(_host));
}

int LibSshConnection::askForPassphrase(const char *, char *buffer, size_t size, int, int,
                                       void *connection)
{
    const auto *self = static_cast<LibSshConnection *>(connection);
    Secret passphrase;
    if (!self->_ask ||
        !self->_ask(u"Passphrase of your key for %1:"_s.arg(self->_host), passphrase) ||
        passphrase.size() >= size)
        return -1;
    std::copy_n(passphrase.text(), passphrase.size() + 1, buffer);
    return 0;
}

SshLogin LibSshConnection::logInWithKeys(const AskPassphrase &ask)
{
    _ask = ask;
    int answer = repeat(SSH_AUTH_AGAIN,
                        [this] { return ssh_userauth_publickey_auto(_session, nullptr, nullptr); });
    _ask = nullptr;
    // Where there was no key to try, nobody has said yet what is asked for.
    if (answer == SSH_AUTH_DENIED && ssh_userauth_list(_session, nullptr) == 0)
        answer = repeat(SSH_AUTH_AGAIN, [this] { return ssh_userauth_none(_session, nullptr); });
    return loggedIn(answer);
}

bool LibSshConnection::takesPassword()
{
    return ssh_userauth_list(_session, nullptr) &
           (SSH_AUTH_METHOD_PASSWORD | SSH_AUTH_METHOD_INTERACTIVE);
}

SshLogin LibSshConnection::logInWithPassword(const Secret &password)
{
    if (ssh_userauth_list(_session, nullptr) & SSH_AUTH_METHOD_PASSWORD)
        return loggedIn(repeat(SSH_AUTH_AGAIN, [&] {
            return ssh_userauth_password(_session, nullptr, password.text());
        }));
    return loggedIn(answerPrompts(password));
}

/// The other way to be asked for a password: as a question among others.
int LibSshConnection::answerPrompts(const Secret &password)
{
    constexpr int mostRounds = 10;
    const auto ask = [this] { return ssh_userauth_kbdint(_session, nullptr, nullptr); };
    int answer = repeat(SSH_AUTH_AGAIN, ask);
    for (int round = 0; answer == SSH_AUTH_INFO && round < mostRounds; ++round) {
        for (int prompt = 0; prompt < ssh_userauth_kbdint_getnprompts(_session); ++prompt) {
            char isShown = 0;
            ssh_userauth_kbdint_getprompt(_session, unsigned(prompt), &isShown);
            if (ssh_userauth_kbdint_setanswer(_session, unsigned(prompt),
                                              isShown ? "" : password.text()) < 0)
                return SSH_AUTH_ERROR;
        }
        answer = repeat(SSH_AUTH_AGAIN, ask);
    }
    return answer;
}

SshLogin LibSshConnection::loggedIn(int answer)
{
    switch (answer) {
    case SSH_AUTH_SUCCESS:
        return SshLogin::In;
    case SSH_AUTH_DENIED:
    case SSH_AUTH_PARTIAL:
        return SshLogin::Denied;
    case SSH_AUTH_AGAIN:
        fail(u"%1 does not answer"_s.arg(_host));
        return SshLogin::Failed;
    default:
        // A server that has seen enough tries hangs up.
        failByLibrary(u"%1 did not let %2 in"_s.arg(_host, user()));
        return SshLogin::Failed;
    }
}

QString LibSshConnection::user()
{
    char *user = nullptr;
    if (ssh_options_get(_session, SSH_OPTIONS_USER, &user) != SSH_OK)
        return {};
    const QString name = QString::fromUtf8(user);
    ssh_string_free_char(user);
    return name;
}

bool LibSshConnection::openTransfer()
{
    _channel = ssh_channel_new(_session);
    if (!_channel ||
        repeat(SSH_AGAIN, [this] { return ssh_channel_open_session(_channel); }) != SSH_OK)
        return failByLibrary(u"%1 opens no channel"_s.arg(_host));
    if (repeat(SSH_AGAIN, [this] { return ssh_channel_request_sftp(_channel); }) != SSH_OK)
        return fail(u"%1 has no file server (SFTP); install one there"_s.arg(_host));
    ssh_channel_set_blocking(_channel, 0);
    return true;
}

qint64 LibSshConnection::send(const char *bytes, qint64 count)
{
    constexpr qint64 most = 1 << 18;
    if (!_channel || ssh_channel_is_closed(_channel))
        return -1;
    const int taken = ssh_channel_write(_channel, bytes, uint32_t(std::min(count, most)));
    return taken == SSH_AGAIN ? 0 : taken < 0 ? -1 : taken;
}

qint64 LibSshConnection::receive(char *bytes, qint64 most, int milliseconds)
{
    const auto read = [&]() -> qint64 {
        const int count = ssh_channel_read_nonblocking(_channel, bytes, uint32_t(most), 0);
        return count == SSH_AGAIN ? 0 : count < 0 ? -1 : count;
    };
    if (!_channel)
        return -1;
    qint64 count = read();
    if (count == 0 && !ssh_channel_is_eof(_channel) && !ssh_channel_is_closed(_channel)) {
        wait(milliseconds);
        count = read();
    }
    const bool isLost = ssh_channel_is_eof(_channel) || ssh_channel_is_closed(_channel) ||
                        !ssh_is_connected(_session);
    return count == 0 && isLost ? -1 : count;
}

void LibSshConnection::finish()
{
    if (_session) {
        ssh_disconnect(_session);
        ssh_free(_session); // and its channels
    }
    _session = nullptr;
    _channel = nullptr;
}

bool LibSshConnection::fail(const QString &problem)
{
    _problem = _cancelled && _cancelled() ? QString() : problem;
    return false;
}

bool LibSshConnection::failByLibrary(const QString &what)
{
    const QString why = _session ? harmless(ssh_get_error(_session)) : QString();
    return fail(why.isEmpty() ? what : what + u": "_s + why);
}
