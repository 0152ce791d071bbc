#include "WebTranslationClient.h"

#include "TranslationService.h"
#include "TranslationWaiting.h"
#include "document/AnsiCodec.h"
#include "document/Fault.h"
#include "document/NumberText.h"

#include <QEventLoop>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkInformation>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString CrLf = u"\r\n"_s;

const QString AutomaticTarget = u"Cant use autoDetect to the language you want to translate."_s;
const QString NoConnection = u"You need a internet Connection to be translate your text."_s;
const QString CouldNotTranslate = u"Could  not  translate  the  text,  sorry "_s;
const QString NoService
    = u"No translation service is set. Enter its address under File, Translation Service, "
      u"or in QUORVEL_TRANSLATE_URL."_s;

// The spellings are the menu's own: "Frances" has a code, "french" falls to automatic detection.
const std::pair<QString, QString> LanguageCodes[] = {
    { u"Urdu"_s, u"ur"_s },
    { u"Persian"_s, u"fa"_s },
    { u"Arabic"_s, u"ar"_s },
    { u"bulgarsk"_s, u"bg"_s },
    { u"danish"_s, u"da"_s },
    { u"English"_s, u"en"_s },
    { u"finsk"_s, u"fi"_s },
    { u"Frances"_s, u"fr"_s },
    { u"greek"_s, u"el"_s },
    { u"Hindi"_s, u"hi"_s },
    { u"dutch"_s, u"nl"_s },
    { u"czech"_s, u"cs"_s },
    { u"Italiano"_s, u"it"_s },
    { u"japansk"_s, u"ja"_s },
    { u"kinisisk"_s, u"zh-CN"_s },
    { u"koreansk"_s, u"ko"_s },
    { u"norwegian"_s, u"no"_s },
    { u"polish"_s, u"pl"_s },
    { u"Portugues"_s, u"pt"_s },
    { u"romanian"_s, u"ro"_s },
    { u"russian"_s, u"ru"_s },
    { u"Espanol"_s, u"es"_s },
    { u"swedish"_s, u"sv"_s },
    { u"Deutsch"_s, u"de"_s },
};

const QString OtherScriptTargets[] = { u"Arabic"_s, u"bulgarsk"_s, u"czech"_s, u"greek"_s, u"japansk"_s,
    u"kinisisk"_s, u"russian"_s, u"Urdu"_s, u"Persian"_s };

// The order matters: "&amp;amp;" needs both passes, and "/&gt;" must go before "&gt;". Steps 7 to 11
// repair the Danish letters of a page read as windows-1252; the rest are substitutions the menus have
// always had, including the last one, which changes nothing.
const std::pair<QString, QString> EntityReplacements[] = {
    { u"&lt;"_s, u"<"_s },
    { u"/&gt;"_s, u">"_s },
    { u"\n"_s, u"\r\n"_s },
    { u"&gt;"_s, u">"_s },
    { u"&amp;"_s, u"&"_s },
    { u"&amp;"_s, u"&"_s },
    { u"#8212;"_s, u"-"_s },
    { u"\u00C3\u00A6"_s, u"\u00E6"_s },
    { u"\u00C3\u00B8"_s, u"\u00F8"_s },
    { u"\u00C3\u00A5"_s, u"\u00E5"_s },
    { u"\u00E2\u2020\u0090\u00C3\u2020l"_s, u"\u00E6"_s },
    { u"%C3%A6"_s, u"\u00E6"_s },
    { u"\u00B6"_s, u"\u0153"_s },
    { u"\u00B1"_s, u"\u00B9"_s },
    { u"&#347;"_s, u"\u0153"_s },
    { u"\"\""_s, u"\""_s },
    { u"\""_s, u"\""_s },
};

bool isLoopback(const QString& host)
{
    return host == u"localhost" || QHostAddress(host).isLoopback();
}

// A service on this machine needs no network. When no backend can tell the state of the network, the
// request itself finds out.
bool machineIsConnected(const QUrl& service)
{
    if (isLoopback(service.host())) {
        return true;
    }
    if (!QNetworkInformation::instance() && !QNetworkInformation::loadDefaultBackend()) {
        return true;
    }
    return QNetworkInformation::instance()->reachability() != QNetworkInformation::Reachability::Disconnected;
}

// Line breaks and blanks are all the service needs escaped; everything else goes as typed, so that
// an "&" in the text still splits the query. A "%" is escaped first, or the service would read "%20"
// typed in a text as a blank.
QString escapedText(const QString& text)
{
    return QString(text).replace(u'%', u"%25"_s).replace(CrLf, u"%0D%0A"_s).replace(u' ', u"%20"_s);
}

