#include "app/MainWindow.h"
#include "support/SampleDocuments.h"
#include "support/WidgetFixture.h"

#include <QCheckBox>
#include <QListWidget>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using SampleDocuments::addPlu;

// What each edit does to the lists is the modifier editing's logic tests'; here each button is seen
// to reach it and the lists to show the result.
class ModifierPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_fixture.reset(); }

    void buttonsMakeFillAttachAndDeleteTheLists();
    void ticksAndLimitsAreStoredForTheSelectedAttachment();

private:
    QListWidget* list(const QString& name) const;
    // Clicks an entry of a list as the user does, by its text; false when it is not listed.
    [[nodiscard]] bool pick(const QString& name, const QString& text) const;
    [[nodiscard]] bool newList(const QString& name);
    [[nodiscard]] bool attach(const QString& product, const QString& listName);
    MenuDocument& document() const { return m_fixture->window->document(); }

    std::unique_ptr<WindowFixture> m_fixture;
};

void ModifierPanelTest::init()
{
    m_fixture = std::make_unique<WindowFixture>();
    QVERIFY(m_fixture->startWindow());
    addPlu(document(), u"10"_s, u"Hamburguer"_s, u"8.00"_s);
    addPlu(document(), u"50"_s, u"Ketchup"_s, u"0"_s);
    addPlu(document(), u"51"_s, u"Mostarda"_s, u"0"_s);
    addPlu(document(), u"52"_s, u"Maionese"_s, u"0"_s);
    m_fixture->window->Refresh_Page();
}

QListWidget* ModifierPanelTest::list(const QString& name) const
{
    QListWidget* widget = nullptr;
    return find(*m_fixture->window, name, widget) ? widget : nullptr;
}

bool ModifierPanelTest::pick(const QString& name, const QString& text) const
{
    QListWidget* widget = list(name);
    const QList<QListWidgetItem*> found
        = widget ? widget->findItems(text, Qt::MatchExactly) : QList<QListWidgetItem*>();
    if (found.isEmpty()) {
        qWarning("%s does not list %s", qPrintable(name), qPrintable(text));
        return false;
    }
    widget->scrollToItem(found.first());
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, widget->visualItemRect(found.first()).center());
    return true;
}

bool ModifierPanelTest::newList(const QString& name)
{
    m_fixture->prompts.answers = QStringList { name };
    return trigger(*m_fixture->window, u"Command5"_s);
}

bool ModifierPanelTest::attach(const QString& product, const QString& listName)
{
    return pick(u"Lista_plus"_s, product) && pick(u"Lista_Todos_Def_Comp"_s, listName)
        && trigger(*m_fixture->window, u"Command8"_s);
}

void ModifierPanelTest::buttonsMakeFillAttachAndDeleteTheLists()
{
    MainWindow& window = *m_fixture->window;
    QVERIFY(newList(u"Molhos"_s));
    QVERIFY(newList(u"Extras"_s));
    QCOMPARE(m_fixture->prompts.asked, QStringList(2, u"text:  New Modifier"_s));
    QCOMPARE(list(u"Lista_Todos_Def_Comp"_s)->count(), 2);

    QVERIFY(pick(u"Lista_Todos_Def_Comp"_s, u"Molhos"_s));
    for (const QString& option : { u"Ketchup"_s, u"Mostarda"_s }) {
        QVERIFY(pick(u"Lista_plus"_s, option));
        QVERIFY(trigger(window, u"AddOption"_s));
    }
    QCOMPARE(document().ModifierLists[0].EntryCount, 2);
    list(u"Lista_Complementos"_s)->setCurrentRow(0);
    QVERIFY(trigger(window, u"Command2"_s));
    QCOMPARE(list(u"Lista_Complementos"_s)->item(0)->text(), u"Mostarda"_s);

    QVERIFY(attach(u"Hamburguer"_s, u"Molhos"_s));
    QVERIFY(attach(u"Hamburguer"_s, u"Extras"_s));
    QCOMPARE(document().Assignments[0].ListCount, 2);
    QCOMPARE(list(u"List1"_s)->currentItem()->text(), u"Hamburguer"_s);
    QVERIFY(pick(u"Lista_def_complementos"_s, u"Molhos"_s));
    QVERIFY(trigger(window, u"Command7"_s));
    QCOMPARE(list(u"Lista_def_complementos"_s)->count(), 1);

    QVERIFY(pick(u"Lista_Todos_Def_Comp"_s, u"Molhos"_s));
    QVERIFY(trigger(window, u"Command6"_s));
    QCOMPARE(list(u"Lista_Todos_Def_Comp"_s)->item(0)->text(), u"Extras"_s);
    QVERIFY(pick(u"List1"_s, u"Hamburguer"_s));
    QVERIFY(trigger(window, u"Command4"_s));
    QCOMPARE(document().AssignmentCount, 0);
    QCOMPARE(list(u"List1"_s)->count(), 0);

    // Past a table's end the fault is shown and the panel goes on.
    document().ModifierListCount = Limits::ModifierListCapacity;
    QVERIFY(newList(u"One too many"_s));
    QCOMPARE(m_fixture->prompts.messages, QStringList { u"Subscript out of range"_s });
}

