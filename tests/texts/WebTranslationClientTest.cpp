#include "texts/WebTranslationClient.h"

#include "LocalTranslationService.h"
#include "document/Fault.h"
#include "support/CliRun.h"
#include "support/ScriptedPrompts.h"

#include <QElapsedTimer>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

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
    void aPageWithoutTheMarkersGivesNothingAndSaysNothing();
    void aConnectionClosedEarlyGivesWhatWasRead();
    void aServiceThatNeverAnswersIsLeftAtTheTimeLimit();
    void theCommandLinePrintsTheTranslationAlone();
    void theCommandLineEndsWithTheMessageWhenTranslationFails();

private:
    QString translate(const QString& text, const QString& source, const QString& target);

    std::unique_ptr<QTemporaryDir> m_settings;
    std::unique_ptr<LocalTranslationService> m_service;
    std::unique_ptr<ScriptedPrompts> m_prompts;
    std::unique_ptr<WebTranslationClient> m_client;
};

void WebTranslationClientTest::init()
{
    m_settings = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings->path());
    m_service = std::make_unique<LocalTranslationService>();
    qputenv("QUORVEL_TRANSLATE_URL", m_service->address().toUtf8());
    m_prompts = std::make_unique<ScriptedPrompts>();
    m_client = std::make_unique<WebTranslationClient>(*m_prompts, 500ms);
}

void WebTranslationClientTest::cleanup()
{
    m_client.reset();
    m_service.reset();
    qunsetenv("QUORVEL_TRANSLATE_URL");
}

QString WebTranslationClientTest::translate(const QString& text, const QString& source, const QString& target)
{
    QString sourceLanguage = source;
    return m_client->TranslateUnicode(text, sourceLanguage, target);
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
        << u"fish & chips+peas?"_s << u"English"_s << u"Frances"_s
        << "sl=en&tl=fr&text=fish%20&%20chips+peas?"_ba << u"English"_s;
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
    QCOMPARE(m_client->TranslateUnicode(text, sourceLanguage, target), u"done"_s);

    QCOMPARE(m_service->lastRequestLine(), "GET /translate_t?" + query + " HTTP/1.1");
    QCOMPARE(sourceLanguage, sourceAfter);
    QVERIFY(m_prompts->messages.isEmpty());
}

void WebTranslationClientTest::everyRequestGoesToTheNetworkUnderTheClientsName()
{
    m_service->serveResult("Hallo");
    QCOMPARE(translate(u"Hello"_s, u"English"_s, u"Deutsch"_s), u"Hallo"_s);
    QCOMPARE(translate(u"Hello"_s, u"English"_s, u"Deutsch"_s), u"Hallo"_s);

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

    QCOMPARE(translate(u"text"_s, u"English"_s, u"danish"_s), translation);
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
    QCOMPARE(translate(u"soup"_s, u"English"_s, u"german"_s), u"Error"_s);
    QCOMPARE(
        m_prompts->messages, QStringList { u"Cant use autoDetect to the language you want to translate."_s });
    QVERIFY(m_service->requests().isEmpty());
}

void WebTranslationClientTest::withoutAConnectionTheWordErrorComesBackUnlessItWasTheText()
{
    m_client->setConnectionCheck([](const QUrl&) { return false; });
    const QString noConnection = u"You need a internet Connection to be translate your text."_s;

    QCOMPARE(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), u"error"_s);
    QCOMPARE(m_prompts->messages, QStringList { noConnection });

    m_prompts->messages.clear();
    QCOMPARE(translate(u"error"_s, u"English"_s, u"Deutsch"_s), QString());
    QCOMPARE(
        m_prompts->messages, (QStringList { noConnection, u"Could  not  translate  the  text,  sorry "_s }));
    QVERIFY(m_service->requests().isEmpty());
}

void WebTranslationClientTest::withoutAServiceAddressNothingIsSent()
{
    qunsetenv("QUORVEL_TRANSLATE_URL");
    QCOMPARE(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), u"error"_s);
    QCOMPARE(m_prompts->messages.size(), 1);
    QVERIFY(m_prompts->messages.first().contains(u"QUORVEL_TRANSLATE_URL"_s));

    QSettings(u"QUORVEL"_s, u"QUORVEL"_s).setValue(u"Translation/Host"_s, m_service->address());
    m_service->serveResult("Suppe");
    QCOMPARE(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), u"Suppe"_s);
}

void WebTranslationClientTest::aPageWithoutTheMarkersGivesNothingAndSaysNothing()
{
    m_service->serve("<html><body>Service unavailable</body></html>");
    QCOMPARE(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), QString());
    m_service->serve("<div id=result_box><span title=\"soup\">Suppe</div>");
    QCOMPARE(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), QString());
    QVERIFY(m_prompts->messages.isEmpty());
    QCOMPARE(m_service->requests().size(), 2);
}

void WebTranslationClientTest::aConnectionClosedEarlyGivesWhatWasRead()
{
    m_service->serve("<div id=result_box><span title=\"soup\">Suppe</span></div>",
        LocalTranslationService::Answer::CutShort);
    QCOMPARE(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), u"Suppe"_s);

    m_service->serve(
        "<div id=result_box><span title=\"soup\">Sup", LocalTranslationService::Answer::CutShort);
    QCOMPARE(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), QString());
    QVERIFY(m_prompts->messages.isEmpty());
}

void WebTranslationClientTest::aServiceThatNeverAnswersIsLeftAtTheTimeLimit()
{
    m_service->serve(
        "<div id=result_box><span title=\"soup\">Suppe</span></div>", LocalTranslationService::Answer::Never);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(translate(u"soup"_s, u"English"_s, u"Deutsch"_s), QString());
    QVERIFY2(
        clock.elapsed() >= 450 && clock.elapsed() < 3000, QByteArray::number(clock.elapsed()).constData());
    QVERIFY(m_prompts->messages.isEmpty());
    QCOMPARE(m_service->requests().size(), 1);
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

void WebTranslationClientTest::theCommandLineEndsWithTheMessageWhenTranslationFails()
{
    CliRun run = runCli({ u"translate"_s, u"soup"_s, u"English"_s, u"german"_s });
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, u"quorvel-cli: Cant use autoDetect to the language you want to translate.\n"_s);

    m_service->serveResult("x &#abc; y");
    run = runCli({ u"translate"_s, u"soup"_s, u"English"_s, u"Deutsch"_s });
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.err, u"quorvel-cli: Type mismatch\n"_s);
}

QTEST_GUILESS_MAIN(WebTranslationClientTest)
#include "WebTranslationClientTest.moc"
