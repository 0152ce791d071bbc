#include "app/MainWindow.h"
#include "document/ComponentFiles.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using SampleDocuments::addPlu;

class ModifierPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void listsAreMadeFilledAndDeletedLastOneFirst();
    void attachingTwiceLeavesOneAttachmentWithItsStartingLimits();
    void detachingLeavesAnEmptyNameBehind();
    void removingAProductMovesOnlyTheLastKey();
    void defaultsAreABitMaskLimitedByTheMaximum();
    void limitsAndTheMandatoryFlagAreStoredAsTyped();
    void tablesAtTheirEndRefuseMoreAndKeepWhatTheyHold();

private:
    QListWidget* list(const char* name) const
    {
        return m_window->findChild<QListWidget*>(QLatin1StringView(name));
    }
    void click(const char* button) const
    {
        m_window->findChild<QPushButton*>(QLatin1StringView(button))->click();
    }
    // Clicks an entry of a list as the user does, by its text.
    void pick(const char* name, const QString& text) const;
    void newList(const QString& name);
    void attachToProduct(const QString& product, const QString& listName);
    void setCheck(int option, bool checked) const;
    MenuDocument& document() const { return m_window->document(); }

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<ScriptedPrompts> m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

void ModifierPanelTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_prompts = std::make_unique<ScriptedPrompts>();
    m_window = std::make_unique<MainWindow>(*m_prompts);
    addPlu(document(), u"10"_s, u"Hamburguer"_s, u"8.00"_s);
    addPlu(document(), u"11"_s, u"Pizza"_s, u"9.00"_s);
    addPlu(document(), u"12"_s, u"Salada"_s, u"6.00"_s);
    addPlu(document(), u"50"_s, u"Ketchup"_s, u"0"_s);
    addPlu(document(), u"51"_s, u"Mostarda"_s, u"0"_s);
    addPlu(document(), u"52"_s, u"Maionese"_s, u"0"_s);
    m_window->Refresh_Page();
    m_window->show();
}

void ModifierPanelTest::cleanup()
{
    m_window.reset();
    m_prompts.reset();
    m_root.reset();
}

void ModifierPanelTest::pick(const char* name, const QString& text) const
{
    QListWidget* widget = list(name);
    const QList<QListWidgetItem*> found = widget->findItems(text, Qt::MatchExactly);
    QVERIFY2(!found.isEmpty(), qPrintable(text));
    widget->scrollToItem(found.first());
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, widget->visualItemRect(found.first()).center());
}

void ModifierPanelTest::newList(const QString& name)
{
    m_prompts->answers = QStringList { name };
    click("Command5");
}

void ModifierPanelTest::attachToProduct(const QString& product, const QString& listName)
{
    pick("Lista_plus", product);
    pick("Lista_Todos_Def_Comp", listName);
    click("Command8");
}

