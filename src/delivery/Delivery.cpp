#include "delivery/Delivery.h"

#include "delivery/PhoneWords.h"
#include "delivery/RemoteThemes.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
using Status = DeliveryResult::Status;
constexpr int mostPasswords = 3;
constexpr qsizetype longestName = 200; // bytes: with what is put around it, still a file's name

/// Why the files cannot be sent, for people; else empty.
QString problemOfFiles(const ThemeUpload::Files &files)
{
    for (const auto &[path, bytes] : files) {
        const QStringList parts = path.split(u'/');
        if (parts.contains(QString()) || parts.contains("."_L1) || parts.contains(".."_L1) ||
            path.contains(QChar::Null))
            return u"%1 is no path in a theme"_s.arg(PhoneWords::path(path.toUtf8()));
    }
    return {};
}

class Delivering
{
public:
    Delivering(const DeliveryRequest &request, SshConnection &connection,
               const DeliveryQuestions &questions)
        : _request(request), _connection(connection), _questions(questions)
    {
    }

    DeliveryResult run()
    {
        if (const QString problem = prepare(); !problem.isEmpty())
            return {Status::Failed, sentence(problem), {}};
        const bool isReady = connect() && verify() && logIn() && openTransfer();
        if (isReady)
            transfer();
        _connection.finish();
        return _result;
    }

private:
    static QString sentence(QString clause)
    {
        if (!clause.isEmpty())
            clause[0] = clause[0].toUpper();
        // What is to be copied from its last line ends where it ends.
        return clause.endsWith(u'.') || clause.contains(u'\n') ? clause : clause + u'.';
    }

    bool isCancelled() const { return _questions.cancelled && _questions.cancelled(); }

    void tell(const QString &what, qint64 sent = 0) const
    {
        if (_questions.progress)
            _questions.progress({what, sent, _total});
    }

    bool end(Status status, const QString &problem)
    {
        _result = isCancelled() ? cancelled() : DeliveryResult{status, sentence(problem), {}};
        return false;
    }

    static DeliveryResult cancelled()
    {
        return {Status::Cancelled, u"Cancelled. The phone is as it was."_s, {}};
    }

    QString prepare()
    {
        if (const QString problem = problemOfFolderName(_request.name); !problem.isEmpty())
            return problem;
        if (_request.folder.isEmpty() || _request.folder.contains(QChar::Null))
            return u"there is no folder without a name"_s;
        if (!_request.files)
            return {};
        for (const auto &[path, bytes] : *_request.files)
            _bytes += bytes.size();
        return problemOfFiles(*_request.files);
    }

    bool connect()
    {
        tell(u"Connecting to %1 …"_s.arg(_request.phone.host));
        return _connection.connect(_request.phone, [this] { return isCancelled(); }) ||
               end(Status::Failed, _connection.problem());
    }

    bool verify()
    {
        const SshHostKey key = _connection.hostKey();
        switch (key.standing) {
        case SshHostKey::Standing::Known:
            return true;
        case SshHostKey::Standing::Changed:
            return end(Status::HostRefused, changedHost(key));
        case SshHostKey::Standing::Unknown:
            break;
        }
        if (key.fingerprint.isEmpty())
            return end(Status::Failed, _connection.problem());
        if (!_questions.acceptHost ||
            !_questions.acceptHost({_request.phone.host, key.type, key.fingerprint}))
            return end(Status::HostRefused,
                       u"%1 is not known, and its key was not accepted: %2 %3"_s.arg(
                           _request.phone.host, key.type, key.fingerprint));
        return _connection.rememberHostKey() || end(Status::Failed, _connection.problem());
    }

    QString changedHost(const SshHostKey &key) const
    {
        QString text = u"%1 shows another key than before. Either it was set up anew, or somebody "
                       u"else answers "
                       "in its place. Nothing was sent.\nIts key now: %2 %3"_s.arg(
                           _request.phone.host, key.type, key.fingerprint);
        if (!key.knownFingerprint.isEmpty())
            text += u"\nThe known one: %1"_s.arg(key.knownFingerprint);
        if (key.line > 0)
            text +=
                u"\nIf you know why it changed, remove line %1 of %2"_s.arg(key.line).arg(key.file);
        return text;
    }

