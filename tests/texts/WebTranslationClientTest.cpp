#include "texts/WebTranslationClient.h"

#include "LocalTranslationService.h"
#include "document/Fault.h"
#include "support/CliRun.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class WebTranslationClientTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theAddressCarriesTheCodesAndTheTextAsTyped_data();
    void theAddressCarriesTheCodesAndTheTextAsTyped();
    void everyRequestGoesToTheNetworkUnderTheClientsName();
    void theResultIsCutOutAndDecoded_data();
    void theResultIsCutOutAndDecoded();
    void aReferenceThatIsNotANumberIsATypeFault();
    void anAutomaticTargetIsRefusedBeforeAnythingIsSent();
    void withoutAConnectionTheWordErrorComesBackUnlessItWasTheText();
    void withoutAServiceAddressNothingIsSent();
    void aPercentSignArrivesAsTyped();
    void aConnectionClosedEarlyGivesWhatWasRead();
    void aServiceThatFailsGivesNoTranslationAndSaysWhy();
    void theCommandLinePrintsTheTranslationAlone();
    void theCommandLineSaysWhyNothingCameBack();

private:
    Translation translate(const QString& text, const QString& source, const QString& target);
    // Expects no translation and one message naming the service and the reason.
    void expectFailure(const Translation& translation, const QString& service, const QString& reason) const;

    std::unique_ptr<QTemporaryDir> m_settings;
    std::unique_ptr<LocalTranslationService> m_service;
    std::unique_ptr<WebTranslationClient> m_client;
};

void WebTranslationClientTest::init()
{
    m_settings = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings->path());
    m_service = std::make_unique<LocalTranslationService>();
    qputenv("QUORVEL_TRANSLATE_URL", m_service->address().toUtf8());
    // Ample for a service on this machine, short for one that never answers.
    m_client = std::make_unique<WebTranslationClient>(2s);
}

void WebTranslationClientTest::cleanup()
{
    m_client.reset();
    m_service.reset();
    qunsetenv("QUORVEL_TRANSLATE_URL");
}

Translation WebTranslationClientTest::translate(
    const QString& text, const QString& source, const QString& target)
{
    QString sourceLanguage = source;
    return m_client->TranslateUnicode(text, sourceLanguage, target, nullptr);
}

void WebTranslationClientTest::expectFailure(
    const Translation& translation, const QString& service, const QString& reason) const
{
    QVERIFY(!translation.text);
    QVERIFY(!translation.cancelled);
    QCOMPARE(translation.messages.size(), 1);
    QVERIFY2(translation.messages.first().contains(service) && translation.messages.first().contains(reason),
        qPrintable(translation.messages.first()));
}

void WebTranslationClientTest::theAddressCarriesTheCodesAndTheTextAsTyped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QByteArray>("query");
    QTest::addColumn<QString>("sourceAfter");

    QTest::newRow("blanks and line breaks")
        << u"two words\r\nnext line"_s << u"English"_s << u"Deutsch"_s
        << "sl=en&tl=de&text=two%20words%0D%0Anext%20line"_ba << u"English"_s;
    QTest::newRow("the menu's spelling only")
        << u"pao"_s << u"portuguese"_s << u"Portugues"_s << "sl=auto&tl=pt&text=pao"_ba << u"portuguese"_s;
    QTest::newRow("another script is reached from dutch")
        << u"soup"_s << u"English"_s << u"russian"_s << "sl=nl&tl=ru&text=soup"_ba << u"dutch"_s;
    QTest::newRow("short names are codes")
        << u"soup"_s << u"EN"_s << u"fr"_s << "sl=EN&tl=fr&text=soup"_ba << u"EN"_s;
    QTest::newRow("an ampersand splits the query")
        << u"fish & chips+peas?#1"_s << u"English"_s << u"Frances"_s
        << "sl=en&tl=fr&text=fish%20&%20chips+peas?"_ba << u"English"_s;
    QTest::newRow("a percent sign is escaped once")
        << u"50% off %20"_s << u"English"_s << u"Deutsch"_s << "sl=en&tl=de&text=50%25%20off%20%2520"_ba
        << u"English"_s;
    QTest::newRow("bytes a request line cannot carry") << u"a\nb\tc\u0001"_s << u"English"_s << u"Deutsch"_s
                                                       << "sl=en&tl=de&text=a%0Ab%09c%01"_ba << u"English"_s;
    QTest::newRow("letters beyond ASCII in windows-1252")
        << u"caf\u00e9 \u20ac5"_s << u"Frances"_s << u"English"_s << "sl=fr&tl=en&text=caf%E9%20%805"_ba
        << u"Frances"_s;
}

