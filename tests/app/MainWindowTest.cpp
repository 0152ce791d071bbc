#include "app/MainWindow.h"

#include "support/DocumentDiff.h"
#include "support/ModalDialogDriver.h"
#include "support/SampleDocuments.h"
#include "support/WidgetFixture.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

class MainWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture = std::make_unique<WindowFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void firstStartShowsAnEmptyMenuAndTheTimerSavesTheWorkingCopy();
    void failedSavesAskOnceAndWarnUntilASaveSucceeds();
    void savedMenuComesBackThroughLoadAndTheNextStart();
    void aFaultEndsOnlyTheHandlerAndLosesNothingStored();
    void rowsListsAndKeysReachTheDocument();

private:
    MainWindow& window() { return *m_fixture->window; }
    ScriptedPrompts& prompts() { return m_fixture->prompts; }
    const TestWorkingRoot& root() { return m_fixture->root; }

    std::unique_ptr<WindowFixture> m_fixture;
};

// What drawing page 1 of the rich menu writes back into it: its pictures are missing, so each is
// looked for in the project folder, and an empty page picture path takes the folder itself.
static void drawPageOne(MenuDocument& rich, const QString& projectFolder)
{
    rich.LineLayouts[lineSlot(1, 4)].picturePath = projectFolder + u"doces.jpg"_s;
    rich.PrintSettings.PageValueA[1] = projectFolder + u"capa.jpg"_s;
    rich.PrintSettings.PageValueB[1] = projectFolder;
}

void MainWindowTest::firstStartShowsAnEmptyMenuAndTheTimerSavesTheWorkingCopy()
{
    QVERIFY(!QDir(root().workingFolder()).exists());
    QVERIFY(m_fixture->startWindow());
    QCOMPARE(window().windowTitle(),
        u"Orvik Quorvel %1. %2. %3 - Menu Designer"_s.arg(QUORVEL_VERSION_MAJOR)
            .arg(QUORVEL_VERSION_MINOR)
            .arg(QUORVEL_VERSION_PATCH));
    MenuDocument& document = window().document();
    QCOMPARE(document.PluCount, 0);
    QCOMPARE(document.LanguageTable.at(0, 1), u"Portugues"_s);
    PrintSettings expected;
    expected.PageValueA[1] = expected.PageValueB[1] = root().workingFolder() + u'/';
    QCOMPARE(document.PrintSettings, expected);

    // The timer saves the working copy every minute, even after a save under another name.
    QTimer* timer = nullptr;
    QVERIFY(find(window(), u"Timer1"_s, timer));
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 60000);
    SampleDocuments::addPlu(document, u"42"_s, u"Sopa do dia"_s, u"3.50"_s);
    document.FilePrefix = root().path() + u"/named"_s;
    timer->setInterval(10);
    QTRY_VERIFY(QFile::exists(root().workingFile(u"_pludata.txt"_s)));
    QCOMPARE(document.FilePrefix, root().workingFolder() + u"/temp"_s);
    QCOMPARE(readBytes(root().workingFile(u"_pludata.txt"_s)), QByteArray("st1,42,,42,3.50,Sopa do dia\r\n"));
    QVERIFY(prompts().messages.isEmpty());
}

void MainWindowTest::failedSavesAskOnceAndWarnUntilASaveSucceeds()
{
    QVERIFY(m_fixture->startWindow());
    QLabel* warning = nullptr;
    QVERIFY(find(window(), u"SaveWarning"_s, warning));
    QVERIFY(warning->isHidden());

    // A working root below a plain file: the working folder cannot be made.
    const QString plainFile = root().path() + u"/plain"_s;
    writeBytes(plainFile, "x");
    const QByteArray workingRoot = qgetenv("QUORVEL_ROOT");
    qputenv("QUORVEL_ROOT", QFile::encodeName(plainFile));
    window().Timer1_Timer();
    window().Timer1_Timer();
    QCOMPARE(prompts().messages.size(), 1);
    QVERIFY2(prompts().messages.first().startsWith(u"The menu could not be saved in "_s
                 + QDir::toNativeSeparators(plainFile + u"/temp_orvik"_s)),
        qPrintable(prompts().messages.first()));
    QVERIFY(warning->isVisible());

    // A save the user asks for always says so, here into a folder that is not there.
    prompts().answers = { root().path() + u"/missing/summer.QV1"_s };
    window().Save_Click();
    QCOMPARE(prompts().messages.size(), 2);
    QVERIFY(prompts().messages.last().contains(QDir::toNativeSeparators(root().path() + u"/missing: "_s)));

    // Closing keeps the unsaved menu open once, so that it can be saved elsewhere.
    window().close();
    QVERIFY(window().isVisible());
    QVERIFY(prompts().messages.last().contains(u"close it again"_s));
    window().close();
    QVERIFY(!window().isVisible());

    qputenv("QUORVEL_ROOT", workingRoot);
    window().Timer1_Timer();
    QVERIFY(warning->isHidden());
    QCOMPARE(prompts().messages.size(), 3);
}

