#include "app/MainWindow.h"

#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"

#include <QAction>
#include <QDir>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

class MainWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void firstStartMakesTheWorkingFolderAndShowsAnEmptyMenu();
    void titleAndMenuBarAreThoseOfTheDesigner();
    void timerTickWritesTheWorkingCopyEvenAfterANamedSave();
    void closingSavesAndTheNextStartShowsTheSameMenu();
    void exitClosesTheWindowAndKeepsTheWork();
    void aFaultEndsOnlyTheHandlerAndLosesNothingStored();

private:
    std::unique_ptr<MainWindow> startWindow();

    std::unique_ptr<TestWorkingRoot> m_root;
    ScriptedPrompts m_prompts;
};

void MainWindowTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_prompts.messages.clear();
}

void MainWindowTest::cleanup()
{
    m_root.reset();
}

std::unique_ptr<MainWindow> MainWindowTest::startWindow()
{
    auto window = std::make_unique<MainWindow>(m_prompts);
    window->show();
    return window;
}

void MainWindowTest::firstStartMakesTheWorkingFolderAndShowsAnEmptyMenu()
{
    QVERIFY(!QDir(m_root->workingFolder()).exists());
    auto window = startWindow();
    QVERIFY(QDir(m_root->workingFolder()).exists());
    const MenuDocument& document = window->document();
    QCOMPARE(document.PluCount, 0);
    QCOMPARE(document.FilePrefix, m_root->workingFolder() + QStringLiteral("/temp"));
    QCOMPARE(document.PrintSettings, PrintSettings());
    QCOMPARE(document.LanguageTable.at(0, 1), QStringLiteral("Portugues"));

    const auto* timer = window->findChild<QTimer*>(QStringLiteral("Timer1"));
    QVERIFY(timer);
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 60000);
    QVERIFY(m_prompts.messages.isEmpty());
}

void MainWindowTest::titleAndMenuBarAreThoseOfTheDesigner()
{
    auto window = startWindow();
    const QStringList version = QStringLiteral(QUORVEL_VERSION).split(u'.');
    QCOMPARE(window->windowTitle(),
        QStringLiteral("Orvik Quorvel %1. %2. %3 - Menu Designer").arg(version[0], version[1], version[2]));

    const QList<std::pair<const char*, const char*>> items = {
        { "Load", "Load" },
        { "Save", "Save" },
        { "New", "New" },
        { "Print", "Print" },
        { "Colors", "Colors" },
        { "Exit", "Exit" },
        { "ImportFromDll", "Import From Last Sended Plus" },
        { "ImportFenwarXls", "Import From Fenwar ( XLS)" },
        { "ImportFromXls", "Import From XLS" },
        { "ImportCSV", "Import From CSV" },
        { "SendAll", "Send" },
        { "Receive", "Receive" },
        { "UpgradeFirmware", "Upgrade Firmware" },
    };
    for (const auto& [name, caption] : items) {
        const auto* action = window->findChild<QAction*>(QLatin1StringView(name));
        QVERIFY2(action, name);
        QCOMPARE(QString(action->text()).remove(u'&'), QLatin1StringView(caption));
        QCOMPARE(action->isEnabled(), qstrcmp(name, "Exit") == 0);
    }
    QStringList menus;
    for (QAction* action : window->menuBar()->actions()) {
        menus.append(QString(action->text()).remove(u'&'));
    }
    QCOMPARE(menus,
        QStringList({ QStringLiteral("File"), QStringLiteral("Import"), QStringLiteral("Send"),
            QStringLiteral("Receive"), QStringLiteral("Upgrade Firmware") }));
}

void MainWindowTest::timerTickWritesTheWorkingCopyEvenAfterANamedSave()
{
    auto window = startWindow();
    MenuDocument& document = window->document();
    SampleDocuments::addPlu(
        document, QStringLiteral("42"), QStringLiteral("Sopa do dia"), QStringLiteral("3.50"));
    const QString named = m_root->path() + QStringLiteral("/named");
    document.FilePrefix = named;

    // The timer itself fires the save: shorten its minute to see it happen.
    window->findChild<QTimer*>(QStringLiteral("Timer1"))->setInterval(10);
    QTRY_VERIFY(QFile::exists(m_root->workingFile(QStringLiteral("_pludata.txt"))));

    QCOMPARE(document.FilePrefix, m_root->workingFolder() + QStringLiteral("/temp"));
    QCOMPARE(readBytes(m_root->workingFile(QStringLiteral("_pludata.txt"))),
        QByteArray("st1,42,,42,3.50,Sopa do dia\r\n"));
    QVERIFY(!QFile::exists(named + QStringLiteral("_pludata.txt")));
}

void MainWindowTest::closingSavesAndTheNextStartShowsTheSameMenu()
{
    auto original = SampleDocuments::richMenu();
    {
        auto window = startWindow();
        MenuDocument& document = window->document();
        document = *original;
        window->close();
        QVERIFY(!window->isVisible());
    }
    QVERIFY(QFile::exists(m_root->workingFile(QStringLiteral("_Languages.txt"))));

    auto window = startWindow();
    const MenuDocument& loaded = window->document();
    QCOMPARE(loaded.PluCount, original->PluCount);
    QCOMPARE(loaded.Plus[1], original->Plus[1]);
    QCOMPARE(loaded.Assignments[0], original->Assignments[0]);
    QCOMPARE(loaded.LineLayouts[4], original->LineLayouts[4]);
    QCOMPARE(loaded.LanguageTable.at(1002, 3), original->LanguageTable.at(1002, 3));
    QCOMPARE(loaded.PagesVersion, QStringLiteral("1"));
    QCOMPARE(loaded.PrintSettings, original->PrintSettings);
}

void MainWindowTest::exitClosesTheWindowAndKeepsTheWork()
{
    auto window = startWindow();
    SampleDocuments::addPlu(
        window->document(), QStringLiteral("7"), QStringLiteral("Bolo"), QStringLiteral("2"));
    auto* exit = window->findChild<QAction*>(QStringLiteral("Exit"));
    exit->trigger();
    QVERIFY(!window->isVisible());
    QCOMPARE(
        readBytes(m_root->workingFile(QStringLiteral("_pludata.txt"))), QByteArray("st1,7,,7,2,Bolo\r\n"));
}

void MainWindowTest::aFaultEndsOnlyTheHandlerAndLosesNothingStored()
{
    auto window = startWindow();
    MenuDocument& document = window->document();
    SampleDocuments::addPlu(document, QStringLiteral("1"), QStringLiteral("Pão"), QStringLiteral("1"));
    window->Timer1_Timer();
    const QByteArray saved = readBytes(m_root->workingFile(QStringLiteral("_pludata.txt")));

    // A count past the table's end makes the next autosave reach outside the catalogue.
    document.PluCount = Limits::PluCapacity + 1;
    window->Timer1_Timer();
    QCOMPARE(m_prompts.messages, QStringList { QStringLiteral("Subscript out of range") });
    QCOMPARE(readBytes(m_root->workingFile(QStringLiteral("_pludata.txt"))), saved);
    QVERIFY(window->isVisible());

    document.PluCount = 1;
    document.Plus[0].Price = QStringLiteral("1.10");
    window->Timer1_Timer();
    QCOMPARE(readBytes(m_root->workingFile(QStringLiteral("_pludata.txt"))),
        QByteArray("st1,1,,1,1.10,P\xe3o\r\n"));
    QCOMPARE(m_prompts.messages.size(), 1);
}

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
