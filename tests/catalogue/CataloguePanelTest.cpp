#include "catalogue/CataloguePanel.h"

#include "document/MenuDocument.h"
#include "support/SampleDocuments.h"
#include "support/WidgetFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using SampleDocuments::addPlu;

// Which products are listed, found, added and priced is the PLU list's logic tests'; here each
// control is seen to reach that logic and the list to show its result.
class CataloguePanelTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void buttonsFilterFindAddAndDelete();
    void theCheckBoxAndTheChoiceReachTheMainWindow();

private:
    QStringList listed() const;
    QList<int> selectedRows() const;
    // Typed key by key; keyClicks() takes ASCII only.
    void search(const QString& text);

    std::unique_ptr<MenuDocument> m_document;
    ScriptedPrompts m_prompts;
    std::unique_ptr<CataloguePanel> m_panel;
    QListWidget* m_list = nullptr;
    QLineEdit* m_text = nullptr;
};

void CataloguePanelTest::init()
{
    m_document = std::make_unique<MenuDocument>();
    addPlu(*m_document, u"1001"_s, u"Espresso"_s, u"2.50"_s);
    addPlu(*m_document, u"2001"_s, u"Água mineral"_s, u"1.20"_s);
    addPlu(*m_document, u"3001"_s, u"ESPRESSO DUPLO"_s, u"3.10"_s);
    m_prompts = ScriptedPrompts();
    m_panel = std::make_unique<CataloguePanel>(*m_document, m_prompts);
    // What the main window's refresh does for this panel.
    connect(m_panel.get(), &CataloguePanel::refreshRequested, m_panel.get(), &CataloguePanel::rebuildPluList);
    m_panel->rebuildPluList();
    m_panel->show();
    m_panel->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    QVERIFY(find(*m_panel, u"Lista_plus"_s, m_list));
    QVERIFY(find(*m_panel, u"Text1"_s, m_text));
}

void CataloguePanelTest::cleanup()
{
    m_panel.reset();
    m_document.reset();
}

QStringList CataloguePanelTest::listed() const
{
    QStringList texts;
    for (int row = 0; row < m_list->count(); ++row) {
        texts.append(m_list->item(row)->text());
    }
    return texts;
}

QList<int> CataloguePanelTest::selectedRows() const
{
    QList<int> rows;
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->isSelected()) {
            rows.append(row);
        }
    }
    return rows;
}

void CataloguePanelTest::search(const QString& text)
{
    m_text->clear();
    for (QChar ch : text) {
        QTest::sendKeyEvent(QTest::Click, m_text, Qt::Key_unknown, QString(ch), Qt::NoModifier);
    }
    QCOMPARE(m_text->text(), text);
}

void CataloguePanelTest::buttonsFilterFindAddAndDelete()
{
    // Tab goes round the panel in the order the controls are read.
    m_list->setFocus();
    QStringList visited;
    for (int i = 0; i < 7; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited.append(QApplication::focusWidget()->objectName());
    }
    QCOMPARE(visited,
        QStringList({ u"Check1"_s, u"Text1"_s, u"Command10"_s, u"Command11"_s, u"Command16"_s, u"Command9"_s,
            u"Lista_plus"_s }));

    search(u"espresso"_s);
    QVERIFY(trigger(*m_panel, u"Command10"_s));
    QCOMPARE(listed(), QStringList({ u"Espresso"_s, u"ESPRESSO DUPLO"_s }));
    search(u"ÁGUA"_s);
    QTest::keyClick(m_text, Qt::Key_Return); // Enter in the search box filters too
    QCOMPARE(listed(), QStringList { u"Água mineral"_s });
    m_text->clear();
    QVERIFY(trigger(*m_panel, u"Command10"_s));
    QCOMPARE(m_list->count(), 3);

    // Find marks the matches and keeps what was selected.
    m_list->item(1)->setSelected(true);
    search(u"duplo"_s);
    QVERIFY(trigger(*m_panel, u"Command11"_s));
    QCOMPARE(selectedRows(), QList<int>({ 1, 2 }));
    search(u"nada disto"_s);
    QVERIFY(trigger(*m_panel, u"Command11"_s));
    QCOMPARE(selectedRows(), QList<int>({ 1, 2 }));

    search(u"Torrada"_s);
    m_prompts.answers = QStringList { u"1001"_s, u"1.80"_s };
    QVERIFY(trigger(*m_panel, u"Command16"_s));
    QCOMPARE(m_document->PluCount, 4);
    QVERIFY(m_text->text().isEmpty());
    QCOMPARE(listed().last(), u"Torrada"_s);

    // Delete takes the number from every product and the selected entry from the list; with nothing
    // selected it does nothing.
    m_list->clearSelection();
    QVERIFY(trigger(*m_panel, u"Command9"_s));
    QCOMPARE(m_list->count(), 4);
    m_list->setCurrentRow(3);
    QVERIFY(trigger(*m_panel, u"Command9"_s));
    QCOMPARE(m_document->Plus[0].Code, u"0"_s);
    QCOMPARE(m_document->Plus[3].Code, u"0"_s);
    QCOMPARE(listed(), QStringList({ u"Espresso"_s, u"Água mineral"_s, u"ESPRESSO DUPLO"_s }));
    QCOMPARE(selectedRows(), QList<int> { 0 });

    // A fault shows its message and the panel goes on.
    m_document->PluCount = Limits::PluCapacity;
    search(u"Mais um"_s);
    QVERIFY(trigger(*m_panel, u"Command16"_s));
    QCOMPARE(m_prompts.messages, QStringList { u"Subscript out of range"_s });
    QCOMPARE(m_text->text(), u"Mais um"_s);
}

void CataloguePanelTest::theCheckBoxAndTheChoiceReachTheMainWindow()
{
    m_document->LinePlu[lineSlot(3, 2)] = 2001;
    QCheckBox* onlyDefined = nullptr;
    QVERIFY(find(*m_panel, u"Check1"_s, onlyDefined));
    QSignalSpy refreshes(m_panel.get(), &CataloguePanel::refreshRequested);
    onlyDefined->click();
    QCOMPARE(refreshes.count(), 1);
    QCOMPARE(listed(), QStringList { u"Água mineral"_s });
    QTest::keyClick(onlyDefined, Qt::Key_Space);
    QCOMPARE(refreshes.count(), 2);
    QCOMPARE(m_list->count(), 3);

    // A double-click or Enter chooses the entry, with its price.
    QSignalSpy chosen(m_panel.get(), &CataloguePanel::pluChosen);
    const QRect entry = m_list->visualItemRect(m_list->item(1));
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, entry.center());
    QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, {}, entry.center());
    m_list->setCurrentRow(2);
    QTest::keyClick(m_list, Qt::Key_Return);
    QCOMPARE(chosen.count(), 2);
    QCOMPARE(chosen.at(0), QVariantList({ 1, 2001, u"1.20"_s }));
    QCOMPARE(chosen.at(1), QVariantList({ 2, 3001, u"3.10"_s }));
    m_list->clear();
    QTest::keyClick(m_list, Qt::Key_Enter);
    QCOMPARE(chosen.count(), 2);
}

QTEST_MAIN(CataloguePanelTest)
#include "CataloguePanelTest.moc"
