#include "catalogue/CataloguePanel.h"

#include "document/MenuDocument.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using SampleDocuments::addPlu;

namespace {

using Entry = std::pair<QString, int>;
using Entries = QList<Entry>;

Entries listed(const QListWidget* list)
{
    Entries entries;
    for (int row = 0; row < list->count(); ++row) {
        entries.append({ list->item(row)->text(), list->item(row)->data(Qt::UserRole).toInt() });
    }
    return entries;
}

QList<int> selectedRows(const QListWidget* list)
{
    QList<int> rows;
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->isSelected()) {
            rows.append(row);
        }
    }
    return rows;
}

} // namespace

class CataloguePanelTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void controlsCarryTheirNamesCaptionsAndTabOrder();
    void filterListsMatchesIgnoringCaseAndTheCheckBox();
    void findMarksMatchesAndKeepsOtherSelections();
    void addingAsksForNumberAndPriceThenAsksForARefresh();
    void cancelledBoxesStillAddAProductThatIsNeverListed();
    void deletingADuplicateNumberMarksBothAndRemovesOneEntry();
    void onlyDefinedPlusListsEachPlacedProductOncePerLine();
    void doubleClickAndEnterChooseTheEntryWithItsPrice();
    void aFaultShowsItsMessageAndThePanelGoesOn();

private:
    template<typename T>
    T* control(const char* name)
    {
        auto* widget = m_panel->findChild<T*>(QLatin1StringView(name));
        if (!widget) {
            qFatal("no control %s", name);
        }
        return widget;
    }
    QListWidget* list() { return control<QListWidget>("Lista_plus"); }
    QLineEdit* text() { return control<QLineEdit>("Text1"); }
    QCheckBox* onlyDefined() { return control<QCheckBox>("Check1"); }
    void click(const char* button) { control<QPushButton>(button)->click(); }
    void search(const QString& searchText)
    {
        text()->clear();
        // Typed key by key; keyClicks() takes ASCII only.
        for (QChar ch : searchText) {
            QTest::sendKeyEvent(QTest::Click, text(), Qt::Key_unknown, QString(ch), Qt::NoModifier);
        }
        QCOMPARE(text()->text(), searchText);
    }
    // What the main window's refresh does for this panel.
    void refreshLikeTheMainWindow()
    {
        connect(
            m_panel.get(), &CataloguePanel::refreshRequested, m_panel.get(), &CataloguePanel::rebuildPluList);
    }

    std::unique_ptr<MenuDocument> m_document;
    ScriptedPrompts m_prompts;
    std::unique_ptr<CataloguePanel> m_panel;
};

void CataloguePanelTest::init()
{
    m_document = std::make_unique<MenuDocument>();
    MenuDocument& d = *m_document;
    addPlu(d, QStringLiteral("1001"), QStringLiteral("Espresso"), QStringLiteral("2.50"));
    addPlu(d, QStringLiteral("1002"), QStringLiteral("Café com leite"), QStringLiteral("3.00"));
    addPlu(d, QStringLiteral("0"), QStringLiteral("Espresso apagado"), QStringLiteral("9"));
    addPlu(d, QStringLiteral("2001"), QStringLiteral("Água mineral"), QStringLiteral("1.20"));
    addPlu(d, QStringLiteral("sem"), QStringLiteral("Espresso sem número"), QStringLiteral("1"));
    addPlu(d, QStringLiteral("3001"), QStringLiteral("ESPRESSO DUPLO"), QStringLiteral("3.10"));
    m_prompts = ScriptedPrompts();
    m_panel = std::make_unique<CataloguePanel>(*m_document, m_prompts);
    m_panel->rebuildPluList();
}

void CataloguePanelTest::cleanup()
{
    m_panel.reset();
    m_document.reset();
}