void ModifierPanelTest::ticksAndLimitsAreStoredForTheSelectedAttachment()
{
    MainWindow& window = *m_fixture->window;
    QVERIFY(newList(u"Molhos"_s));
    QVERIFY(pick(u"Lista_Todos_Def_Comp"_s, u"Molhos"_s));
    for (const QString& option : { u"Ketchup"_s, u"Mostarda"_s, u"Maionese"_s }) {
        QVERIFY(pick(u"Lista_plus"_s, option));
        QVERIFY(trigger(window, u"AddOption"_s));
    }
    QListWidget* options = list(u"Lista_Complementos"_s);
    QVERIFY(options);
    const auto tick = [options](int option) { options->item(option)->setCheckState(Qt::Checked); };
    tick(0); // without an attached list selected, a tick is taken back
    QCOMPARE(options->item(0)->checkState(), Qt::Unchecked);

    QVERIFY(attach(u"Hamburguer"_s, u"Molhos"_s));
    QVERIFY(pick(u"Lista_def_complementos"_s, u"Molhos"_s));
    tick(0);
    tick(2); // the maximum is 1: this tick is taken back
    QCOMPARE(options->item(2)->checkState(), Qt::Unchecked);
    const ModifierAssignment& burger = document().Assignments[0];
    QCOMPARE(burger.Default[0], 1);

    QLineEdit *minimum = nullptr, *maximum = nullptr;
    QCheckBox* mandatory = nullptr;
    QVERIFY(find(window, u"minimo"_s, minimum));
    QVERIFY(find(window, u"maximo"_s, maximum));
    QVERIFY(find(window, u"Mandatory"_s, mandatory));
    QCOMPARE(minimum->text(), u" 0"_s);
    QTest::keyClicks(maximum, u"3"_s);
    QCOMPARE(burger.Maximum[0], 13); // " 1" and the typed 3
    minimum->clear();
    QTest::keyClicks(minimum, u"12"_s);
    mandatory->click();
    QCOMPARE(burger.Minimum[0], 12);
    QCOMPARE(burger.Mandatory[0], 1);
    tick(2);
    QCOMPARE(burger.Default[0], 5);

    // Selecting the list again shows the stored defaults.
    QVERIFY(pick(u"Lista_Todos_Def_Comp"_s, u"Molhos"_s));
    QVERIFY(pick(u"Lista_def_complementos"_s, u"Molhos"_s));
    QCOMPARE(options->item(0)->checkState(), Qt::Checked);
    QCOMPARE(options->item(1)->checkState(), Qt::Unchecked);
    QCOMPARE(options->item(2)->checkState(), Qt::Checked);
}

QTEST_MAIN(ModifierPanelTest)
#include "ModifierPanelTest.moc"
