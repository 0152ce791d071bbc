#include "LocalTranslationService.h"
#include "support/ScriptedPrompts.h"
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

    void theTestDialogTranslatesBetweenTheListedLanguages();
    void theTestDialogShowsWhatFailedAndKeepsGoing();
    void theServiceDialogKeepsOnlyAUsableAddress();
    void theEnvironmentWinsOverTheSavedAddress();

private:
    template<typename Control>
    static Control* control(const QWidget& window, const QString& name);
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

template<typename Control>
Control* TranslationDialogsTest::control(const QWidget& window, const QString& name)
{
    auto* found = window.findChild<Control*>(name);
    if (!found) {
        qFatal("no control %s", qPrintable(name));
    }
    return found;
}

QString TranslationDialogsTest::translateIn(
    TranslationTestDialog& dialog, const QString& source, const QString& target, const QString& text)
{
    control<QComboBox>(dialog, u"Combo1"_s)->setCurrentText(source);
    control<QComboBox>(dialog, u"Combo2"_s)->setCurrentText(target);
    control<QPlainTextEdit>(dialog, u"Text1"_s)->setPlainText(text);
    QTest::mouseClick(control<QPushButton>(dialog, u"Command1"_s), Qt::LeftButton);
    return control<QPlainTextEdit>(dialog, u"Text2"_s)->toPlainText();
}

void TranslationDialogsTest::theTestDialogTranslatesBetweenTheListedLanguages()
{
    LocalTranslationService service;
    QSettings(u"QUORVEL"_s, u"QUORVEL"_s).setValue(u"Translation/Host"_s, service.address());
    service.serveResult("to &lt;br&gt;linjer");
    TranslationTestDialog dialog(*m_prompts);

    const QStringList offered { u"none"_s, u"Urdu"_s, u"Persian"_s, u"Arabic"_s, u"Hindi"_s, u"bulgarsk"_s,
        u"danish"_s, u"English"_s, u"finsk"_s, u"french"_s, u"greek"_s, u"dutch"_s, u"italian"_s,
        u"japansk"_s, u"kinisisk"_s, u"norwegian"_s, u"polish"_s, u"portuguese"_s, u"romanian"_s,
        u"russian"_s, u"spanish"_s, u"swedish"_s, u"czech"_s, u"german"_s, u"detect"_s };
    for (const QString& name : { u"Combo1"_s, u"Combo2"_s }) {
        auto* list = control<QComboBox>(dialog, name);
        QStringList names;
        for (int i = 0; i < list->count(); ++i) {
            names.append(list->itemText(i));
        }
        QCOMPARE(names, offered);
    }
    QVERIFY(dialog.testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(dialog.windowOpacity(), 245.0 / 255.0);

    // The box's line break goes out as CR LF; the break in the result comes back as a line.
    QCOMPARE(translateIn(dialog, u"English"_s, u"danish"_s, u"two\nlines"_s), u"to\nlinjer"_s);
    QCOMPARE(service.lastRequestLine(), "GET /translate_t?sl=en&tl=da&text=two%0D%0Alines HTTP/1.1"_ba);
    QVERIFY(m_prompts->messages.isEmpty());
}

void TranslationDialogsTest::theTestDialogShowsWhatFailedAndKeepsGoing()
{
    LocalTranslationService service;
    qputenv("QUORVEL_TRANSLATE_URL", service.address().toUtf8());
    TranslationTestDialog dialog(*m_prompts);
    service.serveResult("soep");
    QCOMPARE(translateIn(dialog, u"English"_s, u"dutch"_s, u"soup"_s), u"soep"_s);

    // an earlier translation is not left standing for one that failed
    QCOMPARE(translateIn(dialog, u"English"_s, u"german"_s, u"soup"_s), QString());
    QCOMPARE(
        m_prompts->messages, QStringList { u"Cant use autoDetect to the language you want to translate."_s });

    service.serveResult("&#x41;");
    QCOMPARE(translateIn(dialog, u"English"_s, u"dutch"_s, u"soup"_s), QString());
    QCOMPARE(m_prompts->messages.last(), u"Type mismatch"_s);

    service.serveResult("soep");
    QCOMPARE(translateIn(dialog, u"English"_s, u"dutch"_s, u"soup"_s), u"soep"_s);
}

void TranslationDialogsTest::theServiceDialogKeepsOnlyAUsableAddress()
{
    TranslationService::saveAddress(u"http://old.example:81"_s);
    {
        TranslationServiceDialog dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        auto* address = control<QLineEdit>(dialog, u"ServiceAddress"_s);
        auto* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
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
    control<QLineEdit>(dialog, u"ServiceAddress"_s)->clear();
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
    QCOMPARE(control<QLineEdit>(dialog, u"ServiceAddress"_s)->text(), u"http://saved.example/"_s);
    QVERIFY(control<QWidget>(dialog, u"EnvironmentNote"_s)->isVisibleTo(&dialog));
}

QTEST_MAIN(TranslationDialogsTest)
#include "TranslationDialogsTest.moc"
