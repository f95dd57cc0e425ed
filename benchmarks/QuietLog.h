// The log of the code under measurement goes nowhere while this lives: it would bury the results.
#pragma once

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

class QuietLog
{
public:
    QuietLog() : _standardError(::dup(STDERR_FILENO))
    {
        const int nowhere = ::open("/dev/null", O_WRONLY);
        ::dup2(nowhere, STDERR_FILENO);
        ::close(nowhere);
    }
    ~QuietLog()
    {
        ::dup2(_standardError, STDERR_FILENO);
        ::close(_standardError);
    }
    QuietLog(const QuietLog &) = delete;
    QuietLog &operator=(const QuietLog &) = delete;

private:
    const int _standardError;
};
