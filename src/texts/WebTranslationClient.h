#pragma once

#include "Translator.h"

#include <QString>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

class QNetworkAccessManager;

// Translates through the web translation service's result page: one GET per text, the translated text
// cut out of the page's HTML and its entities and character references decoded. While a page is
// fetched the windows keep painting; a request that takes a while is shown to the user, who may
// cancel it.
class WebTranslationClient : public Translator
{
public:
    using ConnectionCheck = std::function<bool(const QUrl& service)>;

    // How long a request runs before the user is told that it is waiting and may cancel it.
    static constexpr std::chrono::milliseconds WaitingShownAfter { 1000 };

    explicit WebTranslationClient(std::chrono::milliseconds timeLimit = std::chrono::seconds(20));
    ~WebTranslationClient() override;
    WebTranslationClient(const WebTranslationClient&) = delete;
    WebTranslationClient& operator=(const WebTranslationClient&) = delete;

    Translation TranslateUnicode(const QString& text, QString& sourceLanguage, const QString& targetLanguage,
        TranslationWaiting* waiting) override;

    // What the service gave for the last call that was translated, before its entities were decoded.
    const QString& lastRawResult() const { return m_lastRawResult; }

    // Replaces the check of the machine's internet connection.
    void setConnectionCheck(ConnectionCheck check) { m_hasConnection = std::move(check); }

    // The raw result for the text as cut out of the service's page, or why there is none.
    Translation RequestTranslation(const QString& text, const QString& sourceLanguage,
        const QString& targetLanguage, TranslationWaiting* waiting);

    // The service's code of a language name: names of one or two characters are codes already,
    // names not known become "auto".
    static QString languageCode(const QString& name);

    // Targets written in another script are reached from Dutch, whatever the source really is.
    static void checknChangeToDuche(const QString& targetLanguage, QString& sourceLanguage);

    // Cuts the translated text out of the result page. Returns the 1-based position of the marker
    // before the text when it was cut, -1 when the closing marker was not found, 0 when an earlier
    // marker was not found; the result is left empty unless text was cut.
    static int ExtractResultText(const QString& page, QString& result);

    static void DecodeHtmlEntities(QString& text);

    // The translated text of a raw result: its entities decoded and its character references turned
    // into characters. Raises TypeFault for a reference that is not a number.
    static QString decodeResult(QString raw);

    // Turns "<233>" style tokens into their characters. Raises TypeFault for a token that is not a
    // number.
    static void replaceCharacterCodes(QString& text);

private:
    // The page as windows-1252 text, whatever of it arrived, and how the fetch ended.
    struct Page
    {
        enum class Ending
        {
            Complete,
            Broken,
            TimedOut,
            Cancelled,
        };
        QString text;
        Ending ending = Ending::Complete;
        QString error; // the network's words for a broken fetch
    };

    Page DownloadPage(const QString& address, TranslationWaiting* waiting);
    // Why a page gave no translation, for the user.
    QString failureMessage(const QString& service, const Page& page) const;

    std::chrono::milliseconds m_timeLimit;
    ConnectionCheck m_hasConnection;
    std::unique_ptr<QNetworkAccessManager> m_network;
    QString m_lastRawResult;
};