void CataloguePanelTest::controlsCarryTheirNamesCaptionsAndTabOrder()
{
    QCOMPARE(control<QPushButton>("Command10")->text(), QStringLiteral("FILTER"));
    QCOMPARE(control<QPushButton>("Command11")->text(), QStringLiteral("FIND"));
    QCOMPARE(control<QPushButton>("Command16")->text(), QStringLiteral("Add"));
    QCOMPARE(control<QPushButton>("Command9")->text(), QStringLiteral("Delete"));
    QCOMPARE(onlyDefined()->text(), QStringLiteral("Only Defined plus"));
    QVERIFY(!onlyDefined()->isChecked());
    QStringList labels;
    for (const QLabel* label : m_panel->findChildren<QLabel*>()) {
        labels.append(label->text());
    }
    labels.sort();
    QCOMPARE(labels, QStringList({ QStringLiteral("Plu Description"), QStringLiteral("Plus") }));
    QCOMPARE(list()->selectionMode(), QAbstractItemView::ExtendedSelection);

    m_panel->show();
    m_panel->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    list()->setFocus();
    QStringList visited { QApplication::focusWidget()->objectName() };
    for (int i = 0; i < 7; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited.append(QApplication::focusWidget()->objectName());
    }
    QCOMPARE(visited,
        QStringList({ QStringLiteral("Lista_plus"), QStringLiteral("Check1"), QStringLiteral("Text1"),
            QStringLiteral("Command10"), QStringLiteral("Command11"), QStringLiteral("Command16"),
            QStringLiteral("Command9"), QStringLiteral("Lista_plus") }));
}

void CataloguePanelTest::filterListsMatchesIgnoringCaseAndTheCheckBox()
{
    const Entries everything { { QStringLiteral("Espresso"), 1001 },
        { QStringLiteral("Café com leite"), 1002 }, { QStringLiteral("Água mineral"), 2001 },
        { QStringLiteral("ESPRESSO DUPLO"), 3001 } };
    QCOMPARE(listed(list()), everything);

    search(QStringLiteral("espRESSO"));
    click("Command10");
    QCOMPARE(listed(list()), Entries({ everything[0], everything[3] }));

    // Enter in the search box filters too, and the check box plays no part.
    onlyDefined()->setChecked(true);
    search(QStringLiteral("ÁGUA"));
    QTest::keyClick(text(), Qt::Key_Return);
    QCOMPARE(listed(list()), Entries({ everything[2] }));

    search(QStringLiteral("chá"));
    click("Command10");
    QCOMPARE(list()->count(), 0);

    text()->clear();
    click("Command10");
    QCOMPARE(listed(list()), everything);
    QVERIFY(m_prompts.asked.isEmpty());
}

void CataloguePanelTest::findMarksMatchesAndKeepsOtherSelections()
{
    list()->item(1)->setSelected(true); // Café com leite
    search(QStringLiteral("presso"));
    click("Command11");
    QCOMPARE(selectedRows(list()), QList<int>({ 0, 1, 3 }));
    QCOMPARE(list()->count(), 4); // the list itself stays as it was

    search(QStringLiteral("MINERAL"));
    click("Command11");
    QCOMPARE(selectedRows(list()), QList<int>({ 0, 1, 2, 3 }));

    list()->clearSelection();
    search(QStringLiteral("nada disto"));
    click("Command11");
    QVERIFY(selectedRows(list()).isEmpty());

    text()->clear();
    click("Command11");
    QCOMPARE(selectedRows(list()), QList<int>({ 0, 1, 2, 3 }));
}

void CataloguePanelTest::addingAsksForNumberAndPriceThenAsksForARefresh()
{
    refreshLikeTheMainWindow();
    QSignalSpy refreshes(m_panel.get(), &CataloguePanel::refreshRequested);
    m_prompts.answers = QStringList { QStringLiteral("4001"), QStringLiteral("1.80") };
    click("Command16"); // without a description nothing is asked or added
    QCOMPARE(m_prompts.asked, QStringList { QStringLiteral("message: Please fill Plu Description!") });
    QCOMPARE(m_document->PluCount, 6);
    QCOMPARE(refreshes.count(), 0);

    m_prompts.asked.clear();
    search(QStringLiteral("Torrada, com manteiga"));
    click("Command16");

    QCOMPARE(
        m_prompts.asked, QStringList({ QStringLiteral("text: Plu Number"), QStringLiteral("text: Price") }));
    QCOMPARE(refreshes.count(), 1);
    QCOMPARE(m_document->PluCount, 7);
    QCOMPARE(m_document->Plus[6],
        (PluRecord { QStringLiteral("4001"), QString(), QStringLiteral("4001"), QStringLiteral("1.80"),
            QStringLiteral("Torrada, com manteiga") }));
    QVERIFY(text()->text().isEmpty());
    QCOMPARE(listed(list()).last(), Entry(QStringLiteral("Torrada, com manteiga"), 4001));
}

