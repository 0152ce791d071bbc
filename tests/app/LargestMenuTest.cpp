// The largest menu the tables allow, through what a user does with it: start-up and every page, save
// and load, send and print; then a hundred autosaves, which the sanitizer build checks for leaks.
// make bench times the same steps against their budgets.
#include "app/MainWindow.h"
#include "designer/PageView.h"
#include "document/ComponentFiles.h"
#include "document/WorkingCopy.h"
#include "link/DravlinkLibrary.h"
#include "link/MenuTransmission.h"
#include "support/CliRun.h"
#include "support/PdfPages.h"
#include "support/SampleDocuments.h"
#include "support/SimulatedLink.h"
#include "support/WidgetFixture.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QByteArray allBytes(const MenuDocument& document)
{
    QByteArray bytes;
    for (const ComponentFiles::File& file : ComponentFiles::render(document)) {
        bytes += file.bytes;
    }
    return bytes;
}

} // namespace

class LargestMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void startsDrawsEveryPageAndAutosavesAHundredTimes();
    void savesLoadsSendsAndPrintsLosingNothing();

private:
    WindowFixture m_fixture;
    std::unique_ptr<MenuDocument> m_largest = SampleDocuments::largestMenu();
};

void LargestMenuTest::initTestCase()
{
    WorkingCopy::save(*m_largest);
}

void LargestMenuTest::startsDrawsEveryPageAndAutosavesAHundredTimes()
{
    QVERIFY(m_fixture.startWindow());
    MainWindow& window = *m_fixture.window;
    QCOMPARE(window.document().PluCount, Limits::PluCapacity);
    PageView* view = nullptr;
    QVERIFY(find(window, u"PageView"_s, view));
    for (int page = 1; page <= Limits::PageCount; ++page) {
        view->setCurrentPage(page);
        view->Update_Page();
    }
    for (int tick = 0; tick < 100; ++tick) {
        window.Timer1_Timer();
    }
    auto reloaded = std::make_unique<MenuDocument>();
    WorkingCopy::open(*reloaded);
    QCOMPARE(reloaded->PluCount, Limits::PluCapacity);
    QVERIFY(m_fixture.prompts.messages.isEmpty());
}

void LargestMenuTest::savesLoadsSendsAndPrintsLosingNothing()
{
    const QString prefix = m_fixture.root.path() + u"/largest"_s;
    m_largest->FilePrefix = prefix;
    QVERIFY(ComponentFiles::save(*m_largest).isEmpty());
    auto loaded = std::make_unique<MenuDocument>();
    loaded->FilePrefix = prefix;
    ComponentFiles::load(*loaded);
    // What was loaded writes the same files again: nothing the files held was lost.
    QVERIFY(allBytes(*loaded) == allBytes(*m_largest));

    SimulatedLink simulator;
    DravlinkLibrary link;
    QCOMPARE(MenuTransmission(*m_largest, {}).send(link, 1), 0);
    QCOMPARE(simulator.count("menu_upload"), 1);
    QVERIFY2(
        simulator.count("menu_item") >= 24 * 12, qPrintable(QString::number(simulator.count("menu_item"))));

    const QString pdf = m_fixture.root.path() + u"/all.pdf"_s;
    const CliRun run = runCli({ u"print"_s, prefix, u"--pdf"_s, pdf, u"--all"_s });
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QCOMPARE(PdfPages::pageCount(pdf), 13 * 2);
    QVERIFY(PdfPages::text(pdf, 1).contains(m_largest->LanguageTable.at(1000, 1).left(20)));
}

QTEST_MAIN(LargestMenuTest)
#include "LargestMenuTest.moc"
