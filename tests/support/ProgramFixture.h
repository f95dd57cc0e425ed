// The program as others start it, on a test's own folders.
#pragma once

#include "support/ThemeFixture.h"

#include <QMap>
#include <QProcess>

struct Finished {
    int exitCode;
    QByteArray out, err;
};

struct ProgramFixture : ThemeFixture {
    /// Runs the program on the fixture's folders, set by environment variables.
    Finished run(const QStringList &arguments, const QMap<QString, QString> &variables = {}) const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("TINTLOOM_RESOURCES"), resources);
        environment.insert(QStringLiteral("TINTLOOM_DOCUMENTS"), locations.documents);
        environment.insert(QStringLiteral("TINTLOOM_PACKAGE_ROOT"), locations.packageRoot);
        // Whoever asks for a display here shall notice.
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("none-such"));
        for (auto variable = variables.begin(); variable != variables.end(); ++variable)
            environment.insert(variable.key(), variable.value());
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(TINTLOOM_EXECUTABLE), arguments);
        EXPECT_TRUE(process.waitForFinished(60'000)) << process.errorString().toStdString();
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput(),
                process.readAllStandardError()};
    }
};