void MainWindowTest::savedMenuComesBackThroughLoadAndTheNextStart()
{
    QVERIFY(m_fixture->startWindow());
    QTimer* timer = nullptr;
    QListWidget* products = nullptr;
    QVERIFY(find(window(), u"Timer1"_s, timer));
    QVERIFY(find(window(), u"Lista_plus"_s, products));
    QStringList timerStates;
    prompts().whilePrompting = [&] { timerStates.append(timer->isActive() ? u"running"_s : u"held"_s); };
    auto original = SampleDocuments::richMenu();
    window().document() = *original;
    const QString marker = root().path() + u"/summer.QV1"_s;

    QVERIFY(trigger(window(), u"Save"_s)); // cancelled: nothing is written
    QVERIFY(!QFile::exists(marker));
    prompts().answers = QStringList { marker };
    QVERIFY(trigger(window(), u"Save"_s));
    QCOMPARE(readBytes(marker), QByteArray("OK\r\n"));

    // New empties the menu, its lists and the working folder.
    window().Timer1_Timer();
    QVERIFY(trigger(window(), u"New"_s));
    QCOMPARE(window().document().PluCount, 0);
    QCOMPARE(products->count(), 0);
    QVERIFY(QDir(root().workingFolder()).isEmpty(QDir::Files));

    QVERIFY(trigger(window(), u"Load"_s)); // cancelled: nothing changes
    QCOMPARE(window().document().PluCount, 0);
    prompts().answers = QStringList { marker };
    QVERIFY(trigger(window(), u"Load"_s));
    QCOMPARE(prompts().asked,
        QStringList({ u"save: *.QV1"_s, u"save: *.QV1"_s, u"open: *.QV1"_s, u"open: *.QV1"_s }));
    QCOMPARE(timerStates, QStringList(4, u"held"_s));
    QVERIFY(timer->isActive());
    original->FilePrefix = root().path() + u"/summer"_s;
    original->ProjectFolder = root().path() + u'/';
    drawPageOne(*original, original->ProjectFolder);
    QCOMPARE(firstDifference(*original, window().document()), QString());
    QCOMPARE(products->count(), 6);

    // Exit saves the working copy, which the next start shows.
    QVERIFY(trigger(window(), u"Exit"_s));
    QVERIFY(!window().isVisible());
    QVERIFY(m_fixture->startWindow());
    original->FilePrefix = root().workingFolder() + u"/temp"_s;
    original->ProjectFolder = root().workingFolder() + u'/';
    drawPageOne(*original, original->ProjectFolder);
    original->PagesVersion = u"1"_s;
    QCOMPARE(firstDifference(*original, window().document()), QString());
    QVERIFY(prompts().messages.isEmpty());
}

void MainWindowTest::aFaultEndsOnlyTheHandlerAndLosesNothingStored()
{
    QVERIFY(m_fixture->startWindow());
    MenuDocument& document = window().document();
    SampleDocuments::addPlu(document, u"1"_s, u"Pão"_s, u"1"_s);
    window().Timer1_Timer();
    const QByteArray saved = readBytes(root().workingFile(u"_pludata.txt"_s));

    // A count past the table's end makes the next autosave reach outside the catalogue.
    document.PluCount = Limits::PluCapacity + 1;
    window().Timer1_Timer();
    QCOMPARE(prompts().messages, QStringList { u"Subscript out of range"_s });
    QCOMPARE(readBytes(root().workingFile(u"_pludata.txt"_s)), saved);

    document.PluCount = 1;
    document.Plus[0].Price = u"1.10"_s;
    window().Timer1_Timer();
    QCOMPARE(readBytes(root().workingFile(u"_pludata.txt"_s)), QByteArray("st1,1,,1,1.10,P\xe3o\r\n"));
    QCOMPARE(prompts().messages.size(), 1);
}

