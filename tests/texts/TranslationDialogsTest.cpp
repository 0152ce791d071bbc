#include "LocalTranslationService.h"
#include "support/WidgetFixture.h"
#include "texts/TranslationService.h"
#include "texts/TranslationServiceDialog.h"
#include "texts/TranslationTestDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class TranslationDialogsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theTestDialogTranslatesAndShowsWhatFailed();
    void theServiceDialogKeepsOnlyAUsableAddress();
    void theEnvironmentWinsOverTheSavedAddress();

private:
    // The translation shown, or what is missing.
    static QString translateIn(
        TranslationTestDialog& dialog, const QString& source, const QString& target, const QString& text);

    std::unique_ptr<QTemporaryDir> m_settings;
    std::unique_ptr<ScriptedPrompts> m_prompts;
};

void TranslationDialogsTest::init()
{
    m_settings = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings->path());
    qunsetenv("QUORVEL_TRANSLATE_URL");
    m_prompts = std::make_unique<ScriptedPrompts>();
}

void TranslationDialogsTest::cleanup()
{
    qunsetenv("QUORVEL_TRANSLATE_URL");
}

QString TranslationDialogsTest::translateIn(
    TranslationTestDialog& dialog, const QString& source, const QString& target, const QString& text)
{
    QComboBox *sources = nullptr, *targets = nullptr;
    QPlainTextEdit *from = nullptr, *to = nullptr;
    if (!find(dialog, u"Combo1"_s, sources) || !find(dialog, u"Combo2"_s, targets)
        || !find(dialog, u"Text1"_s, from) || !find(dialog, u"Text2"_s, to)) {
        return u"missing"_s;
    }
    sources->setCurrentText(source);
    targets->setCurrentText(target);
    from->setPlainText(text);
    return trigger(dialog, u"Command1"_s) ? to->toPlainText() : u"missing"_s;
}

void TranslationDialogsTest::theTestDialogTranslatesAndShowsWhatFailed()
{
    LocalTranslationService service;
    QSettings(u"QUORVEL"_s, u"QUORVEL"_s).setValue(u"Translation/Host"_s, service.address());
    TranslationTestDialog dialog(*m_prompts);
    QVERIFY(dialog.testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(dialog.windowOpacity(), 245.0 / 255.0);

    // The box's line break goes out as CR LF; the break in the result comes back as a line.
    service.serveResult("to &lt;br&gt;linjer");
    QCOMPARE(translateIn(dialog, u"English"_s, u"danish"_s, u"two\nlines"_s), u"to\nlinjer"_s);
    QCOMPARE(service.lastRequestLine(), "GET /translate_t?sl=en&tl=da&text=two%0D%0Alines HTTP/1.1"_ba);
    QVERIFY(m_prompts->messages.isEmpty());

    // An earlier translation is not left standing for one that failed.
    QCOMPARE(translateIn(dialog, u"English"_s, u"german"_s, u"soup"_s), QString());
    QCOMPARE(
        m_prompts->messages, QStringList { u"Cant use autoDetect to the language you want to translate."_s });
    service.serveResult("&#x41;");
    QCOMPARE(translateIn(dialog, u"English"_s, u"dutch"_s, u"soup"_s), QString());
    QCOMPARE(m_prompts->messages.last(), u"Type mismatch"_s);
}

void TranslationDialogsTest::theServiceDialogKeepsOnlyAUsableAddress()
{
    TranslationService::saveAddress(u"http://old.example:81"_s);
    {
        TranslationServiceDialog dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QLineEdit* address = nullptr;
        QVERIFY(find(dialog, u"ServiceAddress"_s, address));
        QDialogButtonBox* buttons = dialog.findChild<QDialogButtonBox*>();
        QVERIFY(buttons);
        QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
        QCOMPARE(address->text(), u"http://old.example:81"_s);

        address->clear();
        QTest::keyClicks(address, u"ftp://files.example"_s);
        QVERIFY(!ok->isEnabled());
        address->setText(u" http://127.0.0.1:8080 "_s);
        QVERIFY(ok->isEnabled());
        QTest::keyClick(address, Qt::Key_Return);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }
    QCOMPARE(TranslationService::savedAddress(), u"http://127.0.0.1:8080"_s);

    TranslationServiceDialog dialog;
    QLineEdit* address = nullptr;
    QVERIFY(find(dialog, u"ServiceAddress"_s, address));
    address->clear();
    dialog.accept();
    QVERIFY(!QSettings(u"QUORVEL"_s, u"QUORVEL"_s).contains(u"Translation/Host"_s));
    QCOMPARE(TranslationService::address(), QString());
}

void TranslationDialogsTest::theEnvironmentWinsOverTheSavedAddress()
{
    TranslationService::saveAddress(u"http://saved.example/"_s);
    QCOMPARE(TranslationService::address(), u"http://saved.example"_s);

    qputenv("QUORVEL_TRANSLATE_URL", "http://127.0.0.1:9000");
    QCOMPARE(TranslationService::address(), u"http://127.0.0.1:9000"_s);
    TranslationServiceDialog dialog;
    QCOMPARE(shownText(dialog, u"ServiceAddress"_s), u"http://saved.example/"_s);
    QWidget* note = nullptr;
    QVERIFY(find(dialog, u"EnvironmentNote"_s, note));
    QVERIFY(note->isVisibleTo(&dialog));
}

QTEST_MAIN(TranslationDialogsTest)
#include "TranslationDialogsTest.moc"
