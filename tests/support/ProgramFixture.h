// The program as a process of its own, on the fixture's folders.
#pragma once

#include "support/ThemeFixture.h"

#include <QMap>
#include <QProcess>

struct Finished {
    int exitCode;
    QByteArray out, err;
    bool crashed;
};

struct ProgramFixture : ThemeFixture {
    using Variables = QMap<QString, QString>;

    /// Starts a program with the folders, and more, in its environment.
    void start(QProcess &process, const QString &program, const QStringList &arguments,
               const Variables &variables = {}) const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("TINTLOOM_RESOURCES"), resources);
        environment.insert(QStringLiteral("TINTLOOM_DOCUMENTS"), locations.documents);
        environment.insert(QStringLiteral("TINTLOOM_PACKAGE_ROOT"), locations.packageRoot);
        // Whoever asks for a display here shall notice.
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("none-such"));
        for (auto variable = variables.begin(); variable != variables.end(); ++variable)
            environment.insert(variable.key(), variable.value());
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        ASSERT_TRUE(process.waitForStarted()) << process.errorString().toStdString();
    }

    static Finished finish(QProcess &process)
    {
        EXPECT_TRUE(process.state() == QProcess::NotRunning || process.waitForFinished(60'000))
            << process.errorString().toStdString();
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError(),
                process.exitStatus() == QProcess::CrashExit};
    }

    Finished run(const QStringList &arguments, const Variables &variables = {},
                 const QString &program = QStringLiteral(TINTLOOM_EXECUTABLE)) const
    {
        QProcess process;
        start(process, program, arguments, variables);
        return finish(process);
    }
};
