#include "link/ReceptionWindow.h"

#include "app/MainWindow.h"
#include "link/DravlinkLibrary.h"
#include "link/PortSetting.h"
#include "link/TransmissionSession.h"
#include "support/SimulatedLink.h"
#include "support/WidgetFixture.h"

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

// How orders are read and laid out is the order reception's logic tests' and the receive command's;
// here the window is seen to open and close the port and show what arrives.
class ReceptionWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void ordersShowWhileThePortIsOpenAndThePortIsKept();
    void everyWayOfClosingTheWindowClosesThePortOnce();
    void aMissingLibraryIsReportedAndThePortStaysClosed();
    void receiveOpensOneWindowThatClosesWithTheMainWindow();

private:
    std::unique_ptr<ReceptionWindow> openWindow();
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

QString ReceptionWindowTest::portState(const ReceptionWindow& window)
{
    QPushButton *open = nullptr, *close = nullptr;
    QTimer* timer = nullptr;
    if (!find(window, u"Command1"_s, open) || !find(window, u"Command2"_s, close)
        || !find(window, u"Timer1"_s, timer)) {
        return u"missing"_s;
    }
    if (!open->isEnabled() && close->isEnabled() && timer->isActive()) {
        return u"open"_s;
    }
    if (open->isEnabled() && !close->isEnabled() && !timer->isActive()) {
        return u"closed"_s;
    }
    return u"mixed: Command1 %1, Command2 %2, Timer1 %3"_s.arg(open->isEnabled())
        .arg(close->isEnabled())
        .arg(timer->isActive());
}

void ReceptionWindowTest::ordersShowWhileThePortIsOpenAndThePortIsKept()
{
    PortSetting::save(u"4"_s);
    m_simulator->setOrders("7 12 1001 2 55 10\n3 4 8 1\n");
    auto window = openWindow();
    QLineEdit* port = nullptr;
    QPlainTextEdit* list = nullptr;
    QVERIFY(find(*window, u"Text2"_s, port));
    QVERIFY(find(*window, u"Plist"_s, list));
    QCOMPARE(port->text(), u"4"_s);
    window->Timer1_Timer(); // the port is closed: nothing is asked for
    QCOMPARE(m_simulator->count("menu_receive"), 0);

    // Only a result above 0 is a refusal, which says nothing.
    qputenv("DRAVLINK_SIM_INIT_RESULT", "3");
    QVERIFY(trigger(*window, u"Command1"_s));
    QCOMPARE(portState(*window), u"closed"_s);
    qputenv("DRAVLINK_SIM_INIT_RESULT", "-1");

    // Typing the port and pressing Enter opens it; nothing is asked for while a session runs.
    port->clear();
    QTest::keyClicks(port, u"5"_s);
    QTest::keyClick(port, Qt::Key_Return);
    QCOMPARE(portState(*window), u"open"_s);
    {
        const TransmissionSession session;
        window->Timer1_Timer();
        QCOMPARE(m_simulator->count("menu_receive"), 0);
    }
    QCOMPARE(PortSetting::saved(), u"5"_s);
    QTRY_COMPARE(shownText(*window, u"TerminalNo"_s), u"3"_s); // the next order replaces the last one
    QCOMPARE(shownText(*window, u"Table"_s), u"4"_s);
    QCOMPARE(list->toPlainText(), u"PLU                  QTY\n8                    1\n"_s);
    QCOMPARE(list->font().family(), u"Courier New"_s);
    // Where Courier New is missing, what stands in must still line the columns up.
    const QFontMetrics metrics(list->font());
    QCOMPARE(metrics.horizontalAdvance(u"iiii"_s), metrics.horizontalAdvance(u"WWWW"_s));
    QCOMPARE(m_simulator->calls().at(1), linkCall("radio_init", { 5, 1, 65000 }));

    QVERIFY(trigger(*window, u"Command2"_s));
    QCOMPARE(portState(*window), u"closed"_s);
    QCOMPARE(m_simulator->calls().last(), linkCall("radio_close"));
    QVERIFY(m_prompts->messages.isEmpty());
}

void ReceptionWindowTest::everyWayOfClosingTheWindowClosesThePortOnce()
{
    const QList<std::pair<QString, std::function<void(ReceptionWindow&)>>> ways = {
        { u"close"_s, [](ReceptionWindow& window) { window.close(); } },
        { u"title bar"_s, [](ReceptionWindow& window) { window.windowHandle()->close(); } },
        { u"Close Window"_s, [](ReceptionWindow& window) { QVERIFY(trigger(window, u"Command3"_s)); } },
        { u"Escape"_s, [](ReceptionWindow& window) { QTest::keyClick(&window, Qt::Key_Escape); } },
    };
    qsizetype expected = 0;
    for (const auto& [way, closeWindow] : ways) {
        for (const bool opened : { false, true }) {
            auto window = openWindow();
            if (opened) {
                QVERIFY(trigger(*window, u"Command1"_s));
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

void ReceptionWindowTest::aMissingLibraryIsReportedAndThePortStaysClosed()
{
    qputenv("QUORVEL_DRAVLINK", QFile::encodeName(m_simulator->filePath(u"missing.so"_s)));
    auto window = openWindow();
    QVERIFY(trigger(*window, u"Command1"_s));
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
    WindowFixture fixture;
    QVERIFY(fixture.startWindow());
    MainWindow& main = *fixture.window;
    QVERIFY(trigger(main, u"Receive"_s));
    auto* reception = main.findChild<ReceptionWindow*>();
    QVERIFY(reception && reception->isVisible());
    QVERIFY(!reception->isModal());
    QVERIFY(trigger(main, u"Receive"_s));
    QCOMPARE(main.findChildren<ReceptionWindow*>().size(), 1);

    QVERIFY(trigger(*reception, u"Command1"_s));
    main.close();
    QVERIFY(!reception->isVisible());
    QCOMPARE(m_simulator->count("radio_close"), 1);
    QVERIFY(fixture.prompts.messages.isEmpty());
}

QTEST_MAIN(ReceptionWindowTest)
#include "ReceptionWindowTest.moc"