// The address goes out in windows-1252. Bytes beyond ASCII are percent-encoded here, or QUrl would
// read them as UTF-8; the rest is taken as encoded, so QUrl only escapes what a request line cannot
// carry (blanks, control bytes, quotes, angle brackets) and a "#" still ends what is sent.
QUrl requestUrl(const QString& address)
{
    QByteArray encoded;
    for (const char byte : AnsiCodec::encode(address)) {
        const auto value = static_cast<unsigned char>(byte);
        if (value >= 0x80) {
            encoded += '%' + QByteArray::number(value, 16).toUpper();
        } else {
            encoded += byte;
        }
    }
    return QUrl::fromEncoded(encoded, QUrl::TolerantMode);
}

// A reference's number as a UTF-16 code unit; negative numbers count down from 0xFFFF.
QChar codeUnit(const QString& number)
{
    bool isNumber = false;
    const double value = number.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value)) {
        throw TypeFault();
    }
    const std::int32_t code = NumberText::toInt32(value);
    if (code < -0x8000 || code > 0xFFFF) {
        throw Fault(u"Invalid procedure call or argument"_s);
    }
    return QChar(static_cast<char16_t>(code < 0 ? code + 0x10000 : code));
}

// Where the request's word for a failure is "error", a text that is itself "error" has always been
// told that it could not be translated as well.
Translation failedWithTheWordError(const QString& message, const QString& text)
{
    return text == u"error" ? Translation::failedWith({ message, CouldNotTranslate })
                            : Translation::failedWith({ message });
}

