#include "app/MainWindow.h"
#include "support/DocumentDiff.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"
#include "support/XlsWorkbooks.h"

#include <QAction>
#include <QDir>
#include <QGuiApplication>
#include <QListWidget>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// The Import menu of the main window: its prompts, the clearing and the lists it rebuilds.
class ImportMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void csvImportTellsTheLayoutAsksForTheFileAndListsTheProducts();
    void spreadsheetImportsAskWithTheirPresetsAndShowTheBusyPointer();
    void lastSentProductsNeedNoDialog();
    void cancelledOrUnreadableSourcesChangeNothing();

private:
    void startWithRichMenu();
    void trigger(const char* action);
    QStringList listed() const;

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<ScriptedPrompts> m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

void ImportMenuTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_prompts = std::make_unique<ScriptedPrompts>();
}

void ImportMenuTest::cleanup()
{
    m_window.reset();
    m_root.reset();
}

void ImportMenuTest::startWithRichMenu()
{
    m_window = std::make_unique<MainWindow>(*m_prompts);
    m_window->document() = *SampleDocuments::richMenu();
    m_window->Refresh_Page();
    m_window->Timer1_Timer();
    m_window->show();
}

void ImportMenuTest::trigger(const char* action)
{
    auto* item = m_window->findChild<QAction*>(QLatin1StringView(action));
    QVERIFY(item->isEnabled());
    item->trigger();
}

QStringList ImportMenuTest::listed() const
{
    QStringList texts;
    const auto* list = m_window->findChild<QListWidget*>(u"Lista_plus"_s);
    for (int i = 0; i < list->count(); ++i) {
        texts.append(list->item(i)->text());
    }
    return texts;
}

void ImportMenuTest::csvImportTellsTheLayoutAsksForTheFileAndListsTheProducts()
{
    startWithRichMenu();
    const QString csv = m_root->path() + u"/menu.csv"_s;
    writeBytes(csv,
        "\"PLUCODE\",\"DESCRIPTION\",\"PRICE\"\r\n\"1\",\"Soup\",\"2\"\r\n\"2\",\"Bread, warm\",\"1\"\r\n");
    m_prompts->answers = QStringList { csv };

    trigger("ImportCSV");

    QCOMPARE(m_prompts->asked,
        QStringList(
            { u"message: Import Data from CSV, \"PLUCODE\",\"DESCRIPTION\",\"PRICE\""_s, u"open: *.csv"_s }));
    const MenuDocument& document = m_window->document();
    QCOMPARE(document.PluCount, 3);
    // New ran: the working copy is gone and nothing but the catalogue is left.
    QVERIFY(QDir(m_root->workingFolder()).isEmpty(QDir::Files));
    QCOMPARE(document.AssignmentCount, 0);
    QCOMPARE(document.ModifierListCount, 0);
    for (int slot = 0; slot < Limits::LineSlotCount; ++slot) {
        QCOMPARE(document.LinePlu[slot], 0);
        QCOMPARE(document.LineLayouts[slot].kind, std::int32_t(EmptyLine));
    }
    for (int key = 0; key < Limits::LanguageRowCount; ++key) {
        for (int language = 1; language <= Limits::LanguageCount; ++language) {
            QCOMPARE(document.LanguageTable.at(key, language), QString());
        }
    }
    // The heading line's code is no number, so the list shows the two products only.
    QCOMPARE(listed(), QStringList({ u"Soup"_s, u"Bread, warm"_s }));
    QCOMPARE(m_window->findChild<QListWidget*>(u"List1"_s)->count(), 0);
    QCOMPARE(m_window->findChild<QListWidget*>(u"Lista_Todos_Def_Comp"_s)->count(), 0);
}

