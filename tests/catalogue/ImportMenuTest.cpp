#include "app/MainWindow.h"
#include "support/DocumentDiff.h"
#include "support/SampleDocuments.h"
#include "support/WidgetFixture.h"
#include "support/XlsWorkbooks.h"

#include <QAction>
#include <QDir>
#include <QGuiApplication>
#include <QListWidget>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// The Import menu of the main window: its prompts, the busy pointer and the lists it rebuilds. What
// each import reads and clears is the product import's logic tests'.
class ImportMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_fixture.reset(); }

    void eachImportAsksItsQuestionsAndListsTheProducts();
    void cancelledOrUnreadableSourcesChangeNothing();

private:
    QStringList listed() const;
    MainWindow& window() const { return *m_fixture->window; }
    ScriptedPrompts& prompts() const { return m_fixture->prompts; }
    QString path(const QString& name) const { return m_fixture->root.path() + u'/' + name; }

    std::unique_ptr<WindowFixture> m_fixture;
};

void ImportMenuTest::init()
{
    m_fixture = std::make_unique<WindowFixture>();
    QVERIFY(m_fixture->startWindow());
    window().document() = *SampleDocuments::richMenu();
    window().Refresh_Page();
    window().Timer1_Timer();
}

QStringList ImportMenuTest::listed() const
{
    QStringList texts;
    QListWidget* list = nullptr;
    if (find(window(), u"Lista_plus"_s, list)) {
        for (int i = 0; i < list->count(); ++i) {
            texts.append(list->item(i)->text());
        }
    }
    return texts;
}

void ImportMenuTest::eachImportAsksItsQuestionsAndListsTheProducts()
{
    const QString csv = path(u"menu.csv"_s);
    writeBytes(csv, "\"PLUCODE\",\"DESCRIPTION\",\"PRICE\"\r\n\"1\",\"Soup\",\"2\"\r\n");
    prompts().answers = QStringList { csv };
    QVERIFY(trigger(window(), u"ImportCSV"_s));
    QCOMPARE(prompts().asked,
        QStringList(
            { u"message: Import Data from CSV, \"PLUCODE\",\"DESCRIPTION\",\"PRICE\""_s, u"open: *.csv"_s }));
    // New ran: the working copy is gone and so are the lists.
    QVERIFY(QDir(m_fixture->root.workingFolder()).isEmpty(QDir::Files));
    QCOMPARE(listed(), QStringList { u"Soup"_s });
    QListWidget* modifierLists = nullptr;
    QVERIFY(find(window(), u"Lista_Todos_Def_Comp"_s, modifierLists));
    QCOMPARE(modifierLists->count(), 0);

    const QString data = path(u"DATA.XLS"_s);
    writeXlsWorkbook(data,
        { xlsSheet(u"Sheet1"_s, { u"PLUCODE"_s, u"DESCRIPTION"_s, u"PRICE"_s }, { { 7, u"Tea"_s, 1.5 } }) });
    const QString family = path(u"FAMI.XLS"_s);
    writeXlsWorkbook(family,
        { xlsSheet(u"Sheet1"_s, { u"COMANDO,N,4,0"_s, u"NUMERO,N,3,0"_s, u"NOME,C,25"_s },
            { { 0, 1, u"Drinks"_s } }) });
    writeXlsWorkbook(path(u"PLU.XLS"_s),
        { xlsSheet(u"Sheet1"_s, { u"NUMERO,N,6,0"_s, u"PLU,C,20"_s, u"VENDA,N,12,2"_s },
            { { 42, u"Cola"_s, u"2,50"_s } }) });
    QList<bool> busyWhileAsking;
    prompts().whilePrompting = [&] { busyWhileAsking.append(QGuiApplication::overrideCursor() != nullptr); };
    prompts().asked.clear();
    prompts().answers = QStringList { data, family };
    QVERIFY(trigger(window(), u"ImportFromXls"_s));
    QCOMPARE(listed(), QStringList { u"Tea"_s });
    QVERIFY(trigger(window(), u"ImportFenwarXls"_s));
    QCOMPARE(listed(), QStringList { u"Cola"_s });
    QCOMPARE(prompts().asked,
        QStringList({ u"message: Import Data from XLS $Sheet1$, Table [PLUCODE][DESCRIPTION][PRICE]"_s,
            u"open: DATA.XLS"_s, u"open: FAMI.XLS"_s }));
    // The busy pointer is not up while a question is open, and it is gone afterwards.
    QCOMPARE(busyWhileAsking, QList<bool>({ false, false, false }));
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);

    // The products sent last need no dialog.
    prompts().asked.clear();
    writeBytes(path(u"pludata.txt"_s), "st1,5,,5,1,Bread\r\n");
    QVERIFY(trigger(window(), u"ImportFromDll"_s));
    QCOMPARE(prompts().asked, QStringList());
    QCOMPARE(listed(), QStringList { u"Bread"_s });
}

void ImportMenuTest::cancelledOrUnreadableSourcesChangeNothing()
{
    const auto before = std::make_unique<MenuDocument>(window().document());
    const QStringList listedBefore = listed();
    const QString badSheet = path(u"DATA.XLS"_s);
    writeXlsWorkbook(badSheet, { xlsSheet(u"Sheet1"_s, { u"PLUCODE"_s, u"PRICE"_s }, { { 7, 1.5 } }) });

    for (const QString& import :
        { u"ImportCSV"_s, u"ImportFromXls"_s, u"ImportFenwarXls"_s, u"ImportFromDll"_s }) {
        QVERIFY(trigger(window(), import)); // cancelled, or no exchange file
    }
    prompts().messages.clear();
    prompts().answers = QStringList { badSheet };
    QVERIFY(trigger(window(), u"ImportFromXls"_s));
    QCOMPARE(prompts().messages.last(),
        u"Cannot import \"%1\": the worksheet \"Sheet1\" has no column \"DESCRIPTION\"."_s.arg(
            QDir::toNativeSeparators(badSheet)));
    QCOMPARE(firstDifference(*before, window().document()), QString());
    QCOMPARE(listed(), listedBefore);
    QVERIFY(!QDir(m_fixture->root.workingFolder()).isEmpty(QDir::Files));
}

QTEST_MAIN(ImportMenuTest)
#include "ImportMenuTest.moc"
