#pragma once

#include <QProcess>
#include <QStringList>

struct CliRun
{
    int exitCode = -1;
    QString out;
    QString err;
};

// Runs the built quorvel-cli to its end; a run that hangs is killed after a minute and fails.
inline CliRun runCli(const QStringList& arguments,
    const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(QUORVEL_CLI_PATH), arguments);
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
    }
    return { process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        QString::fromLocal8Bit(process.readAllStandardOutput()),
        QString::fromLocal8Bit(process.readAllStandardError()) };
}
