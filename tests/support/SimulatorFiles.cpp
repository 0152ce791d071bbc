#include "SimulatorFiles.h"

#include "TestWorkingRoot.h"

#include <QFile>

#include <stdexcept>

namespace {

QString transcriptPath(const QTemporaryDir& dir)
{
    return dir.filePath(QStringLiteral("transcript.jsonl"));
}

} // namespace

SimulatorFiles::SimulatorFiles(const QString& libraryPath)
{
    if (!m_dir.isValid()) {
        throw std::runtime_error("cannot make a folder for the simulator's files");
    }
    qputenv("QUORVEL_DRAVLINK", QFile::encodeName(libraryPath));
    qputenv("DRAVLINK_SIM_TRANSCRIPT", QFile::encodeName(transcriptPath(m_dir)));
    qputenv("DRAVLINK_SIM_ORDERS", QFile::encodeName(m_dir.filePath(QStringLiteral("orders.txt"))));
    qunsetenv("DRAVLINK_SIM_INIT_RESULT");
}

void SimulatorFiles::writeOrders(const QByteArray& lines) const
{
    writeBytes(m_dir.filePath(QStringLiteral("orders.txt")), lines);
}

QStringList SimulatorFiles::transcript() const
{
    if (!QFile::exists(transcriptPath(m_dir))) {
        return {};
    }
    return QString::fromUtf8(readBytes(transcriptPath(m_dir))).split(u'\n', Qt::SkipEmptyParts);
}

qsizetype SimulatorFiles::count(const QString& call) const
{
    const QString marker = QStringLiteral("{\"call\":\"%1\",").arg(call);
    qsizetype calls = 0;
    for (const QString& line : transcript()) {
        calls += line.startsWith(marker) ? 1 : 0;
    }
    return calls;
}
