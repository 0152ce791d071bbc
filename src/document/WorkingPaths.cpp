#include "WorkingPaths.h"

#include <QDir>

namespace WorkingPaths {

QString workingRoot()
{
    const QString configured = qEnvironmentVariable("QUORVEL_ROOT");
    if (!configured.isEmpty()) {
        return QDir::cleanPath(configured);
    }
#ifdef Q_OS_WIN
    return QStringLiteral("C:/orvik");
#else
    return QDir::homePath() + QStringLiteral("/orvik");
#endif
}

QString workingFolder()
{
    return workingRoot() + QStringLiteral("/temp_orvik");
}

QString workingPrefix()
{
    return workingFolder() + QStringLiteral("/temp");
}

QString exchangeFile()
{
    return workingRoot() + QStringLiteral("/pludata.txt");
}

void ensureWorkingFolder()
{
    QDir().mkpath(workingFolder());
}

} // namespace WorkingPaths
