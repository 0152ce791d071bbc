#include "app/MainWindow.h"

#include "designer/PictureBox.h"
#include "support/DocumentDiff.h"
#include "support/ModalDialogDriver.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

class MainWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void firstStartMakesTheWorkingFolderAndShowsAnEmptyMenu();
    void titleAndMenuBarAreThoseOfTheDesigner();
    void timerTickWritesTheWorkingCopyEvenAfterANamedSave();
    void failedSavesAskOnceAndWarnUntilASaveSucceeds();
    void closingSavesAndTheNextStartShowsTheSameMenu();
    void exitClosesTheWindowAndKeepsTheWork();
    void aFaultEndsOnlyTheHandlerAndLosesNothingStored();
    void savedProjectOpensAgainWithTheAutosaveHeldDuringTheDialogs();
    void cancelledDialogsChangeNothing();
    void newEmptiesTheDocumentTheListsAndTheWorkingFolder();
    void expandTwiceGivesBackTheStartingLayout();
    void aClickOnAPageSideOpensBackgroundEffectsForThatSide();
    void pageKeysTurnThePages();

private:
    std::unique_ptr<MainWindow> startWindow();
    static void trigger(MainWindow& window, const char* action);
    static int listCount(MainWindow& window, const char* list);

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<ScriptedPrompts> m_prompts;
};

void MainWindowTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_prompts = std::make_unique<ScriptedPrompts>();
}

void MainWindowTest::cleanup()
{
    m_root.reset();
}

// What drawing page 1 of the rich menu writes back into it: its pictures are missing, so each is
// looked for in the project folder, and an empty page picture path takes the folder itself.
static void drawPageOne(MenuDocument& rich, const QString& projectFolder)
{
    rich.LineLayouts[lineSlot(1, 4)].picturePath = projectFolder + u"doces.jpg"_s;
    rich.PrintSettings.PageValueA[1] = projectFolder + u"capa.jpg"_s;
    rich.PrintSettings.PageValueB[1] = projectFolder;
}

std::unique_ptr<MainWindow> MainWindowTest::startWindow()
{
    auto window = std::make_unique<MainWindow>(*m_prompts);
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
    // Drawing page 1 puts the project folder before its empty picture paths, as for any path without one.
    PrintSettings expected;
    expected.PageValueA[1] = expected.PageValueB[1] = m_root->workingFolder() + u'/';
    QCOMPARE(document.PrintSettings, expected);
    QCOMPARE(document.LanguageTable.at(0, 1), QStringLiteral("Portugues"));

    const auto* timer = window->findChild<QTimer*>(QStringLiteral("Timer1"));
    QVERIFY(timer);
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 60000);
    QVERIFY(m_prompts->messages.isEmpty());
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
        QVERIFY2(action->isEnabled(), name);
    }
    QStringList menus;
    for (QAction* action : window->menuBar()->actions()) {
        menus.append(QString(action->text()).remove(u'&'));
    }
    QCOMPARE(menus,
        QStringList({ QStringLiteral("File"), QStringLiteral("Edit"), QStringLiteral("Import"),
            QStringLiteral("Send"), QStringLiteral("Receive"), QStringLiteral("Upgrade Firmware") }));
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

void MainWindowTest::failedSavesAskOnceAndWarnUntilASaveSucceeds()
{
    auto window = startWindow();
    auto* warning = window->findChild<QLabel*>(u"SaveWarning"_s);
    QVERIFY(warning && !warning->isVisible());

    // A working root below a plain file: the working folder cannot be made.
    const QString plainFile = m_root->path() + u"/plain"_s;
    writeBytes(plainFile, "x");
    const QByteArray workingRoot = qgetenv("QUORVEL_ROOT");
    qputenv("QUORVEL_ROOT", QFile::encodeName(plainFile));
    window->Timer1_Timer();
    window->Timer1_Timer();
    QCOMPARE(m_prompts->messages.size(), 1);
    QVERIFY2(m_prompts->messages.first().startsWith(u"The menu could not be saved in "_s
                 + QDir::toNativeSeparators(plainFile + u"/temp_orvik"_s)),
        qPrintable(m_prompts->messages.first()));
    QVERIFY(warning->isVisible());

    // A save the user asks for always says so, here into a folder that is not there.
    m_prompts->answers = { m_root->path() + u"/missing/summer.QV1"_s };
    window->Save_Click();
    QCOMPARE(m_prompts->messages.size(), 2);
    QVERIFY2(m_prompts->messages.last().contains(QDir::toNativeSeparators(m_root->path() + u"/missing: "_s)),
        qPrintable(m_prompts->messages.last()));

    // Closing keeps the unsaved menu open once, so that it can be saved elsewhere.
    window->close();
    QVERIFY(window->isVisible());
    QCOMPARE(m_prompts->messages.size(), 3);
    QVERIFY(m_prompts->messages.last().contains(u"close it again"_s));
    window->close();
    QVERIFY(!window->isVisible());

    qputenv("QUORVEL_ROOT", workingRoot);
    window->Timer1_Timer();
    QVERIFY(warning->isHidden());
    QCOMPARE(m_prompts->messages.size(), 3);
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
    drawPageOne(*original, m_root->workingFolder() + u'/');
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
    QCOMPARE(m_prompts->messages, QStringList { QStringLiteral("Subscript out of range") });
    QCOMPARE(readBytes(m_root->workingFile(QStringLiteral("_pludata.txt"))), saved);
    QVERIFY(window->isVisible());

    document.PluCount = 1;
    document.Plus[0].Price = QStringLiteral("1.10");
    window->Timer1_Timer();
    QCOMPARE(readBytes(m_root->workingFile(QStringLiteral("_pludata.txt"))),
        QByteArray("st1,1,,1,1.10,P\xe3o\r\n"));
    QCOMPARE(m_prompts->messages.size(), 1);
}