// The rules of rows, lists and pages are the logic tests'; here each control is seen to reach them.
void MainWindowTest::rowsListsAndKeysReachTheDocument()
{
    QVERIFY(m_fixture->startWindow());
    MenuDocument& document = window().document();
    SampleDocuments::addPlu(document, u"101"_s, u"Sopa"_s, u"3.00"_s);
    SampleDocuments::addPlu(document, u"102"_s, u"Bitoque"_s, u"9.50"_s);
    document.Assignments[document.AssignmentCount++].Key = u"Sopa"_s;
    window().Refresh_Page();
    window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window()));
    QLineEdit *row2 = nullptr, *row3 = nullptr, *price2 = nullptr, *back9 = nullptr;
    QListWidget* products = nullptr;
    QToolButton* bind = nullptr;
    QLabel* page = nullptr;
    QVERIFY(find(window(), u"Linhas_2"_s, row2));
    QVERIFY(find(window(), u"Linhas_3"_s, row3));
    QVERIFY(find(window(), u"Price_2"_s, price2));
    QVERIFY(find(window(), u"LinhasVerso_9"_s, back9));
    QVERIFY(find(window(), u"Lista_plus"_s, products));
    QVERIFY(find(window(), u"Command12_0"_s, bind));
    QVERIFY(find(window(), u"Page"_s, page));

    // A name typed on a row makes the product when the row is left; a price typed beside it is its price.
    row2->setFocus();
    QTest::keyClicks(row2, u"Arroz"_s);
    QCOMPARE(document.PluCount, 2);
    row3->setFocus();
    QCOMPARE(document.Plus[2].Description, u"Arroz"_s);
    QCOMPARE(document.LinePlu[2], 103);
    price2->setFocus();
    QTest::keyClicks(price2, u"7.00"_s);
    row3->setFocus();
    QCOMPARE(document.Plus[2].Price, u"7.00"_s);
    QLineEdit* price5 = nullptr; // a row without a product stores no price
    QVERIFY(find(window(), u"Price_5"_s, price5));
    price5->setFocus();
    QTest::keyClicks(price5, u"8.00"_s);
    row3->setFocus();
    QCOMPARE(document.Plus[0].Price + document.Plus[1].Price + document.Plus[2].Price, u"3.009.507.00"_s);

    // The binding button lays out the product chosen in the catalogue and moves the choice on; typing
    // over the product renames it in the catalogue too.
    products->setCurrentRow(0);
    bind->click();
    QCOMPARE(document.LinePlu[0], 101);
    QCOMPARE(products->currentRow(), 1);
    QLineEdit* row0 = nullptr;
    QVERIFY(find(window(), u"Linhas_0"_s, row0));
    row0->setFocus();
    row0->selectAll();
    QTest::keyClicks(row0, u"Sopa do dia"_s);
    QCOMPARE(document.Plus[0].Description, u"Sopa do dia"_s);
    QCOMPARE(products->item(0)->text(), u"Sopa do dia"_s);
    QListWidget* withModifiers = nullptr;
    QVERIFY(find(window(), u"List1"_s, withModifiers));
    QCOMPARE(withModifiers->item(0)->text(), u"Sopa do dia"_s);
    products->setCurrentRow(products->count() - 1); // on the last entry the choice stays
    bind->click();
    QCOMPARE(document.LinePlu[0], 102);
    QCOMPARE(products->currentRow(), products->count() - 1);

    // Page Down turns the page from a row; from the catalogue, which keeps the key, with Ctrl.
    row3->setFocus();
    QTest::keyClick(row3, Qt::Key_PageDown);
    QCOMPARE(page->text(), u"2"_s);
    products->setFocus();
    QTest::keyClick(products, Qt::Key_PageDown);
    QCOMPARE(page->text(), u"2"_s);
    QTest::keyClick(products, Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(page->text(), u"3"_s);
    row3->setFocus();
    QTest::keyClick(row3, Qt::Key_PageUp);
    QCOMPARE(page->text(), u"2"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown); // from where the focus went
    QCOMPARE(page->text(), u"3"_s);

    // Designing the menu gives the page the modifier panel's room, and takes it back.
    QWidget* modifiers = nullptr;
    QVERIFY(find(window(), u"Frame2"_s, modifiers));
    QVERIFY(trigger(window(), u"Expand"_s));
    QVERIFY(modifiers->isHidden());
    QVERIFY(trigger(window(), u"Expand"_s));
    QVERIFY(modifiers->isVisible());

    // Enter or a double-click on a row opens its editor; on a back row, the group title's.
    QStringList titles;
    ModalDialogDriver driver;
    const auto recordTitle = [&](QDialog& dialog) {
        titles.append(dialog.windowTitle());
        dialog.close();
    };
    driver.onNextDialog(recordTitle);
    row0->setFocus();
    QTest::keyClick(row0, Qt::Key_Return);
    QVERIFY(driver.acted());
    driver.onNextDialog(recordTitle);
    QTest::mouseDClick(row2, Qt::LeftButton);
    QVERIFY(driver.acted());
    driver.onNextDialog(recordTitle);
    back9->setFocus();
    QTest::keyClicks(back9, u"Doces"_s);
    QCOMPARE(document.LineLayouts[lineSlot(3, 9)].backText, u"Doces"_s);
    QTest::keyClick(back9, Qt::Key_Enter);
    QVERIFY(driver.acted());
    QCOMPARE(titles, QStringList({ u"Edit Line"_s, u"Edit Line"_s, u"Group Title"_s }));

    // A click on a page side opens its background effects.
    QWidget* back = nullptr;
    QVERIFY(find(window(), u"Picture2"_s, back));
    QString caption;
    driver.onNextDialog([&](QDialog& dialog) {
        caption = dialog.windowTitle();
        dialog.accept();
    });
    QTest::mouseClick(back, Qt::LeftButton, {}, QPoint(4, 4));
    QCOMPARE(caption, u"Background effects"_s);
    QCOMPARE(window().side(), 2);
    QVERIFY(prompts().messages.isEmpty());
}

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
