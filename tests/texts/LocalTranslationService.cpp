#include "LocalTranslationService.h"

#include <QDeadlineTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QUrl>

#include <vector>

namespace {

// The request line and headers, up to the blank line that ends them.
QByteArray readHead(QTcpSocket& socket)
{
    QByteArray head;
    const QDeadlineTimer deadline(5000);
    while (!head.contains("\r\n\r\n") && !deadline.hasExpired() && socket.waitForReadyRead(100)) {
        head += socket.readAll();
    }
    return head.left(head.indexOf("\r\n\r\n"));
}

QByteArray responseHead(qsizetype contentLength)
{
    return "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\nContent-Length: "
        + QByteArray::number(contentLength) + "\r\n\r\n";
}

} // namespace

LocalTranslationService::LocalTranslationService()
    : m_thread(QThread::create([this] { run(); }))
{
    m_thread->start();
    while (m_port == 0) {
        QThread::msleep(1);
    }
}

LocalTranslationService::~LocalTranslationService()
{
    m_stopping = true;
    m_thread->wait();
}

QString LocalTranslationService::address() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(m_port.load());
}

QString LocalTranslationService::refusingAddress()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    const quint16 port = server.serverPort();
    server.close();
    return QStringLiteral("http://127.0.0.1:%1").arg(port);
}

void LocalTranslationService::serve(const QByteArray& page, Answer answer)
{
    const QMutexLocker lock(&m_mutex);
    m_page = page;
    m_answer = answer;
}

void LocalTranslationService::serveResult(const QByteArray& result)
{
    serve("<html><body><div id=translation><span id=result_box><span title=\"source\">" + result
        + "</span></span></div></body></html>");
}

QList<QByteArray> LocalTranslationService::requests() const
{
    const QMutexLocker lock(&m_mutex);
    return m_requests;
}

QByteArray LocalTranslationService::lastRequestLine() const
{
    const QList<QByteArray> received = requests();
    return received.isEmpty() ? QByteArray() : received.last().split('\r').first();
}

QString LocalTranslationService::lastText() const
{
    const QByteArray target = lastRequestLine().split(' ').value(1);
    const qsizetype start = target.indexOf("&text=");
    return start < 0 ? QString() : QUrl::fromPercentEncoding(target.mid(start + 6));
}

QByteArray LocalTranslationService::lastHeader(const QByteArray& name) const
{
    const QList<QByteArray> received = requests();
    if (received.isEmpty()) {
        return {};
    }
    for (const QByteArray& line : received.last().split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0 && line.left(colon).trimmed().compare(name, Qt::CaseInsensitive) == 0) {
            return line.mid(colon + 1).trimmed();
        }
    }
    return {};
}

void LocalTranslationService::run()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    m_port = server.serverPort();
    std::vector<std::unique_ptr<QTcpSocket>> silent;
    while (!m_stopping) {
        if (!server.waitForNewConnection(20)) {
            continue;
        }
        std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
        const QByteArray head = readHead(*socket);
        const QMutexLocker lock(&m_mutex);
        m_requests.append(head);
        if (m_answer == Answer::Never) {
            silent.push_back(std::move(socket));
        } else {
            answer(*socket);
        }
    }
}

void LocalTranslationService::answer(QTcpSocket& socket)
{
    switch (m_answer) {
    case Answer::CutShort:
        socket.write(responseHead(m_page.size() + 4096) + m_page);
        break;
    case Answer::NotHttp:
        socket.write(m_page);
        break;
    case Answer::WholePage:
    case Answer::Never:
        socket.write(responseHead(m_page.size()) + m_page);
        break;
    }
    while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(5000)) { }
    socket.disconnectFromHost();
    if (socket.state() != QAbstractSocket::UnconnectedState) {
        socket.waitForDisconnected(1000);
    }
}