void CataloguePanelTest::cancelledBoxesStillAddAProductThatIsNeverListed()
{
    refreshLikeTheMainWindow();
    QSignalSpy refreshes(m_panel.get(), &CataloguePanel::refreshRequested);
    search(QStringLiteral("Bolo"));
    click("Command16"); // no answers: both boxes cancelled
    QCOMPARE(m_prompts.asked.size(), 2);
    QCOMPARE(m_document->PluCount, 7);
    QCOMPARE(m_document->Plus[6], (PluRecord { {}, {}, {}, {}, QStringLiteral("Bolo") }));
    QCOMPARE(refreshes.count(), 1);

    // A number of 0 or no number at all stays out of every list.
    QCOMPARE(list()->count(), 4);
    search(QStringLiteral("o"));
    click("Command10");
    QVERIFY(list()->findItems(QStringLiteral("Bolo"), Qt::MatchExactly).isEmpty());
    QVERIFY(list()->findItems(QStringLiteral("Espresso apagado"), Qt::MatchExactly).isEmpty());
    QVERIFY(list()->findItems(QStringLiteral("Espresso sem número"), Qt::MatchExactly).isEmpty());
}

void CataloguePanelTest::deletingADuplicateNumberMarksBothAndRemovesOneEntry()
{
    refreshLikeTheMainWindow();
    search(QStringLiteral("Espresso curto"));
    m_prompts.answers = QStringList { QStringLiteral("1001"), QStringLiteral("2.40") };
    click("Command16");
    QCOMPARE(listed(list()).last(), Entry(QStringLiteral("Espresso curto"), 1001));
    QCOMPARE(list()->count(), 5);

    QSignalSpy refreshes(m_panel.get(), &CataloguePanel::refreshRequested);
    list()->clearSelection();
    click("Command9"); // nothing selected: nothing happens
    QCOMPARE(list()->count(), 5);
    QCOMPARE(m_document->Plus[0].Code, QStringLiteral("1001"));

    list()->setCurrentRow(4);
    click("Command9");
    QCOMPARE(m_document->Plus[0].Code, QStringLiteral("0"));
    QCOMPARE(m_document->Plus[6].Code, QStringLiteral("0"));
    QCOMPARE(m_document->Plus[1].Code, QStringLiteral("1002"));
    QCOMPARE(m_document->PluCount, 7);
    // The other entry of the number stays until the next rebuild.
    QCOMPARE(listed(list()),
        Entries({ { QStringLiteral("Espresso"), 1001 }, { QStringLiteral("Café com leite"), 1002 },
            { QStringLiteral("Água mineral"), 2001 }, { QStringLiteral("ESPRESSO DUPLO"), 3001 } }));
    QCOMPARE(selectedRows(list()), QList<int> { 0 });
    QCOMPARE(list()->currentRow(), 0);
    QCOMPARE(refreshes.count(), 0);

    m_panel->rebuildPluList();
    QCOMPARE(list()->count(), 3);

    // Deleting the last entry leaves an empty list with nothing to select.
    search(QStringLiteral("mineral"));
    click("Command10");
    list()->setCurrentRow(0);
    click("Command9");
    QCOMPARE(list()->count(), 0);
    QCOMPARE(m_document->Plus[3].Code, QStringLiteral("0"));
    QVERIFY(m_prompts.messages.isEmpty());
}

