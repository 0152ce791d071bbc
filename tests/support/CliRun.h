#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

// One run of quorvel-cli, with the test's own environment unless told otherwise.
struct CliRun
{
    int exitCode = -1; // -1 when it crashed or did not end within a minute
    QString out;
    QString err;
};

CliRun runCli(const QStringList& arguments,
    const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