void MainWindowTest::trigger(MainWindow& window, const char* action)
{
    window.findChild<QAction*>(QLatin1StringView(action))->trigger();
}

int MainWindowTest::listCount(MainWindow& window, const char* list)
{
    return window.findChild<QListWidget*>(QLatin1StringView(list))->count();
}

void MainWindowTest::savedProjectOpensAgainWithTheAutosaveHeldDuringTheDialogs()
{
    auto window = startWindow();
    auto* timer = window->findChild<QTimer*>(QStringLiteral("Timer1"));
    QStringList timerStates;
    m_prompts->whilePrompting = [&] { timerStates.append(timer->isActive() ? u"running"_s : u"held"_s); };
    auto original = SampleDocuments::richMenu();
    window->document() = *original;
    const QString marker = m_root->path() + QStringLiteral("/summer.QV1");

    m_prompts->answers = QStringList { marker };
    trigger(*window, "Save");
    QCOMPARE(m_prompts->asked, QStringList { u"save: *.QV1"_s });
    QCOMPARE(readBytes(marker), QByteArray("OK\r\n"));
    QCOMPARE(window->document().FilePrefix, m_root->path() + u"/summer"_s);

    trigger(*window, "New");
    QCOMPARE(window->document().PluCount, 0);

    m_prompts->answers = QStringList { marker };
    trigger(*window, "Load");
    QCOMPARE(timerStates, QStringList({ u"held"_s, u"held"_s }));
    QVERIFY(timer->isActive());
    original->FilePrefix = m_root->path() + u"/summer"_s;
    original->ProjectFolder = m_root->path() + u'/';
    drawPageOne(*original, original->ProjectFolder);
    QCOMPARE(firstDifference(*original, window->document()), QString());
    // Every product whose number is above 0 is listed; so are the modifier lists.
    QCOMPARE(listCount(*window, "Lista_plus"), 6);
    QCOMPARE(listCount(*window, "List1"), 2);
    QCOMPARE(listCount(*window, "Lista_Todos_Def_Comp"), 2);
}

void MainWindowTest::cancelledDialogsChangeNothing()
{
    auto window = startWindow();
    window->document() = *SampleDocuments::richMenu();
    window->Refresh_Page();
    const auto before = std::make_unique<MenuDocument>(window->document());

    trigger(*window, "Load");
    trigger(*window, "Save");
    QCOMPARE(m_prompts->asked, QStringList({ u"open: *.QV1"_s, u"save: *.QV1"_s }));
    QCOMPARE(firstDifference(*before, window->document()), QString());
    QCOMPARE(listCount(*window, "Lista_plus"), 6);
    QVERIFY(window->findChild<QTimer*>(QStringLiteral("Timer1"))->isActive());
}

void MainWindowTest::newEmptiesTheDocumentTheListsAndTheWorkingFolder()
{
    auto window = startWindow();
    window->document() = *SampleDocuments::richMenu();
    window->Refresh_Page();
    window->Timer1_Timer();
    QVERIFY(!QDir(m_root->workingFolder()).isEmpty(QDir::Files));

    trigger(*window, "New");

    QVERIFY(QDir(m_root->workingFolder()).isEmpty(QDir::Files));
    const MenuDocument& document = window->document();
    QCOMPARE(document.PluCount, 0);
    QCOMPARE(document.AssignmentCount, 0);
    QCOMPARE(document.LinePlu[0], 0);
    QCOMPARE(document.LanguageTable.at(0, 1), QString());
    QCOMPARE(document.PagesVersion, u"1"_s);
    for (const char* list :
        { "Lista_plus", "List1", "Lista_def_complementos", "Lista_Todos_Def_Comp", "Lista_Complementos" }) {
        QCOMPARE(listCount(*window, list), 0);
    }
    QCOMPARE(window->findChild<QLabel*>(QStringLiteral("Page"))->text(), u"1"_s);
    QCOMPARE(window->findChild<QLineEdit*>(QStringLiteral("Linhas_0"))->text(), QString());
    QCOMPARE(window->findChild<QLineEdit*>(QStringLiteral("Price_1"))->text(), QString());
}