    bool logIn()
    {
        tell(u"Logging in …"_s);
        const auto passphrase = [this](const QString &prompt, Secret &secret) {
            return askFor(prompt, secret);
        };
        SshLogin login = _connection.logInWithKeys(passphrase);
        for (int tries = 0;
             login == SshLogin::Denied && tries < mostPasswords && _connection.takesPassword();
             ++tries) {
            Secret password;
            if (!askFor(u"Password of %1 on %2:"_s.arg(_connection.user(), _request.phone.host),
                        password))
                break;
            login = _connection.logInWithPassword(password);
        }
        if (login == SshLogin::Denied)
            return end(Status::NotLetIn,
                       u"%1 did not let %2 in"_s.arg(_request.phone.host, _connection.user()));
        return login == SshLogin::In || end(Status::Failed, _connection.problem());
    }

    bool askFor(const QString &prompt, Secret &secret) const
    {
        auto answer =
            _questions.password && !isCancelled() ? _questions.password(prompt) : std::nullopt;
        if (answer)
            secret = std::move(*answer);
        return answer && !isCancelled();
    }

    bool openTransfer()
    {
        tell(u"Looking at the themes there …"_s);
        return _connection.openTransfer() || end(Status::Failed, _connection.problem());
    }

    void transfer()
    {
        SftpSession session(_connection, [this] { return isCancelled(); });
        RemoteThemes themes(session, _request.folder, _request.name);
        session.begin();
        const bool isDone =
            session.run() && themes.look() && (_request.files ? send(themes) : back(themes));
        // A cancel that came too late has no part in what became of it.
        using enum SftpSession::End;
        if (isDone)
            _result = done();
        else if (session.end() == Cancelled ||
                 (session.end() == Open && themes.problem().isEmpty()))
            _result = cancelled();
        else if (session.end() == Open)
            _result = {Status::Failed, sentence(themes.problem()), {}};
        else
            _result = {Status::Failed, sentence(interruption(session.end())), {}};
        tell(u"Tidying up …"_s, isDone ? _total : 0);
        themes.tidyUp();
    }

    bool send(RemoteThemes &themes)
    {
        _total = _bytes;
        const QString what = u"Sending %1 …"_s.arg(_request.name);
        tell(what);
        if (!themes.upload(*_request.files, [&](qint64 sent) { tell(what, sent); }) ||
            isCancelled())
            return false;
        _isReplacing = true;
        tell(u"Putting it in its place …"_s, _bytes);
        return themes.exchange();
    }

    bool back(RemoteThemes &themes)
    {
        _isReplacing = true;
        tell(u"Putting the old theme back …"_s);
        return themes.putBack();
    }

    QString interruption(SftpSession::End end) const
    {
        const QString state =
            _isReplacing ? u"The phone holds the old theme or the new one, whole; send again to be "
                           "sure"_s
                         : u"The phone still holds the old theme"_s;
        switch (end) {
        case SftpSession::End::Silent:
            return u"the phone does not answer any more. %1"_s.arg(state);
        case SftpSession::End::Garbled:
            return u"the phone answers in a way that makes no sense. %1"_s.arg(state);
        default:
            return u"the connection was lost. %1"_s.arg(state);
        }
    }

    DeliveryResult done() const
    {
        const QString what =
            _request.files
                ? u"%1 is on the phone, in %2."_s.arg(_request.name, _request.folder)
                : u"The earlier %1 is in its place again on the phone."_s.arg(_request.name);
        return {Status::Done, what,
                u"In biteSMS, open the themes, choose \"%1\" and then \"Apply Theme\"."_s.arg(
                    _request.name)};
    }

    const DeliveryRequest &_request;
    SshConnection &_connection;
    const DeliveryQuestions &_questions;
    qint64 _bytes = 0, _total = 0;
    bool _isReplacing = false;
    DeliveryResult _result;
};
} // namespace

QString problemOfFolderName(const QString &name)
{
    if (name.isEmpty())
        return u"a theme needs a name"_s;
    if (name.startsWith(u'.') || name.contains(u'/') ||
        std::ranges::any_of(name, [](QChar c) { return c.category() == QChar::Other_Control; }))
        return u"%1 cannot be the name of a theme"_s.arg(PhoneWords::path(name.toUtf8()));
    if (name.toUtf8().size() > longestName)
        return u"the theme's name is too long"_s;
    return {};
}

DeliveryResult deliver(const DeliveryRequest &request, SshConnection &connection,
                       const DeliveryQuestions &questions)
{
    return Delivering(request, connection, questions).run();
}
