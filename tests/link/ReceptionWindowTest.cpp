#include "link/ReceptionWindow.h"

#include "app/MainWindow.h"
#include "link/DravlinkLibrary.h"
#include "link/PortSetting.h"
#include "link/TransmissionSession.h"
#include "support/ScriptedPrompts.h"
#include "support/SimulatedLink.h"
#include "support/TestWorkingRoot.h"

#include <QAction>
#include <QFontMetrics>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

class ReceptionWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void ordersFillTheFieldsAndTheListUnderItsHeading();
    void openAndCloseSwitchTheButtonsAndTheTimerAndKeepThePort();
    void aRefusedOpenChangesNothingAndSaysNothing();
    void everyWayOfClosingTheWindowClosesThePortOnce();
    void theTimerAsksForNothingWhileThePortIsClosedOrASessionRuns();
    void aMissingLibraryIsReportedAndThePortStaysClosed();
    void receiveOpensOneWindowThatClosesWithTheMainWindow();

private:
    std::unique_ptr<ReceptionWindow> openWindow();
    template<typename Control>
    static Control* control(const QWidget& window, const QString& name);
    // "open" or "closed", as the buttons and the timer show the port, with the timer's state.
    static QString portState(const ReceptionWindow& window);

    std::unique_ptr<QTemporaryDir> m_settings;
    std::unique_ptr<SimulatedLink> m_simulator;
    std::unique_ptr<ScriptedPrompts> m_prompts;
    std::unique_ptr<DravlinkLibrary> m_link;
};

void ReceptionWindowTest::init()
{
    m_settings = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings->path());
    m_simulator = std::make_unique<SimulatedLink>();
    m_prompts = std::make_unique<ScriptedPrompts>();
    m_link = std::make_unique<DravlinkLibrary>();
}

void ReceptionWindowTest::cleanup()
{
    m_link.reset();
    m_simulator.reset();
}

std::unique_ptr<ReceptionWindow> ReceptionWindowTest::openWindow()
{
    auto window = std::make_unique<ReceptionWindow>(*m_link, *m_prompts);
    window->show();
    return window;
}

template<typename Control>
Control* ReceptionWindowTest::control(const QWidget& window, const QString& name)
{
    auto* found = window.findChild<Control*>(name);
    if (!found) {
        qFatal("no control %s", qPrintable(name));
    }
    return found;
}

QString ReceptionWindowTest::portState(const ReceptionWindow& window)
{
    const bool command1 = control<QPushButton>(window, u"Command1"_s)->isEnabled();
    const bool command2 = control<QPushButton>(window, u"Command2"_s)->isEnabled();
    const bool timer = control<QTimer>(window, u"Timer1"_s)->isActive();
    if (!command1 && command2 && timer) {
        return u"open"_s;
    }
    if (command1 && !command2 && !timer) {
        return u"closed"_s;
    }
    return u"mixed: Command1 %1, Command2 %2, Timer1 %3"_s.arg(command1).arg(command2).arg(timer);
}

void ReceptionWindowTest::ordersFillTheFieldsAndTheListUnderItsHeading()
{
    m_simulator->setOrders("7 12 1001 2 55 10 12345678 3\n3 4 8 1\n");
    auto window = openWindow();
    QCOMPARE(window->windowTitle(), u"Reception mode test"_s);
    auto* terminal = control<QLineEdit>(*window, u"TerminalNo"_s);
    auto* table = control<QLineEdit>(*window, u"Table"_s);
    auto* list = control<QPlainTextEdit>(*window, u"Plist"_s);
    control<QLineEdit>(*window, u"Text2"_s)->setText(u"5"_s);
    control<QPushButton>(*window, u"Command1"_s)->click();

    QTRY_COMPARE(terminal->text(), u"7"_s);
    QCOMPARE(table->text(), u"12"_s);
    QCOMPARE(list->toPlainText().split(u'\n'),
        QStringList({ u"PLU                  QTY"_s, u"1001                 2"_s,
            u"55                   10"_s, u"12345678             3"_s, QString() }));

    // The next order replaces the last one.
    QTRY_COMPARE(terminal->text(), u"3"_s);
    QCOMPARE(table->text(), u"4"_s);
    QCOMPARE(list->toPlainText(), u"PLU                  QTY\n8                    1\n"_s);
    QCOMPARE(list->font().family(), u"Courier New"_s);
    // Where Courier New is missing, what stands in must still line the columns up.
    const QFontMetrics metrics(list->font());
    QCOMPARE(metrics.horizontalAdvance(u"1111"_s), metrics.horizontalAdvance(u"    "_s));
    QCOMPARE(metrics.horizontalAdvance(u"iiii"_s), metrics.horizontalAdvance(u"WWWW"_s));

    const QStringList calls = m_simulator->calls();
    QCOMPARE(calls.first(), linkCall("radio_init", { 5, 1, 65000 }));
    QCOMPARE(calls.at(1), linkCall("menu_receive", { 64 }));
    QVERIFY(m_prompts->messages.isEmpty());
}