void ImportMenuTest::spreadsheetImportsAskWithTheirPresetsAndShowTheBusyPointer()
{
    startWithRichMenu();
    const QString data = m_root->path() + u"/DATA.XLS"_s;
    writeXlsWorkbook(data,
        { xlsSheet(u"Sheet1"_s, { u"PLUCODE"_s, u"DESCRIPTION"_s, u"PRICE"_s }, { { 7, u"Tea"_s, 1.5 } }) });
    const QString family = m_root->path() + u"/FAMI.XLS"_s;
    writeXlsWorkbook(family,
        { xlsSheet(u"Sheet1"_s, { u"COMANDO,N,4,0"_s, u"NUMERO,N,3,0"_s, u"NOME,C,25"_s },
            { { 0, 1, u"Drinks"_s } }) });
    writeXlsWorkbook(m_root->path() + u"/PLU.XLS"_s,
        { xlsSheet(u"Sheet1"_s, { u"NUMERO,N,6,0"_s, u"PLU,C,20"_s, u"VENDA,N,12,2"_s },
            { { 42, u"Cola"_s, u"2,50"_s } }) });
    QList<bool> busyWhileReading;
    m_prompts->whilePrompting
        = [&] { busyWhileReading.append(QGuiApplication::overrideCursor() != nullptr); };

    m_prompts->answers = QStringList { data };
    trigger("ImportFromXls");
    QCOMPARE(m_prompts->asked,
        QStringList({ u"message: Import Data from XLS $Sheet1$, Table [PLUCODE][DESCRIPTION][PRICE]"_s,
            u"open: DATA.XLS"_s }));
    QCOMPARE(listed(), QStringList { u"Tea"_s });
    QCOMPARE(m_window->document().Plus[0].Price, u"1.5"_s);

    m_prompts->asked.clear();
    m_prompts->answers = QStringList { family };
    trigger("ImportFenwarXls");
    QCOMPARE(m_prompts->asked, QStringList { u"open: FAMI.XLS"_s });
    QCOMPARE(listed(), QStringList { u"Cola"_s });
    QCOMPARE(m_window->document().PluCount, 2);
    QCOMPARE(m_window->document().Plus[1].Price, u"2.50"_s);
    // The busy pointer is not up while a question is open, and it is gone afterwards.
    QCOMPARE(busyWhileReading, QList<bool>({ false, false, false }));
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void ImportMenuTest::lastSentProductsNeedNoDialog()
{
    startWithRichMenu();
    writeBytes(m_root->path() + u"/pludata.txt"_s, "st1,5,,5,1,Bread\r\n\r\nst1,6,,6,2,Wine\r\n");

    trigger("ImportFromDll");

    QCOMPARE(m_prompts->asked, QStringList());
    QCOMPARE(m_window->document().PluCount, 3);
    QCOMPARE(listed(), QStringList({ u"Bread"_s, u"Wine"_s }));
    QCOMPARE(m_window->document().AssignmentCount, 0);
}

void ImportMenuTest::cancelledOrUnreadableSourcesChangeNothing()
{
    startWithRichMenu();
    const auto before = std::make_unique<MenuDocument>(m_window->document());
    const QStringList listedBefore = listed();
    const QString badSheet = m_root->path() + u"/DATA.XLS"_s;
    writeXlsWorkbook(badSheet, { xlsSheet(u"Sheet1"_s, { u"PLUCODE"_s, u"PRICE"_s }, { { 7, 1.5 } }) });

    trigger("ImportCSV"); // cancelled
    trigger("ImportFromXls"); // cancelled
    trigger("ImportFenwarXls"); // cancelled
    trigger("ImportFromDll"); // no exchange file
    m_prompts->answers = QStringList { m_root->path() + u"/missing.csv"_s };
    trigger("ImportCSV");
    m_prompts->messages.clear();
    m_prompts->answers = QStringList { badSheet };
    trigger("ImportFromXls");

    QCOMPARE(m_prompts->messages,
        QStringList({ u"Import Data from XLS $Sheet1$, Table [PLUCODE][DESCRIPTION][PRICE]"_s,
            u"Cannot import \"%1\": the worksheet \"Sheet1\" has no column \"DESCRIPTION\"."_s.arg(
                QDir::toNativeSeparators(badSheet)) }));
    QCOMPARE(firstDifference(*before, m_window->document()), QString());
    QCOMPARE(listed(), listedBefore);
    QVERIFY(!QDir(m_root->workingFolder()).isEmpty(QDir::Files));
}

QTEST_MAIN(ImportMenuTest)
#include "ImportMenuTest.moc"
