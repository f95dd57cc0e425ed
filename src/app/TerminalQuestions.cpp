#include "app/TerminalQuestions.h"

#include <cstdio>
#include <spawn.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace
{
void say(const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stderr);
    std::fflush(stderr);
}

/// Neither shows what is typed nor lets a key end the program: a terminal that stays like this
/// would be of no use. So the keys that edit and end are our own.
class Silence
{
public:
    Silence()
    {
        _isOn = ::tcgetattr(STDIN_FILENO, &_before) == 0;
        termios quiet = _before;
        quiet.c_lflag &= ~tcflag_t(ECHO | ICANON | ISIG);
        _isOn = _isOn && ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet) == 0;
    }
    ~Silence()
    {
        if (_isOn)
            ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &_before);
    }
    Silence(const Silence &) = delete;
    Silence &operator=(const Silence &) = delete;
    bool isOn() const { return _isOn; }

private:
    termios _before = {};
    bool _isOn = false;
};

std::optional<Secret> typed()
{
    constexpr char controlC = 3, controlD = 4, controlH = 8, controlU = 21, deletion = 127;
    const Silence silence;
    if (!silence.isOn())
        return std::nullopt;
    Secret secret;
    char c = 0;
    while (::read(STDIN_FILENO, &c, 1) == 1 && c != controlC && c != controlD) {
        if (c == '\n' || c == '\r')
            return secret;
        if (c == controlU)
            secret.wipe();
        else if (c == controlH || c == deletion)
            secret.removeLast();
        else
            secret.append(c);
    }
    return std::nullopt;
}

std::optional<Secret> firstLine(int file)
{
    Secret secret;
    char c = 0;
    bool isThrough = false;
    while (::read(file, &c, 1) == 1) {
        isThrough = isThrough || c == '\n' || c == '\r';
        if (!isThrough)
            secret.append(c);
    }
    return secret;
}

std::optional<Secret> fromProgram(const QByteArray &program, const QByteArray &prompt)
{
    int ends[2];
    if (::pipe(ends) != 0)
        return std::nullopt;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    posix_spawn_file_actions_addclose(&actions, ends[1]);
    QByteArray name = program, argument = prompt;
    char *const arguments[] = {name.data(), argument.data(), nullptr};
    pid_t child = 0;
    const bool isStarted =
        ::posix_spawnp(&child, name.constData(), &actions, nullptr, arguments, environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    auto secret = firstLine(ends[0]);
    ::close(ends[0]);
    int status = 0;
    if (!isStarted || ::waitpid(child, &status, 0) != child || status != 0)
        return std::nullopt;
    return secret;
}
} // namespace

bool TerminalQuestions::canAsk()
{
    return ::isatty(STDIN_FILENO) && ::isatty(STDERR_FILENO);
}

bool TerminalQuestions::confirm(const QString &question)
{
    say(question);
    char answer[16] = {};
    return std::fgets(answer, sizeof answer, stdin) && QByteArray(answer).trimmed() == "yes";
}

std::optional<Secret> TerminalQuestions::password(const QString &prompt)
{
    const QByteArray program = qgetenv("SSH_ASKPASS"), when = qgetenv("SSH_ASKPASS_REQUIRE");
    const bool mayUseProgram = !program.isEmpty() && when != "never";
    if (mayUseProgram && (!canAsk() || when == "prefer" || when == "force"))
        return fromProgram(program, prompt.toLocal8Bit());
    if (!canAsk())
        return std::nullopt;
    say(prompt + QLatin1Char(' '));
    auto secret = typed();
    say(QStringLiteral("\n"));
    return secret;
}