void ModifierPanelTest::setCheck(int option, bool checked) const
{
    list("Lista_Complementos")->item(option)->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

void ModifierPanelTest::listsAreMadeFilledAndDeletedLastOneFirst()
{
    newList(u"Molhos"_s);
    newList(u"Bebidas"_s);
    newList(u"Extras"_s);
    QCOMPARE(m_prompts->asked,
        QStringList({ u"text:  New Modifier"_s, u"text:  New Modifier"_s, u"text:  New Modifier"_s }));
    QCOMPARE(list("Lista_Todos_Def_Comp")->count(), 3);

    pick("Lista_Todos_Def_Comp", u"Molhos"_s);
    for (const QString& option : { u"Ketchup"_s, u"Mostarda"_s, u"Maionese"_s }) {
        pick("Lista_plus", option);
        click("AddOption");
    }
    const ModifierDefinition& sauces = document().ModifierLists[0];
    QCOMPARE(sauces.EntryCount, 3);
    QCOMPARE(sauces.EntryPlu[2], 52);
    QCOMPARE(sauces.EntryText[2], u"Maionese"_s);
    QCOMPARE(list("Lista_Complementos")->count(), 3);

    // The last option takes the place of the one removed.
    list("Lista_Complementos")->setCurrentRow(0);
    click("Command2");
    QCOMPARE(sauces.EntryCount, 2);
    QCOMPARE(sauces.EntryText[0], u"Maionese"_s);
    QCOMPARE(list("Lista_Complementos")->item(0)->text(), u"Maionese"_s);

    // So does the last list.
    pick("Lista_Todos_Def_Comp", u"Molhos"_s);
    click("Command6");
    QCOMPARE(document().ModifierListCount, 2);
    QCOMPARE(document().ModifierLists[0].Name, u"Extras"_s);
    QCOMPARE(list("Lista_Todos_Def_Comp")->item(0)->text(), u"Extras"_s);
}

void ModifierPanelTest::attachingTwiceLeavesOneAttachmentWithItsStartingLimits()
{
    newList(u"Molhos"_s);
    attachToProduct(u"Hamburguer"_s, u"Molhos"_s);
    attachToProduct(u"Hamburguer"_s, u"Molhos"_s);
    QCOMPARE(document().AssignmentCount, 1);
    const ModifierAssignment& burger = document().Assignments[0];
    QCOMPARE(burger.Key, u"Hamburguer"_s);
    QCOMPARE(burger.ListCount, 1);
    QCOMPARE(burger.Minimum[0], 0);
    QCOMPARE(burger.Maximum[0], 1);
    QCOMPARE(burger.Default[0], 0);
    QCOMPARE(list("List1")->currentItem()->text(), u"Hamburguer"_s);
    QCOMPARE(list("Lista_def_complementos")->currentItem()->text(), u"Molhos"_s);
}

void ModifierPanelTest::detachingLeavesAnEmptyNameBehind()
{
    for (const QString& name : { u"A"_s, u"B"_s, u"C"_s }) {
        newList(name);
        attachToProduct(u"Pizza"_s, name);
    }
    document().Assignments[0].Minimum[2] = 4;
    pick("Lista_def_complementos", u"A"_s);
    click("Command7");
    const ModifierAssignment& pizza = document().Assignments[0];
    QCOMPARE(pizza.ListCount, 2);
    QCOMPARE(pizza.ListName[0], QString());
    QCOMPARE(pizza.ListName[1], u"B"_s);
    QCOMPARE(pizza.ListName[2], u"C"_s); // outside the count now
    QCOMPARE(list("Lista_def_complementos")->count(), 2);

    // The next attachment takes the third place and none of what was left there.
    newList(u"D"_s);
    attachToProduct(u"Pizza"_s, u"D"_s);
    QCOMPARE(pizza.ListName[2], u"D"_s);
    QCOMPARE(pizza.Minimum[2], 0);
}

void ModifierPanelTest::removingAProductMovesOnlyTheLastKey()
{
    newList(u"Molhos"_s);
    newList(u"Extras"_s);
    attachToProduct(u"Hamburguer"_s, u"Molhos"_s);
    attachToProduct(u"Salada"_s, u"Extras"_s);
    pick("List1", u"Hamburguer"_s);
    click("Command4");
    QCOMPARE(document().AssignmentCount, 1);
    QCOMPARE(document().Assignments[0].Key, u"Salada"_s);
    QCOMPARE(document().Assignments[0].ListName[0], u"Molhos"_s);
    QCOMPARE(list("List1")->count(), 1);
    QCOMPARE(list("Lista_def_complementos")->count(), 0);
    pick("List1", u"Salada"_s);
    QCOMPARE(list("Lista_def_complementos")->item(0)->text(), u"Molhos"_s);
}

void ModifierPanelTest::defaultsAreABitMaskLimitedByTheMaximum()
{
    newList(u"Molhos"_s);
    pick("Lista_Todos_Def_Comp", u"Molhos"_s);
    for (const QString& option : { u"Ketchup"_s, u"Mostarda"_s, u"Maionese"_s }) {
        pick("Lista_plus", option);
        click("AddOption");
    }
    // Without an attached list selected, a tick is taken back.
    setCheck(0, true);
    QCOMPARE(list("Lista_Complementos")->item(0)->checkState(), Qt::Unchecked);

    attachToProduct(u"Hamburguer"_s, u"Molhos"_s);
    pick("Lista_def_complementos", u"Molhos"_s);
    QCOMPARE(list("Lista_Complementos")->count(), 3);
    setCheck(0, true);
    setCheck(2, true); // the maximum is 1: this tick is taken back
    QCOMPARE(list("Lista_Complementos")->item(2)->checkState(), Qt::Unchecked);
    QCOMPARE(document().Assignments[0].Default[0], 1);

    QTest::keyClicks(m_window->findChild<QLineEdit*>(u"maximo"_s), u"3"_s);
    QCOMPARE(document().Assignments[0].Maximum[0], 13); // " 1" and the typed 3
    setCheck(2, true);
    QCOMPARE(document().Assignments[0].Default[0], 5);

    // Selecting the list again shows the stored defaults.
    pick("Lista_Todos_Def_Comp", u"Molhos"_s);
    pick("Lista_def_complementos", u"Molhos"_s);
    QCOMPARE(list("Lista_Complementos")->item(0)->checkState(), Qt::Checked);
    QCOMPARE(list("Lista_Complementos")->item(1)->checkState(), Qt::Unchecked);
    QCOMPARE(list("Lista_Complementos")->item(2)->checkState(), Qt::Checked);
}

void ModifierPanelTest::limitsAndTheMandatoryFlagAreStoredAsTyped()
{
    newList(u"Molhos"_s);
    attachToProduct(u"Hamburguer"_s, u"Molhos"_s);
    pick("Lista_def_complementos", u"Molhos"_s);
    auto* minimum = m_window->findChild<QLineEdit*>(u"minimo"_s);
    QCOMPARE(minimum->text(), u" 0"_s);
    minimum->clear();
    QTest::keyClicks(minimum, u"12"_s);
    m_window->findChild<QCheckBox*>(u"Mandatory"_s)->click();
    const ModifierAssignment& burger = document().Assignments[0];
    QCOMPARE(burger.Minimum[0], 12);
    QCOMPARE(burger.Mandatory[0], 1);

    // On disk only the last digit of a limit is kept, and the flag not at all.
    document().FilePrefix = m_root->path() + u"/menu"_s;
    ComponentFiles::save(document());
    MenuDocument loaded;
    loaded.FilePrefix = document().FilePrefix;
    ComponentFiles::load(loaded);
    QCOMPARE(loaded.Assignments[0].Minimum[0], 2);
    QCOMPARE(loaded.Assignments[0].Maximum[0], 1);
    QCOMPARE(loaded.Assignments[0].Mandatory[0], 0);
}

void ModifierPanelTest::tablesAtTheirEndRefuseMoreAndKeepWhatTheyHold()
{
    for (int i = 0; i < Limits::ModifierListCapacity; ++i) {
        newList(u"List %1"_s.arg(i));
    }
    newList(u"One too many"_s);
    QCOMPARE(m_prompts->messages, QStringList { u"Subscript out of range"_s });
    QCOMPARE(document().ModifierListCount, Limits::ModifierListCapacity);
    QCOMPARE(document().ModifierLists[100].Name, u"List 100"_s);

    for (int i = 0; i < Limits::AttachedListCapacity; ++i) {
        attachToProduct(u"Pizza"_s, u"List %1"_s.arg(i));
    }
    attachToProduct(u"Pizza"_s, u"List 11"_s);
    QCOMPARE(m_prompts->messages.size(), 2);
    QCOMPARE(document().Assignments[0].ListCount, Limits::AttachedListCapacity);
    QCOMPARE(document().Assignments[0].ListName[10], u"List 10"_s);
}

QTEST_MAIN(ModifierPanelTest)
#include "ModifierPanelTest.moc"
