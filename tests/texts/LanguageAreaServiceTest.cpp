#include "LocalTranslationService.h"
#include "document/MenuDocument.h"
#include "support/WidgetFixture.h"
#include "texts/LanguageArea.h"
#include "texts/WebTranslationClient.h"

#include <QComboBox>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(LocalTranslationService::Answer)

// "Auto" and "Translate All" against a stand-in service that fails in the ways a real one does.
class LanguageAreaServiceTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aFailedTranslationKeepsTheTexts_data();
    void aFailedTranslationKeepsTheTexts();
    void translateAllTellsEachReasonOnce();
    void cancelStopsAHangingRequestAndKeepsTheTexts();

private:
    void openArea(std::chrono::milliseconds timeLimit);
    QStringList texts() const;

    const QStringList m_typed { u"Sopa"_s, u"Soup"_s, u"Zuppa mia"_s, QString(), u"Meine Suppe"_s };
    std::unique_ptr<QTemporaryDir> m_settings;
    std::unique_ptr<LocalTranslationService> m_service;
    std::unique_ptr<MenuDocument> m_document;
    std::unique_ptr<ScriptedPrompts> m_prompts;
    std::unique_ptr<WebTranslationClient> m_client;
    std::unique_ptr<LanguageArea> m_area;
};

void LanguageAreaServiceTest::init()
{
    m_settings = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings->path());
    m_service = std::make_unique<LocalTranslationService>();
    qputenv("QUORVEL_TRANSLATE_URL", m_service->address().toUtf8());
    m_document = std::make_unique<MenuDocument>();
    const QStringList names { u"Portugues"_s, u"English"_s, u"Italiano"_s, u"Frances"_s, u"Deutsch"_s };
    for (int row = 0; row < LanguageArea::Rows; ++row) {
        m_document->LanguageTable.at(TextKey::LanguageNames, row + 1) = names[row];
    }
    m_prompts = std::make_unique<ScriptedPrompts>();
}

void LanguageAreaServiceTest::cleanup()
{
    m_area.reset();
    m_client.reset();
    m_service.reset();
    qunsetenv("QUORVEL_TRANSLATE_URL");
}

// The time limit is ample for a service on this machine and short for one that never answers.
void LanguageAreaServiceTest::openArea(std::chrono::milliseconds timeLimit)
{
    m_client = std::make_unique<WebTranslationClient>(timeLimit);
    m_area = std::make_unique<LanguageArea>(*m_document, *m_prompts, *m_client, u"Command5"_s);
    LanguageArea::Texts typed;
    std::copy(m_typed.begin(), m_typed.end(), typed.begin());
    m_area->load(typed);
    m_area->show();
}

QStringList LanguageAreaServiceTest::texts() const
{
    QStringList shown;
    for (int row = 0; row < LanguageArea::Rows; ++row) {
        shown.append(m_area->text(row));
    }
    return shown;
}

void LanguageAreaServiceTest::aFailedTranslationKeepsTheTexts_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<LocalTranslationService::Answer>("answer");
    QTest::addColumn<QString>("reason");

    const QByteArray result = "<div id=result_box><span title=\"x\">Zuppa</span></div>";
    QTest::newRow("no result in the page")
        << "<html>busy</html>"_ba << LocalTranslationService::Answer::WholePage << u"without a translation"_s;
    QTest::newRow("not HTTP") << "\x01garbage"_ba << LocalTranslationService::Answer::NotHttp
                              << u"failed: "_s;
    QTest::newRow("never answers") << result << LocalTranslationService::Answer::Never << u"did not answer"_s;
    QTest::newRow("a result that does not decode")
        << "<div id=result_box><span title=\"x\">&#abc;</span></div>"_ba
        << LocalTranslationService::Answer::WholePage << u"Type mismatch"_s;
}

void LanguageAreaServiceTest::aFailedTranslationKeepsTheTexts()
{
    QFETCH(QByteArray, page);
    QFETCH(LocalTranslationService::Answer, answer);
    QFETCH(QString, reason);
    openArea(2s);
    QSignalSpy stored(m_area.get(), &LanguageArea::textChanged);

    m_service->serve(page, answer);
    QVERIFY(trigger(*m_area, u"Command4_2"_s));
    QVERIFY(trigger(*m_area, u"Command4_4"_s));

    QCOMPARE(texts(), m_typed);
    QCOMPARE(stored.count(), 0);
    QCOMPARE(m_prompts->messages.size(), 2);
    QVERIFY2(m_prompts->messages.first().contains(reason), qPrintable(m_prompts->messages.first()));

    // once the service answers, the translation replaces the text and is stored
    m_service->serveResult("Zuppa");
    QVERIFY(trigger(*m_area, u"Command4_2"_s));
    QCOMPARE(m_area->text(2), u"Zuppa"_s);
    QCOMPARE(stored.count(), 1);
}

void LanguageAreaServiceTest::translateAllTellsEachReasonOnce()
{
    openArea(2s);
    m_client->setConnectionCheck([](const QUrl&) { return false; });
    QVERIFY(trigger(*m_area, u"Command5"_s));
    QCOMPARE(
        m_prompts->messages, QStringList { u"You need a internet Connection to be translate your text."_s });
    QCOMPARE(texts(), m_typed);

    // a target the service cannot be asked for is told once as well, and the rest still go out
    m_prompts->messages.clear();
    m_client->setConnectionCheck([](const QUrl&) { return true; });
    m_service->serve("<html>busy</html>");
    QComboBox* language = nullptr;
    QVERIFY(find(*m_area, u"Lingua_3"_s, language));
    language->setCurrentText(u"french"_s);
    m_area->textBox(3)->setText(u"ma soupe"_s);
    QVERIFY(trigger(*m_area, u"Command5"_s));
    QCOMPARE(m_prompts->messages.size(), 2);
    QCOMPARE(m_prompts->messages.count(u"Cant use autoDetect to the language you want to translate."_s), 1);
    QCOMPARE(m_service->requests().size(), 3);
    QCOMPARE(m_area->text(3), u"ma soupe"_s);
    QCOMPARE(m_area->text(4), m_typed[4]);
}

void LanguageAreaServiceTest::cancelStopsAHangingRequestAndKeepsTheTexts()
{
    // given a service that never answers, and a time limit that a working Cancel never reaches
    openArea(60s);
    m_service->serve("", LocalTranslationService::Answer::Never);
    QString shownLabel;
    Qt::WindowModality shownModality = Qt::NonModal;
    QTimer lookForProgress;
    connect(&lookForProgress, &QTimer::timeout, this, [&] {
        auto* progress = m_area->findChild<QProgressDialog*>();
        if (!progress || !progress->isVisible()) {
            return;
        }
        lookForProgress.stop();
        shownLabel = progress->labelText();
        shownModality = progress->windowModality();
        auto* cancel = progress->findChild<QPushButton*>();
        QVERIFY(cancel);
        cancel->click();
    });
    lookForProgress.start(10);

    QVERIFY(trigger(*m_area, u"Command5"_s));

    // then the first request was shown and cancelled, and no other language was asked for
    QVERIFY2(shownLabel.contains(u"\"Sopa\""_s) && shownLabel.contains(u"English"_s), qPrintable(shownLabel));
    QCOMPARE(shownModality, Qt::WindowModal);
    QVERIFY(m_prompts->messages.isEmpty());
    QCOMPARE(texts(), m_typed);
    QCOMPARE(m_service->requests().size(), 1);
    QVERIFY(!m_area->findChild<QProgressDialog*>());
}

QTEST_MAIN(LanguageAreaServiceTest)
#include "LanguageAreaServiceTest.moc"
