#include "app/StandardStreams.h"

#include <cstdio>
#include <cstdlib>

int print(const QByteArray &text)
{
    const bool written =
        std::fwrite(text.constData(), 1, size_t(text.size()), stdout) == size_t(text.size());
    if (written && std::fflush(stdout) == 0)
        return EXIT_SUCCESS;
    std::perror("tintloom: cannot write to standard output");
    return EXIT_FAILURE;
}

void complain(const QString &problem)
{
    std::fputs(QString("tintloom: %1\n").arg(problem).toUtf8().constData(), stderr);
}