void WebTranslationClientTest::theAddressCarriesTheCodesAndTheTextAsTyped()
{
    QFETCH(QString, text);
    QFETCH(QString, source);
    QFETCH(QString, target);
    QFETCH(QByteArray, query);
    QFETCH(QString, sourceAfter);
    m_service->serveResult("done");

    QString sourceLanguage = source;
    const Translation translation = m_client->TranslateUnicode(text, sourceLanguage, target, nullptr);

    QCOMPARE(translation.text, std::optional(u"done"_s));
    QVERIFY(translation.messages.isEmpty());
    QCOMPARE(m_service->lastRequestLine(), "GET /translate_t?" + query + " HTTP/1.1");
    QCOMPARE(sourceLanguage, sourceAfter);
}

void WebTranslationClientTest::everyRequestGoesToTheNetworkUnderTheClientsName()
{
    m_service->serveResult("Hallo");
    QCOMPARE(translate(u"Hello"_s, u"English"_s, u"Deutsch"_s).text, std::optional(u"Hallo"_s));
    QCOMPARE(translate(u"Hello"_s, u"English"_s, u"Deutsch"_s).text, std::optional(u"Hallo"_s));

    QCOMPARE(m_service->requests().size(), 2);
    QCOMPARE(m_service->lastHeader("User-Agent"), "VBTagEdit"_ba);
    QCOMPARE(m_service->lastHeader("Cache-Control"), "no-cache"_ba);
}

void WebTranslationClientTest::theResultIsCutOutAndDecoded_data()
{
    QTest::addColumn<QByteArray>("result");
    QTest::addColumn<QString>("translation");
    QTest::addColumn<QString>("raw");

    QTest::newRow("references, ampersands, semicolons and breaks")
        << "caf&#233; &amp;amp; bar; baz &lt;br&gt;next"_ba << u"caf\u00e9 & bar> baz\r\r\nnext"_s
        << u"caf&#233; &amp;amp; bar; baz\r\nnext"_s;
    QTest::newRow("a break without its blank")
        << "one&lt;br&gt;two"_ba << u"one\r\ntwo"_s << u"one&lt;br&gt;two"_s;
    QTest::newRow("Danish letters sent as UTF-8")
        << u"\u00e6bler p\u00e5 \u00f8en"_s.toUtf8() << u"\u00e6bler p\u00e5 \u00f8en"_s
        << u"\u00c3\u00a6bler p\u00c3\u00a5 \u00c3\u00b8en"_s;
}

void WebTranslationClientTest::theResultIsCutOutAndDecoded()
{
    QFETCH(QByteArray, result);
    QFETCH(QString, translation);
    QFETCH(QString, raw);
    m_service->serveResult(result);

    QCOMPARE(translate(u"text"_s, u"English"_s, u"danish"_s).text, std::optional(translation));
    QCOMPARE(m_client->lastRawResult(), raw);
}

void WebTranslationClientTest::aReferenceThatIsNotANumberIsATypeFault()
{
    m_service->serveResult("x &#abc; y");
    QVERIFY_THROWS_EXCEPTION(TypeFault, translate(u"text"_s, u"English"_s, u"danish"_s));

    // A "<" that an entity brought in starts a reference as well.
    m_service->serveResult("&lt;b&gt;bold");
    QVERIFY_THROWS_EXCEPTION(TypeFault, translate(u"text"_s, u"English"_s, u"danish"_s));
}

void WebTranslationClientTest::anAutomaticTargetIsRefusedBeforeAnythingIsSent()
{
    m_service->serveResult("Suppe");
    const Translation translation = translate(u"soup"_s, u"English"_s, u"german"_s);
    QVERIFY(!translation.text);
    QCOMPARE(translation.messages,
        QStringList { u"Cant use autoDetect to the language you want to translate."_s });
    QVERIFY(m_service->requests().isEmpty());
}

void WebTranslationClientTest::withoutAConnectionTheWordErrorComesBackUnlessItWasTheText()
{
    const QString noConnection = u"You need a internet Connection to be translate your text."_s;
    const QString couldNotTranslate = u"Could  not  translate  the  text,  sorry "_s;
    m_client->setConnectionCheck([](const QUrl&) { return false; });

    Translation translation = translate(u"soup"_s, u"English"_s, u"Deutsch"_s);
    QVERIFY(!translation.text);
    QCOMPARE(translation.messages, QStringList { noConnection });

    translation = translate(u"error"_s, u"English"_s, u"Deutsch"_s);
    QVERIFY(!translation.text);
    QCOMPARE(translation.messages, (QStringList { noConnection, couldNotTranslate }));
    QVERIFY(m_service->requests().isEmpty());

    // A service that answers "error" to "error" has failed as well; to anything else it has translated.
    m_client->setConnectionCheck([](const QUrl&) { return true; });
    m_service->serveResult("error");
    translation = translate(u"error"_s, u"English"_s, u"Deutsch"_s);
    QVERIFY(!translation.text);
    QCOMPARE(translation.messages, QStringList { couldNotTranslate });
    QCOMPARE(translate(u"mistake"_s, u"English"_s, u"Deutsch"_s).text, std::optional(u"error"_s));
}

