#include "SimulatedLink.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

const char* const Variables[] = {
    "QUORVEL_DRAVLINK",
    "DRAVLINK_SIM_TRANSCRIPT",
    "DRAVLINK_SIM_INIT_RESULT",
    "DRAVLINK_SIM_ORDERS",
};

QString transcriptPath(const QTemporaryDir& folder)
{
    return folder.filePath(QStringLiteral("transcript.jsonl"));
}

} // namespace

SimulatedLink::SimulatedLink()
{
    qputenv("QUORVEL_DRAVLINK", DRAVLINK_SIM_PATH);
    qputenv("DRAVLINK_SIM_TRANSCRIPT", transcriptPath(m_folder).toLocal8Bit());
    qunsetenv("DRAVLINK_SIM_INIT_RESULT");
    qunsetenv("DRAVLINK_SIM_ORDERS");
}

SimulatedLink::~SimulatedLink()
{
    for (const char* variable : Variables) {
        qunsetenv(variable);
    }
}

QStringList SimulatedLink::calls() const
{
    QFile file(transcriptPath(m_folder));
    QStringList calls;
    if (!file.open(QIODevice::ReadOnly)) {
        return calls;
    }
    while (!file.atEnd()) {
        const QJsonObject line = QJsonDocument::fromJson(file.readLine()).object();
        calls.append(
            linkCall(line.value(u"call").toString().toLatin1().constData(), line.value(u"args").toArray()));
    }
    return calls;
}

qsizetype SimulatedLink::count(const char* name) const
{
    return calls().filter(QRegularExpression(u'^' + QLatin1StringView(name) + u' ')).size();
}

void SimulatedLink::setInitResult(int result)
{
    qputenv("DRAVLINK_SIM_INIT_RESULT", QByteArray::number(result));
}

void SimulatedLink::setOrders(const QByteArray& lines)
{
    const QString path = m_folder.filePath(QStringLiteral("orders.txt"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(lines);
    }
    qputenv("DRAVLINK_SIM_ORDERS", path.toLocal8Bit());
}

QString linkCall(const char* name, const QJsonArray& args)
{
    return QLatin1StringView(name) + u' '
        + QString::fromUtf8(QJsonDocument(args).toJson(QJsonDocument::Compact));
}

QString terminalText(std::initializer_list<int> starts, const QString& texts)
{
    QString header(1, QChar(6));
    for (const int start : starts) {
        header += QChar(start);
    }
    return header + texts;
}