// A young request keeps the windows painting but takes no input. Once it has taken a while and the
// user is shown that it waits, input goes on, to the window that offers Cancel.
void waitForReply(QNetworkReply& reply, TranslationWaiting* waiting, const std::function<void()>& cancel)
{
    QEventLoop loop;
    QObject::connect(&reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer patience;
    patience.setSingleShot(true);
    if (waiting) {
        QObject::connect(&patience, &QTimer::timeout, &loop, &QEventLoop::quit);
        patience.start(WebTranslationClient::WaitingShownAfter);
    }
    if (!reply.isFinished()) {
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (reply.isFinished() || !waiting) {
        return;
    }
    waiting->started(cancel);
    if (!reply.isFinished()) {
        loop.exec();
    }
    waiting->ended();
}

QString inSeconds(std::chrono::milliseconds duration)
{
    return QString::number(static_cast<double>(duration.count()) / 1000.0);
}

} // namespace

WebTranslationClient::WebTranslationClient(std::chrono::milliseconds timeLimit)
    : m_timeLimit(timeLimit)
    , m_hasConnection(machineIsConnected)
    , m_network(std::make_unique<QNetworkAccessManager>())
{ }

WebTranslationClient::~WebTranslationClient() = default;

Translation WebTranslationClient::TranslateUnicode(
    const QString& text, QString& sourceLanguage, const QString& targetLanguage, TranslationWaiting* waiting)
{
    checknChangeToDuche(targetLanguage, sourceLanguage);
    const Translation request = RequestTranslation(text, sourceLanguage, targetLanguage, waiting);
    if (!request.text) {
        return request;
    }
    QString raw = *request.text;
    // Only a text that is itself "error" counts as failed; otherwise the word is the translation.
    if (raw == u"error" && raw == text) {
        return Translation::failedWith({ CouldNotTranslate });
    }
    raw.replace(u" &lt;br&gt;"_s, CrLf);
    m_lastRawResult = raw;
    return Translation::translatedAs(decodeResult(std::move(raw)));
}

QString WebTranslationClient::decodeResult(QString raw)
{
    DecodeHtmlEntities(raw);
    raw.replace(u"&#"_s, u"<"_s).replace(u';', u'>').replace(u"<br>"_s, CrLf);
    replaceCharacterCodes(raw);
    return raw;
}

Translation WebTranslationClient::RequestTranslation(const QString& text, const QString& sourceLanguage,
    const QString& targetLanguage, TranslationWaiting* waiting)
{
    const QString sourceCode = languageCode(sourceLanguage);
    const QString targetCode = languageCode(targetLanguage);
    if (targetCode == u"auto") {
        return Translation::failedWith({ AutomaticTarget });
    }
    // Without an address there is nothing to connect to: the user is told where to set it, and the
    // call fails as it does without a connection.
    const QString service = TranslationService::address();
    if (service.isEmpty()) {
        return failedWithTheWordError(NoService, text);
    }
    if (!m_hasConnection(QUrl(service))) {
        return failedWithTheWordError(NoConnection, text);
    }
    const Page page = DownloadPage(service + u"/translate_t?sl="_s + sourceCode + u"&tl="_s + targetCode
            + u"&text="_s + escapedText(text),
        waiting);
    if (page.ending == Page::Ending::Cancelled) {
        return Translation::cancelledByTheUser();
    }
    // Whatever arrived is searched, as a page cut short may still hold the whole result.
    QString result;
    ExtractResultText(page.text, result);
    if (result.isEmpty()) {
        return Translation::failedWith({ failureMessage(service, page) });
    }
    return Translation::translatedAs(result);
}

WebTranslationClient::Page WebTranslationClient::DownloadPage(
    const QString& address, TranslationWaiting* waiting)
{
    QByteArray bytes;
    Page page;
    QNetworkRequest request(requestUrl(address));
    request.setHeader(QNetworkRequest::UserAgentHeader, u"VBTagEdit"_s);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    const std::unique_ptr<QNetworkReply> reply(m_network->get(request));

    // Read as it comes, so that an abort or a broken connection still leaves what had arrived.
    QObject::connect(reply.get(), &QIODevice::readyRead, reply.get(), [&] { bytes += reply->readAll(); });
    const auto endAs = [&](Page::Ending ending) {
        if (!reply->isFinished()) {
            page.ending = ending;
            reply->abort();
        }
    };
    QTimer::singleShot(m_timeLimit, reply.get(), [&] { endAs(Page::Ending::TimedOut); });
    waitForReply(*reply, waiting, [&] { endAs(Page::Ending::Cancelled); });

    bytes += reply->readAll();
    page.text = AnsiCodec::decode(bytes);
    if (page.ending == Page::Ending::Complete && reply->error() != QNetworkReply::NoError) {
        page.ending = Page::Ending::Broken;
        page.error = reply->errorString();
    }
    return page;
}

QString WebTranslationClient::failureMessage(const QString& service, const Page& page) const
{
    switch (page.ending) {
    case Page::Ending::Broken:
        return u"The request to the translation service at %1 failed: %2"_s.arg(service, page.error);
    case Page::Ending::TimedOut:
        return u"The translation service at %1 did not answer within %2 seconds."_s.arg(
            service, inSeconds(m_timeLimit));
    case Page::Ending::Complete:
    case Page::Ending::Cancelled:
        break;
    }
    return u"The translation service at %1 sent a page without a translation in it."_s.arg(service);
}

QString WebTranslationClient::languageCode(const QString& name)
{
    if (name.size() < 3) {
        return name;
    }
    for (const auto& [language, code] : LanguageCodes) {
        if (language == name) {
            return code;
        }
    }
    return u"auto"_s;
}

void WebTranslationClient::checknChangeToDuche(const QString& targetLanguage, QString& sourceLanguage)
{
    if (std::find(std::begin(OtherScriptTargets), std::end(OtherScriptTargets), targetLanguage)
        != std::end(OtherScriptTargets)) {
        sourceLanguage = u"dutch"_s;
    }
}

// The markers fit the service's result page: the text sits in the span inside "result_box".
int WebTranslationClient::ExtractResultText(const QString& page, QString& result)
{
    result.clear();
    const qsizetype box = page.indexOf(u"result_box"_s);
    if (box < 0) {
        return 0;
    }
    const qsizetype span = page.indexOf(u"span title="_s, box);
    if (span < 0) {
        return 0;
    }
    const qsizetype start = page.indexOf(u"\">"_s, span);
    if (start < 0) {
        return 0;
    }
    const qsizetype end = page.indexOf(u"</span>"_s, start);
    if (end < 0) {
        return -1;
    }
    result = page.mid(start + 2, end - start - 2);
    return static_cast<int>(start + 1);
}

void WebTranslationClient::DecodeHtmlEntities(QString& text)
{
    for (const auto& [from, to] : EntityReplacements) {
        text.replace(from, to);
    }
}

void WebTranslationClient::replaceCharacterCodes(QString& text)
{
    for (qsizetype start = text.indexOf(u'<'); start >= 0; start = text.indexOf(u'<')) {
        const qsizetype end = text.indexOf(u'>', start);
        if (end < 0) {
            return;
        }
        const QString token = text.mid(start, end - start + 1);
        text.replace(token, QString(codeUnit(QString(token).remove(u'<').remove(u'>'))));
    }
}