void WebTranslationClientTest::withoutAServiceAddressNothingIsSent()
{
    qunsetenv("QUORVEL_TRANSLATE_URL");
    const Translation translation = translate(u"soup"_s, u"English"_s, u"Deutsch"_s);
    QVERIFY(!translation.text);
    QCOMPARE(translation.messages.size(), 1);
    QVERIFY(translation.messages.first().contains(u"QUORVEL_TRANSLATE_URL"_s));

    QSettings(u"QUORVEL"_s, u"QUORVEL"_s).setValue(u"Translation/Host"_s, m_service->address());
    m_service->serveResult("Suppe");
    QCOMPARE(translate(u"soup"_s, u"English"_s, u"Deutsch"_s).text, std::optional(u"Suppe"_s));
}

void WebTranslationClientTest::aPercentSignArrivesAsTyped()
{
    m_service->serveResult("done");
    for (const QString& text : { u"50% off"_s, u"%41%20%%"_s, u"100%"_s }) {
        QVERIFY(translate(text, u"English"_s, u"Deutsch"_s).text);
        QCOMPARE(m_service->lastText(), text);
    }
}

void WebTranslationClientTest::aConnectionClosedEarlyGivesWhatWasRead()
{
    m_service->serve("<div id=result_box><span title=\"soup\">Suppe</span></div>",
        LocalTranslationService::Answer::CutShort);
    const Translation translation = translate(u"soup"_s, u"English"_s, u"Deutsch"_s);
    QCOMPARE(translation.text, std::optional(u"Suppe"_s));
    QVERIFY(translation.messages.isEmpty());
}

void WebTranslationClientTest::aServiceThatFailsGivesNoTranslationAndSaysWhy()
{
    const QString service = m_service->address();
    m_service->serve("<html><body>Service unavailable</body></html>");
    expectFailure(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), service, u"without a translation"_s);
    m_service->serve("<div id=result_box><span title=\"soup\">Suppe</div>");
    expectFailure(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), service, u"without a translation"_s);
    m_service->serveResult("");
    expectFailure(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), service, u"without a translation"_s);

    m_service->serve(
        "<div id=result_box><span title=\"soup\">Sup", LocalTranslationService::Answer::CutShort);
    expectFailure(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), service, u"failed: "_s);
    m_service->serve("\x01\x02 garbage", LocalTranslationService::Answer::NotHttp);
    expectFailure(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), service, u"failed: "_s);
    m_service->serve(
        "<div id=result_box><span title=\"soup\">Suppe</span></div>", LocalTranslationService::Answer::Never);
    expectFailure(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), service, u"within 2 seconds"_s);

    const QString refusing = LocalTranslationService::refusingAddress();
    qputenv("QUORVEL_TRANSLATE_URL", refusing.toUtf8());
    expectFailure(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), refusing, u"refused"_s);
}

void WebTranslationClientTest::theCommandLinePrintsTheTranslationAlone()
{
    m_service->serveResult("zwei W\xF6rter; drei");
    const CliRun run = runCli({ u"translate"_s, u"two words"_s, u"English"_s, u"Deutsch"_s });

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, u"zwei W\u00f6rter> drei\n"_s);
    QCOMPARE(run.err, QString());
    QCOMPARE(m_service->lastRequestLine(), "GET /translate_t?sl=en&tl=de&text=two%20words HTTP/1.1"_ba);
}

void WebTranslationClientTest::theCommandLineSaysWhyNothingCameBack()
{
    CliRun run = runCli({ u"translate"_s, u"soup"_s, u"English"_s, u"german"_s });
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, u"quorvel-cli: Cant use autoDetect to the language you want to translate.\n"_s);

    m_service->serve("<html>Service unavailable</html>");
    run = runCli({ u"translate"_s, u"soup"_s, u"English"_s, u"Deutsch"_s });
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err.count(u'\n'), 1);
    QVERIFY2(run.err.contains(m_service->address()), qPrintable(run.err));

    m_service->serveResult("x &#abc; y");
    run = runCli({ u"translate"_s, u"soup"_s, u"English"_s, u"Deutsch"_s });
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.err, u"quorvel-cli: Type mismatch\n"_s);

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QUORVEL_TRANSLATE_URL"_s, LocalTranslationService::refusingAddress());
    run = runCli({ u"translate"_s, u"soup"_s, u"English"_s, u"Deutsch"_s }, environment);
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err.count(u'\n'), 1);
    QVERIFY2(run.err.contains(u"refused"_s), qPrintable(run.err));
}

QTEST_GUILESS_MAIN(WebTranslationClientTest)
#include "WebTranslationClientTest.moc"
