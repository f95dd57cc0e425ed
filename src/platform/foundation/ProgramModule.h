// Parts of the program that are loaded when first needed: what they link costs no start.
#pragma once

#include <QFunctionPointer>
#include <QString>

struct ProgramModule {
    QFunctionPointer entry = nullptr; // valid for as long as the program runs
    QString problem;                  // why there is none, for people; else empty

    /// The function of that name in the module tintloom_NAME. Any thread. A missing module is
    /// looked for again each time.
    static ProgramModule load(const QString &name, const char *entry);
};