void ReceptionWindowTest::openAndCloseSwitchTheButtonsAndTheTimerAndKeepThePort()
{
    PortSetting::save(u"4"_s);
    auto window = openWindow();
    auto* port = control<QLineEdit>(*window, u"Text2"_s);
    QCOMPARE(port->text(), u"4"_s);
    QCOMPARE(portState(*window), u"closed"_s);

    // Typing the port and pressing Enter opens it.
    port->clear();
    QTest::keyClicks(port, u"6"_s);
    QTest::keyClick(port, Qt::Key_Return);
    QCOMPARE(portState(*window), u"open"_s);
    QCOMPARE(PortSetting::saved(), u"6"_s);
    QCOMPARE(m_simulator->calls().last(), linkCall("radio_init", { 6, 1, 65000 }));

    control<QPushButton>(*window, u"Command2"_s)->click();
    QCOMPARE(portState(*window), u"closed"_s);
    QCOMPARE(m_simulator->calls().last(), linkCall("radio_close"));

    window->close();
    QCOMPARE(openWindow()->findChild<QLineEdit*>(u"Text2"_s)->text(), u"6"_s);
}

void ReceptionWindowTest::aRefusedOpenChangesNothingAndSaysNothing()
{
    auto window = openWindow();
    qputenv("DRAVLINK_SIM_INIT_RESULT", "3");
    control<QPushButton>(*window, u"Command1"_s)->click();
    QCOMPARE(m_simulator->count("radio_init"), 1);
    QCOMPARE(portState(*window), u"closed"_s);
    QVERIFY(m_prompts->messages.isEmpty());

    // Only a result above 0 is a refusal.
    qputenv("DRAVLINK_SIM_INIT_RESULT", "-1");
    control<QPushButton>(*window, u"Command1"_s)->click();
    QCOMPARE(portState(*window), u"open"_s);
}

void ReceptionWindowTest::everyWayOfClosingTheWindowClosesThePortOnce()
{
    const QList<std::pair<QString, std::function<void(ReceptionWindow&)>>> ways = {
        { u"close"_s, [](ReceptionWindow& window) { window.close(); } },
        { u"title bar"_s, [](ReceptionWindow& window) { window.windowHandle()->close(); } },
        { u"Close Window"_s,
            [](ReceptionWindow& window) { control<QPushButton>(window, u"Command3"_s)->click(); } },
        { u"Escape"_s, [](ReceptionWindow& window) { QTest::keyClick(&window, Qt::Key_Escape); } },
    };
    qsizetype expected = 0;
    for (const auto& [way, closeWindow] : ways) {
        for (const bool opened : { false, true }) {
            auto window = openWindow();
            if (opened) {
                control<QPushButton>(*window, u"Command1"_s)->click();
            }
            closeWindow(*window);
            ++expected;
            QVERIFY2(!window->isVisible(), qPrintable(way));
            QCOMPARE(m_simulator->count("radio_close"), expected);
            QCOMPARE(portState(*window), u"closed"_s);
        }
    }
    QVERIFY(m_prompts->messages.isEmpty());
}

void ReceptionWindowTest::theTimerAsksForNothingWhileThePortIsClosedOrASessionRuns()
{
    m_simulator->setOrders("1 2 3 4\n");
    auto window = openWindow();
    window->Timer1_Timer();
    QCOMPARE(m_simulator->count("menu_receive"), 0);

    control<QPushButton>(*window, u"Command1"_s)->click();
    {
        const TransmissionSession session;
        window->Timer1_Timer();
        QCOMPARE(m_simulator->count("menu_receive"), 0);
    }
    window->Timer1_Timer();
    QCOMPARE(m_simulator->count("menu_receive"), 1);
    QCOMPARE(control<QLineEdit>(*window, u"TerminalNo"_s)->text(), u"1"_s);

    control<QPushButton>(*window, u"Command2"_s)->click();
    window->Timer1_Timer();
    QCOMPARE(m_simulator->count("menu_receive"), 1);
}

void ReceptionWindowTest::aMissingLibraryIsReportedAndThePortStaysClosed()
{
    qputenv("QUORVEL_DRAVLINK", QFile::encodeName(m_simulator->filePath(u"missing.so"_s)));
    auto window = openWindow();
    control<QPushButton>(*window, u"Command1"_s)->click();
    QCOMPARE(m_prompts->messages.size(), 1);
    QVERIFY2(m_prompts->messages.first().startsWith(u"The radio link library \"Dravlink\" cannot be loaded"),
        qPrintable(m_prompts->messages.first()));
    QCOMPARE(portState(*window), u"closed"_s);

    // Closing still asks the library to close the port, and is not held up when that fails.
    window->close();
    QVERIFY(!window->isVisible());
    QCOMPARE(m_prompts->messages.size(), 2);
}

void ReceptionWindowTest::receiveOpensOneWindowThatClosesWithTheMainWindow()
{
    const TestWorkingRoot root;
    MainWindow main(*m_prompts);
    main.show();
    auto* receive = main.findChild<QAction*>(u"Receive"_s);
    QVERIFY(receive->isEnabled());
    receive->trigger();
    auto* reception = main.findChild<ReceptionWindow*>();
    QVERIFY(reception && reception->isVisible());
    QVERIFY(!reception->isModal());
    receive->trigger();
    QCOMPARE(main.findChildren<ReceptionWindow*>().size(), 1);

    control<QPushButton>(*reception, u"Command1"_s)->click();
    main.close();
    QVERIFY(!reception->isVisible());
    QCOMPARE(m_simulator->count("radio_close"), 1);
    QVERIFY(m_prompts->messages.isEmpty());
}

QTEST_MAIN(ReceptionWindowTest)
#include "ReceptionWindowTest.moc"
