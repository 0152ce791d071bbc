#include "app/MainWindow.h"
#include "document/Fault.h"
#include "link/RunShell.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"

#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QScopeGuard>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <ctime>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The stand-in tool: exit_after_delay CODE DELAY_MS [ENDED_FILE].
const QString StandIn = QStringLiteral(QUORVEL_EXIT_AFTER_DELAY_PATH);
constexpr qint64 PauseMs = 500;
// How late a busy test machine may be on top of a half-second pause.
constexpr qint64 SlackMs = 400;

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

double cpuSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

struct Outcome
{
    std::int32_t code = -1;
    qint64 elapsedMs = -1;
};

// Runs the command from the application's own event loop, as a menu command does, and quits the
// application `quitAfterMs` into the wait.
Outcome runUntilQuit(const QString& command, int quitAfterMs)
{
    Outcome outcome;
    QTimer::singleShot(0, [&] {
        QElapsedTimer clock;
        clock.start();
        outcome.code = RunShell(command);
        outcome.elapsedMs = clock.elapsed();
    });
    QTimer::singleShot(quitAfterMs, [] { QCoreApplication::exit(); });
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

    void aToolInAFolderWithBlanksThatEndsAtOnceEndsTheWaitWithinOnePause();
    void theWaitHandlesEventsWithoutSpinningAndEndsSoonAfterTheTool();
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

void FirmwareUpgradeTest::aToolInAFolderWithBlanksThatEndsAtOnceEndsTheWaitWithinOnePause()
{
    // given
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir(u"upgrade tool"_s));
    const QString tool = dir.path() + u"/upgrade tool/UpgradeOrvik.exe"_s;
    QVERIFY(QFile::copy(StandIn, tool));

    // when
    QElapsedTimer clock;
    clock.start();
    const std::int32_t code = RunShell(standInCommand(tool, 0, 0));

    // then
    QCOMPARE(code, 0);
    QVERIFY2(clock.elapsed() <= PauseMs + SlackMs, qPrintable(QString::number(clock.elapsed())));
}

void FirmwareUpgradeTest::theWaitHandlesEventsWithoutSpinningAndEndsSoonAfterTheTool()
{
    // given
    QTemporaryDir dir;
    const QString endedFile = dir.filePath(u"ended"_s);
    int ticks = 0;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, this, [&ticks] { ++ticks; });
    ticker.start(50);

    // when
    QElapsedTimer clock;
    clock.start();
    const double cpuBefore = cpuSeconds();
    const std::int32_t code = RunShell(standInCommand(StandIn, 1, 1500, endedFile));
    const qint64 returnedAt = QDateTime::currentMSecsSinceEpoch();
    const double cpuUsed = cpuSeconds() - cpuBefore;
    const qint64 elapsedMs = clock.elapsed();

    // then
    QCOMPARE(code, 1);
    const qint64 lateBy = returnedAt - endTime(endedFile);
    QVERIFY2(lateBy >= 0 && lateBy <= PauseMs + SlackMs, qPrintable(QString::number(lateBy)));
    QVERIFY2(ticks >= elapsedMs / 100, qPrintable(QString::number(ticks)));
    // Waiting costs next to nothing: a loop spinning on the exit code would use a whole core.
    QVERIFY2(cpuUsed < 0.25 * static_cast<double>(elapsedMs) / 1000, qPrintable(QString::number(cpuUsed)));
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
    QVERIFY2(outcome.elapsedMs >= 1100, qPrintable(QString::number(outcome.elapsedMs)));
}

void FirmwareUpgradeTest::quittingDuringTheWaitLeavesTheToolRunning()
{
    QTemporaryDir dir;
    const QString endedFile = dir.filePath(u"ended"_s);
    const Outcome outcome = runUntilQuit(standInCommand(StandIn, 0, 1000, endedFile), 300);
    QCOMPARE(outcome.code, 259);
    QVERIFY2(outcome.elapsedMs < 300 + SlackMs, qPrintable(QString::number(outcome.elapsedMs)));
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
