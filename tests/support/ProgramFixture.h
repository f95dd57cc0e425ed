// The program as a process of its own, on the fixture's folders.
#pragma once

#include "support/ThemeFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>
#include <QProcess>

struct Finished {
    int exitCode;
    QByteArray out, err;
    bool crashed;
};

struct ProgramFixture : ThemeFixture {
    using Variables = QMap<QString, QString>;

    /// The same program, which can be told to fail or to stop at a file operation.
    const QString faultyProgram = QStringLiteral(TINTLOOM_FAULTY_EXECUTABLE);

    /// Starts a program with the folders, and more, in its environment. Blanks separate its
    /// arguments, quotes hold one together.
    void start(QProcess &process, const QString &program, const QString &arguments,
               const Variables &variables = {}) const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TINTLOOM_RESOURCES", resources);
        environment.insert("TINTLOOM_DOCUMENTS", locations.documents);
        environment.insert("TINTLOOM_PACKAGE_ROOT", locations.packageRoot);
        environment.insert("QT_QPA_PLATFORM", "none-such"); // whoever asks for a display notices
        for (auto variable = variables.begin(); variable != variables.end(); ++variable)
            environment.insert(variable.key(), variable.value());
        process.setProcessEnvironment(environment);
        process.start(program, QProcess::splitCommand(arguments));
        ASSERT_TRUE(process.waitForStarted()) << process.errorString().toStdString();
    }

    static Finished finish(QProcess &process)
    {
        EXPECT_TRUE(process.state() == QProcess::NotRunning || process.waitForFinished(60'000))
            << process.errorString().toStdString();
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError(),
                process.exitStatus() == QProcess::CrashExit};
    }

    Finished run(const QString &arguments, const Variables &variables = {},
                 const QString &program = QStringLiteral(TINTLOOM_EXECUTABLE)) const
    {
        QProcess process;
        start(process, program, arguments, variables);
        return finish(process);
    }

    /// What a listing with --json holds.
    static QJsonArray json(const Finished &run) { return QJsonDocument::fromJson(run.out).array(); }

    /// The program ends so, says all that on standard error and nothing on standard output.
    void expectRefused(const QString &arguments, int exitCode, const QByteArrayList &told,
                       const Variables &variables = {},
                       const QString &program = QStringLiteral(TINTLOOM_EXECUTABLE)) const
    {
        const Finished result = run(arguments, variables, program);
        EXPECT_EQ(result.exitCode, exitCode) << arguments.toStdString();
        EXPECT_EQ(result.out, "");
        for (const QByteArray &text : told)
            EXPECT_TRUE(result.err.contains(text))
                << arguments.toStdString() << ": " << result.err.toStdString();
    }
};