void CataloguePanelTest::onlyDefinedPlusListsEachPlacedProductOncePerLine()
{
    refreshLikeTheMainWindow();
    MenuDocument& d = *m_document;
    d.LinePlu[lineSlot(3, 2)] = 1001;
    d.LinePlu[lineSlot(1, 5)] = 2001;
    d.LinePlu[lineSlot(1, 9)] = 1001;
    d.LinePlu[lineSlot(14, 0)] = 1001;
    d.LinePlu[lineSlot(2, 0)] = 9999; // not in the catalogue

    QSignalSpy refreshes(m_panel.get(), &CataloguePanel::refreshRequested);
    QTest::mouseClick(onlyDefined(), Qt::LeftButton, {}, onlyDefined()->rect().center());
    QVERIFY(onlyDefined()->isChecked());
    QCOMPARE(refreshes.count(), 1);
    QCOMPARE(listed(list()),
        Entries({ { QStringLiteral("Água mineral"), 2001 }, { QStringLiteral("Espresso"), 1001 },
            { QStringLiteral("Espresso"), 1001 }, { QStringLiteral("Espresso"), 1001 } }));

    // A record with number 0 or none never matches a line, not even an empty one.
    QVERIFY(list()->findItems(QStringLiteral("Espresso apagado"), Qt::MatchExactly).isEmpty());

    QTest::keyClick(onlyDefined(), Qt::Key_Space);
    QVERIFY(!onlyDefined()->isChecked());
    QCOMPARE(refreshes.count(), 2);
    QCOMPARE(list()->count(), 4);
    QCOMPARE(list()->item(1)->text(), QStringLiteral("Café com leite"));
}

void CataloguePanelTest::doubleClickAndEnterChooseTheEntryWithItsPrice()
{
    // A second record with the number: the first one's price counts.
    addPlu(*m_document, QStringLiteral("2001"), QStringLiteral("Água com gás"), QStringLiteral("1.50"));
    m_panel->rebuildPluList();
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
    QSignalSpy chosen(m_panel.get(), &CataloguePanel::pluChosen);

    const QRect entry = list()->visualItemRect(list()->item(2));
    // A real double-click starts with a press that makes the entry current.
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, entry.center());
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, entry.center());
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.takeFirst(), QVariantList({ 2, 2001, QStringLiteral("1.20") }));

    list()->setCurrentRow(4);
    QTest::keyClick(list(), Qt::Key_Return);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.takeFirst(), QVariantList({ 4, 2001, QStringLiteral("1.20") }));

    // An entry whose number was deleted meanwhile has no price.
    m_document->DeletePluNumber(3001);
    list()->setCurrentRow(3);
    QTest::keyClick(list(), Qt::Key_Enter);
    QCOMPARE(chosen.takeFirst(), QVariantList({ 3, 3001, QString() }));

    list()->clear();
    QTest::keyClick(list(), Qt::Key_Return);
    QCOMPARE(chosen.count(), 0);
}

void CataloguePanelTest::aFaultShowsItsMessageAndThePanelGoesOn()
{
    refreshLikeTheMainWindow();
    m_document->PluCount = Limits::PluCapacity;
    search(QStringLiteral("Mais um"));
    m_prompts.answers = QStringList { QStringLiteral("5"), QStringLiteral("1") };
    click("Command16");
    // A full catalogue shows when the number is stored: after its box, before the price's.
    QCOMPARE(m_prompts.asked,
        QStringList(
            { QStringLiteral("text: Plu Number"), QStringLiteral("message: Subscript out of range") }));
    QCOMPARE(m_document->PluCount, Limits::PluCapacity);
    QCOMPARE(text()->text(), QStringLiteral("Mais um"));

    m_document->PluCount = 6;
    click("Command16");
    QCOMPARE(m_document->PluCount, 7);
    QCOMPARE(m_document->Plus[6].Description, QStringLiteral("Mais um"));
    QCOMPARE(m_prompts.messages.size(), 1);
}

QTEST_MAIN(CataloguePanelTest)
#include "CataloguePanelTest.moc"
