#pragma once

#include <QByteArray>
#include <QList>
#include <QMutex>
#include <QString>

#include <atomic>
#include <memory>

class QThread;
class QTcpServer;
class QTcpSocket;

// A stand-in for the translation service on 127.0.0.1, on a thread of its own so that it also answers
// while the test waits for another process. It answers every request with the page it was given and
// keeps the head of each request it received.
class LocalTranslationService
{
public:
    enum class Answer
    {
        WholePage,
        CutShort, // promises more than it sends, then closes the connection
        Never, // keeps the connection open and says nothing
        NotHttp, // sends the page alone, without a status line or headers, and closes
    };

    LocalTranslationService();
    ~LocalTranslationService();
    LocalTranslationService(const LocalTranslationService&) = delete;
    LocalTranslationService& operator=(const LocalTranslationService&) = delete;

    // "http://127.0.0.1:PORT"
    QString address() const;
    // An address on 127.0.0.1 where nothing listens, so that a connection is refused.
    static QString refusingAddress();

    void serve(const QByteArray& page, Answer answer = Answer::WholePage);
    // A result page whose result box holds the given bytes.
    void serveResult(const QByteArray& result);

    // The request lines and headers received so far, one entry a request.
    QList<QByteArray> requests() const;
    // The request line of the last request ("GET /translate_t?... HTTP/1.1").
    QByteArray lastRequestLine() const;
    // The value of "text" in the last request's query as the service reads it, percent-decoded.
    QString lastText() const;
    // A header of the last request, by its name in any case; empty when it was not sent.
    QByteArray lastHeader(const QByteArray& name) const;

private:
    void run();
    void answer(QTcpSocket& socket);

    std::unique_ptr<QThread> m_thread;
    std::atomic<bool> m_stopping { false };
    std::atomic<quint16> m_port { 0 };
    mutable QMutex m_mutex;
    QByteArray m_page;
    Answer m_answer = Answer::WholePage;
    QList<QByteArray> m_requests;
};
