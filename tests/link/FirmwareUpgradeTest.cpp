#include "app/MainWindow.h"
#include "document/Fault.h"
#include "link/RunShell.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"

#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The stand-in tool: exit_after_delay CODE DELAY_MS [ENDED_FILE].
const QString StandIn = QStringLiteral(QUORVEL_EXIT_AFTER_DELAY_PATH);
QString standInCommand(const QString& path, int code, int delayMs, const QString& endedFile = {})
{
    const QString command = u"\"%1\" %2 %3"_s.arg(path).arg(code).arg(delayMs);
    return endedFile.isEmpty() ? command : QString(command + u" \"%1\""_s.arg(endedFile));
}

// When the stand-in ended, in milliseconds since the epoch.
qint64 endTime(const QString& endedFile)
{
    return readBytes(endedFile).toLongLong();
}

struct Outcome
{
    std::int32_t code = -1;
    bool endedByTheQuit = false; // the wait went on until the application was asked to quit
};

// Runs the command from the application's own event loop, as a menu command does, and quits the
// application `quitAfterMs` into the wait.
Outcome runUntilQuit(const QString& command, int quitAfterMs)
{
    Outcome outcome;
    bool quitAsked = false;
    QTimer::singleShot(0, [&] {
        outcome.code = RunShell(command);
        outcome.endedByTheQuit = quitAsked;
    });
    QTimer::singleShot(quitAfterMs, [&quitAsked] {
        quitAsked = true;
        QCoreApplication::exit();
    });
    QCoreApplication::exec();
    return outcome;
}

QString toolBesideTheDesigner()
{
    return QCoreApplication::applicationDirPath() + u"/UpgradeOrvik.exe"_s;
}

} // namespace

class FirmwareUpgradeTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aToolInAFolderWithBlanksRunsAndGivesItsCode();
    void theWaitHandlesEventsAndEndsAfterTheTool();
    void aMissingToolIsAFaultNamingIt();
    void aToolEndingAboveOneIsWaitedForUntilTheApplicationQuits();
    void quittingDuringTheWaitLeavesTheToolRunning();
    void upgradeWithoutTheToolSaysWhichFileIsMissingAndCanBeRunAgain();
    void whileTheToolRunsTheCommandIsHeldAndTheStatusBarSaysWhy();

private:
    std::unique_ptr<MainWindow> startWindow();

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<ScriptedPrompts> m_prompts;
};

void FirmwareUpgradeTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_prompts = std::make_unique<ScriptedPrompts>();
}

void FirmwareUpgradeTest::cleanup()
{
    m_root.reset();
}

std::unique_ptr<MainWindow> FirmwareUpgradeTest::startWindow()
{
    auto window = std::make_unique<MainWindow>(*m_prompts);
    window->show();
    return window;
}

void FirmwareUpgradeTest::aToolInAFolderWithBlanksRunsAndGivesItsCode()
{
    // given
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir(u"upgrade tool"_s));
    const QString tool = dir.path() + u"/upgrade tool/UpgradeOrvik.exe"_s;
    QVERIFY(QFile::copy(StandIn, tool));

    // when
    const std::int32_t code = RunShell(standInCommand(tool, 0, 0));

    // then
    QCOMPARE(code, 0);
}

void FirmwareUpgradeTest::theWaitHandlesEventsAndEndsAfterTheTool()
{
    // given
    QTemporaryDir dir;
    const QString endedFile = dir.filePath(u"ended"_s);
    int ticks = 0;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, this, [&ticks] { ++ticks; });
    ticker.start(50);

    // when
    const std::int32_t code = RunShell(standInCommand(StandIn, 1, 1500, endedFile));
    const qint64 returnedAt = QDateTime::currentMSecsSinceEpoch();

    // then: the wait ended after the tool, and the timer ran while it waited.
    QCOMPARE(code, 1);
    QVERIFY2(returnedAt >= endTime(endedFile), qPrintable(QString::number(returnedAt - endTime(endedFile))));
    QVERIFY(ticks > 0);
}

void FirmwareUpgradeTest::aMissingToolIsAFaultNamingIt()
{
    QTemporaryDir dir;
    const QString tool = dir.filePath(u"UpgradeOrvik.exe"_s);
    try {
        RunShell(standInCommand(tool, 0, 0));
        QFAIL("a missing tool was started");
    } catch (const Fault& fault) {
        QVERIFY2(fault.message().startsWith(u"Cannot start \"%1\": "_s.arg(QDir::toNativeSeparators(tool))),
            qPrintable(fault.message()));
    }
}

void FirmwareUpgradeTest::aToolEndingAboveOneIsWaitedForUntilTheApplicationQuits()
{
    // The tool ends at once, but its code 2 reads as still running.
    const Outcome outcome = runUntilQuit(standInCommand(StandIn, 2, 0), 1200);
    QCOMPARE(outcome.code, 2);
    QVERIFY(outcome.endedByTheQuit);
}

void FirmwareUpgradeTest::quittingDuringTheWaitLeavesTheToolRunning()
{
    QTemporaryDir dir;
    const QString endedFile = dir.filePath(u"ended"_s);
    const Outcome outcome = runUntilQuit(standInCommand(StandIn, 0, 1000, endedFile), 300);
    QCOMPARE(outcome.code, 259);
    QVERIFY(outcome.endedByTheQuit);
    QVERIFY(!QFile::exists(endedFile));
    // The tool goes on to its own end.
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(endedFile), 5000);
}

void FirmwareUpgradeTest::upgradeWithoutTheToolSaysWhichFileIsMissingAndCanBeRunAgain()
{
    // given
    QFile::remove(toolBesideTheDesigner());
    auto window = startWindow();
    auto* upgrade = window->findChild<QAction*>(u"UpgradeFirmware"_s);
    QVERIFY(upgrade->isEnabled());

    // when
    upgrade->trigger();
    upgrade->trigger();

    // then
    QCOMPARE(m_prompts->messages.size(), 2);
    QVERIFY2(m_prompts->messages.first().contains(u"UpgradeOrvik.exe\": "_s),
        qPrintable(m_prompts->messages.first()));
    QVERIFY(upgrade->isEnabled());
    QCOMPARE(window->statusBar()->currentMessage(), QString());
}

void FirmwareUpgradeTest::whileTheToolRunsTheCommandIsHeldAndTheStatusBarSaysWhy()
{
    // given: the stand-in, run without arguments, ends at once with code 0
    QVERIFY(QFile::copy(StandIn, toolBesideTheDesigner()));
    const auto removeTool = qScopeGuard([] { QFile::remove(toolBesideTheDesigner()); });
    auto window = startWindow();
    auto* upgrade = window->findChild<QAction*>(u"UpgradeFirmware"_s);
    bool enabledWhileWaiting = true;
    QString messageWhileWaiting;
    QTimer::singleShot(0, window.get(), [&] {
        enabledWhileWaiting = upgrade->isEnabled();
        messageWhileWaiting = window->statusBar()->currentMessage();
    });

    // when
    upgrade->trigger();

    // then
    QVERIFY(!enabledWhileWaiting);
    QVERIFY2(messageWhileWaiting.contains(u"upgrade tool"_s), qPrintable(messageWhileWaiting));
    QVERIFY(upgrade->isEnabled());
    QCOMPARE(window->statusBar()->currentMessage(), QString());
    QVERIFY(m_prompts->messages.isEmpty());
}

QTEST_MAIN(FirmwareUpgradeTest)
#include "FirmwareUpgradeTest.moc"