// Every control of the page with its place, and whether the modifier panel shows.
static QStringList pageLayout(MainWindow& window)
{
    QStringList layout;
    auto* page = window.findChild<QWidget*>(u"PageView"_s);
    for (const QWidget* control : page->findChildren<QWidget*>()) {
        const QRect r = control->geometry();
        layout.append(u"%1 %2,%3 %4x%5"_s.arg(control->objectName())
                          .arg(r.x())
                          .arg(r.y())
                          .arg(r.width())
                          .arg(r.height()));
    }
    layout.append(u"PageView %1x%2"_s.arg(page->width()).arg(page->height()));
    layout.append(
        u"Frame2 "_s + (window.findChild<QWidget*>(u"Frame2"_s)->isVisible() ? u"shown"_s : u"hidden"_s));
    return layout;
}

void MainWindowTest::expandTwiceGivesBackTheStartingLayout()
{
    auto window = startWindow();
    auto* expand = window->findChild<QPushButton*>(u"Expand"_s);
    auto* row = window->findChild<QLineEdit*>(u"Linhas_0"_s);
    auto* frame2 = window->findChild<QWidget*>(u"Frame2"_s);
    auto* page = window->findChild<QWidget*>(u"PageView"_s);
    QVERIFY(frame2->isVisible());
    const QStringList before = pageLayout(*window);
    const int rowWidth = row->width();
    const int pageWidth = page->width();

    expand->click();
    QVERIFY(!frame2->isVisible());
    QCOMPARE(row->width(), rowWidth + 153);
    QCOMPARE(page->width(), pageWidth + 200);
    QVERIFY(pageLayout(*window) != before);

    expand->click();
    QVERIFY(frame2->isVisible());
    QCOMPARE(pageLayout(*window), before);
    QVERIFY(m_prompts->messages.isEmpty());
}

void MainWindowTest::aClickOnAPageSideOpensBackgroundEffectsForThatSide()
{
    auto window = startWindow();
    const QString frontColor = window->document().PrintSettings.PageColorA[1];
    ModalDialogDriver driver;
    QString caption;
    m_prompts->answers = QStringList { u"255"_s };
    driver.onNextDialog([&](QDialog& dialog) {
        caption = dialog.windowTitle();
        dialog.findChild<QPushButton*>(u"Command1"_s)->click();
        dialog.findChild<QPushButton*>(u"Command3"_s)->click();
    });
    QTest::mouseClick(window->findChild<QWidget*>(u"Picture2"_s), Qt::LeftButton, {}, QPoint(4, 4));
    QVERIFY(driver.acted());
    QVERIFY(!driver.leftOpen());
    QCOMPARE(caption, u"Background effects"_s);
    QCOMPARE(window->side(), 2);
    QCOMPARE(window->document().PrintSettings.PageColorB[1], u"255"_s);
    QCOMPARE(window->document().PrintSettings.PageColorA[1], frontColor);
    QCOMPARE(window->findChild<PictureBox*>(u"Picture2"_s)->color(), QColor(Qt::red));

    // a row is not the side: it opens nothing and leaves the side as it was
    QTest::mouseClick(window->findChild<QWidget*>(u"Linhas_2"_s), Qt::LeftButton);
    QCOMPARE(window->side(), 2);
    driver.onNextDialog([](QDialog& dialog) { dialog.accept(); });
    QTest::mouseClick(window->findChild<QWidget*>(u"Picture1"_s), Qt::LeftButton, {}, QPoint(4, 4));
    QVERIFY(driver.acted());
    QCOMPARE(window->side(), 1);
}

void MainWindowTest::pageKeysTurnThePages()
{
    auto window = startWindow();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    auto* page = window->findChild<QLabel*>(u"Page"_s);
    auto* row = window->findChild<QLineEdit*>(u"Linhas_4"_s);
    row->setFocus();
    QTest::keyClick(row, Qt::Key_PageDown);
    QCOMPARE(page->text(), u"2"_s);
    // The focus went to the button, as with a click, so that the row was left first.
    QCOMPARE(QApplication::focusWidget()->objectName(), u"Command15"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
    QCOMPARE(page->text(), u"3"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageUp);
    QCOMPARE(page->text(), u"2"_s);

    // The catalogue keeps Page Up and Page Down for its list; with Ctrl they turn the page from there too.
    auto* list = window->findChild<QListWidget*>(u"Lista_plus"_s);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_PageDown);
    QCOMPARE(page->text(), u"2"_s);
    QTest::keyClick(list, Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(page->text(), u"3"_s);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(page->text(), u"2"_s);
}

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
