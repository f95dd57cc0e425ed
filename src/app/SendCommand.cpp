#include "app/SendCommand.h"

#include "app/ExitStatus.h"
#include "app/PackageSubject.h"
#include "app/StandardStreams.h"
#include "app/TerminalQuestions.h"
#include "delivery/Delivery.h"
#include "delivery/PhoneAddress.h"
#include "delivery/RememberedPhones.h"
#include "delivery/SshModules.h"
#include "library/PackageFiles.h"
#include "platform/foundation/NSFileManager.h"

#include <QFileInfo>

#include <csignal>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
volatile std::sig_atomic_t interrupted = 0;

/// The first interrupt lets the phone be tidied up; the next one ends the program as ever.
void cancelOnInterrupt()
{
    struct sigaction action = {};
    action.sa_handler = [](int) { interrupted = 1; };
    action.sa_flags = int(SA_RESETHAND);
    ::sigaction(SIGINT, &action, nullptr);
}

class ShownProgress
{
public:
    void show(const DeliveryProgress &progress)
    {
        const QString percent =
            progress.total > 0 ? u" %1 %"_s.arg(progress.sent * 100 / progress.total) : QString();
        if (_isTerminal && progress.what + percent != _shown)
            write("\r\x1b[K" + (progress.what + percent).toUtf8());
        else if (!_isTerminal && progress.what != _what)
            write(progress.what.toUtf8() + '\n');
        _shown = progress.what + percent;
        _what = progress.what;
    }
    /// Before anything else is written.
    void clear()
    {
        if (_isTerminal && !_shown.isEmpty())
            write("\r\x1b[K");
        _shown.clear();
    }

private:
    static void write(const QByteArray &text)
    {
        std::fputs(text.constData(), stdout);
        std::fflush(stdout);
    }

    const bool _isTerminal = ::isatty(STDOUT_FILENO);
    QString _shown, _what;
};

QString nameOf(const CommandLine::Options &options)
{
    if (options.name)
        return *options.name;
    return options.theme.isEmpty() ? u"Tintloom"_s : QFileInfo(options.theme).fileName();
}

/// Nothing, with the exit status, told why.
std::optional<std::map<QString, QByteArray>> filesToSend(const CommandLine::Options &options,
                                                         int &status)
{
    PackageSubject subject = packageSubject(options);
    status = subject.status;
    if (!subject.contents)
        return std::nullopt;
    return filesForPhone(std::move(*subject.contents), nameOf(options));
}

bool accepts(const UnknownHost &host, const QString &accepted)
{
    if (!accepted.isEmpty())
        return host.fingerprint == accepted;
    return TerminalQuestions::canAsk() &&
           TerminalQuestions::confirm(u"%1 is not known yet. Its %2 key has the fingerprint\n%3\n"
                                      "Is it the right one, to be remembered (yes/no)? "_s.arg(
                                          host.host, host.keyType, host.fingerprint));
}

DeliveryResult send(const DeliveryRequest &request, const CommandLine::Options &options,
                    SshConnection &connection)
{
    ShownProgress shown;
    DeliveryQuestions questions;
    questions.progress = [&](const DeliveryProgress &progress) { shown.show(progress); };
    questions.cancelled = [] { return interrupted != 0; };
    questions.acceptHost = [&](const UnknownHost &host) {
        shown.clear();
        return accepts(host, options.acceptHost);
    };
    questions.password = [&](const QString &prompt) {
        shown.clear();
        return TerminalQuestions::password(prompt);
    };
    cancelOnInterrupt();
    DeliveryResult result = deliver(request, connection, questions);
    shown.clear();
    return result;
}

void remember(const CommandLine::Options &options)
{
    const RememberedPhones phones(options.documents);
    if (const auto error =
            phones.remember({PhoneAddress::text(options.phone), options.phone, options.folder}))
        complain(u"cannot remember the phone: %1"_s.arg(
            NSFileManager::withReason(options.documents, error)));
}
} // namespace

int runSend(const CommandLine::Options &options)
{
    DeliveryRequest request{options.phone, options.folder, nameOf(options), {}};
    if (const QString problem = problemOfFolderName(request.name); !problem.isEmpty()) {
        complain(problem);
        return ExitStatus::wrongUsage;
    }
    int status = 0;
    if (!options.back && !(request.files = filesToSend(options, status)))
        return status;
    const SshModules::Loading ssh = SshModules::load();
    if (!ssh.module) {
        complain(ssh.problem);
        return ExitStatus::failed;
    }
    const auto connection = ssh.module->connection();
    const DeliveryResult result = send(request, options, *connection);
    switch (result.status) {
    case DeliveryResult::Status::Done:
        remember(options);
        return print((result.text + u'\n' + result.next + u'\n').toUtf8());
    case DeliveryResult::Status::HostRefused:
        complain(result.text);
        return ExitStatus::hostRefused;
    case DeliveryResult::Status::NotLetIn:
        complain(result.text);
        return ExitStatus::notLetIn;
    default:
        complain(result.text);
        return ExitStatus::failed;
    }
}
