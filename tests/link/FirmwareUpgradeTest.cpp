#include "app/MainWindow.h"
#include "document/Fault.h"
#include "link/RunShell.h"
#include "support/WidgetFixture.h"

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
    void upgradeHoldsTheCommandWhileTheToolRunsAndNamesAMissingTool();

private:
    std::unique_ptr<WindowFixture> m_fixture;
};

void FirmwareUpgradeTest::init()
{
    m_fixture = std::make_unique<WindowFixture>();
}

void FirmwareUpgradeTest::cleanup()
{
    m_fixture.reset();
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
    // The tool outlasts the quit by seconds, so that a busy machine still quits first.
    const Outcome outcome = runUntilQuit(standInCommand(StandIn, 0, 3000, endedFile), 100);
    QCOMPARE(outcome.code, 259);
    QVERIFY(outcome.endedByTheQuit);
    QVERIFY(!QFile::exists(endedFile));
    // The tool goes on to its own end.
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(endedFile), 60000);
}

void FirmwareUpgradeTest::upgradeHoldsTheCommandWhileTheToolRunsAndNamesAMissingTool()
{
    // given: the stand-in, run without arguments, ends at once with code 0
    QVERIFY(QFile::copy(StandIn, toolBesideTheDesigner()));
    auto removeTool = qScopeGuard([] { QFile::remove(toolBesideTheDesigner()); });
    QVERIFY(m_fixture->startWindow());
    MainWindow& window = *m_fixture->window;
    QAction* upgrade = nullptr;
    QVERIFY(find(window, u"UpgradeFirmware"_s, upgrade));
    bool enabledWhileWaiting = true;
    QString messageWhileWaiting;
    QTimer::singleShot(0, &window, [&] {
        enabledWhileWaiting = upgrade->isEnabled();
        messageWhileWaiting = window.statusBar()->currentMessage();
    });

    upgrade->trigger();
    QVERIFY(!enabledWhileWaiting);
    QVERIFY2(messageWhileWaiting.contains(u"upgrade tool"_s), qPrintable(messageWhileWaiting));
    QVERIFY(upgrade->isEnabled());
    QCOMPARE(window.statusBar()->currentMessage(), QString());
    QVERIFY(m_fixture->prompts.messages.isEmpty());

    // Without the tool the message names the missing file, and the command can be run again.
    removeTool.dismiss();
    QVERIFY(QFile::remove(toolBesideTheDesigner()));
    upgrade->trigger();
    upgrade->trigger();
    QCOMPARE(m_fixture->prompts.messages.size(), 2);
    QVERIFY2(m_fixture->prompts.messages.first().contains(u"UpgradeOrvik.exe\": "_s),
        qPrintable(m_fixture->prompts.messages.first()));
    QVERIFY(upgrade->isEnabled());
    QCOMPARE(window.statusBar()->currentMessage(), QString());
}

QTEST_MAIN(FirmwareUpgradeTest)
#include "FirmwareUpgradeTest.moc"
