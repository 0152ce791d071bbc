#include "CliRun.h"

#include <QProcess>

CliRun runCli(const QStringList& arguments, const QProcessEnvironment& environment)
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
