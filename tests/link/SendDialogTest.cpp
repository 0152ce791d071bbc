#include "app/MainWindow.h"
#include "designer/PageView.h"
#include "link/PortSetting.h"
#include "support/SimulatedLink.h"
#include "support/WidgetFixture.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QFile>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

void addProduct(MenuDocument& document, const QString& code, const QString& folder, const QString& altCode,
    const QString& price, const QString& description)
{
    document.Plus[document.PluCount++] = { code, folder, altCode, price, description };
}

void setTexts(MenuDocument& document, int key, const QStringList& texts)
{
    for (int language = 1; language <= texts.size(); ++language) {
        document.LanguageTable.at(key, language) = texts.at(language - 1);
    }
}

void addList(MenuDocument& document, const QString& name, std::initializer_list<std::int32_t> plus)
{
    ModifierDefinition& list = document.ModifierLists[document.ModifierListCount++];
    list.Name = name;
    for (const std::int32_t plu : plus) {
        list.EntryPlu[list.EntryCount++] = plu;
    }
}

void attach(ModifierAssignment& assignment, const QString& list, std::int32_t mandatory, std::int32_t minimum,
    std::int32_t maximum, std::int32_t defaults)
{
    const int l = assignment.ListCount++;
    assignment.ListName[l] = list;
    assignment.Mandatory[l] = mandatory;
    assignment.Minimum[l] = minimum;
    assignment.Maximum[l] = maximum;
    assignment.Default[l] = defaults;
}

// A folder "Drinks" (folder number 7) holding Cola and Fanta; Steak and Salad on pages 13 and 14;
// Soup only on the first row of page 1, which no key search looks at; two option products in
// "Toppings", "Sauces" and a list without a name; a "Note" language.
void craftMenu(MenuDocument& document)
{
    setTexts(document, 0, { u"English"_s, u"Nederlands"_s, u"Note"_s, u"Español"_s, QString() });
    addProduct(document, u"101"_s, u"0"_s, u"7"_s, u"2.50"_s, u"Cola"_s);
    addProduct(document, u"7"_s, u"7"_s, u"7"_s, u"0"_s, u"Drinks"_s);
    addProduct(document, u"102"_s, QString(), u"7"_s, u"1.80"_s, u"Fanta"_s);
    addProduct(document, u"201"_s, u"0"_s, u"201"_s, u"18.00"_s, u"Steak"_s);
    addProduct(document, u"202"_s, u"0"_s, u"202"_s, u"7.00"_s, u"Salad"_s);
    addProduct(document, u"203"_s, u"0"_s, u"203"_s, u"4.00"_s, u"Soup"_s);
    addProduct(document, u"301"_s, u"0"_s, u"301"_s, u"1.00"_s, u"Extra cheese"_s);
    addProduct(document, u"302"_s, u"0"_s, u"302"_s, u"1.50"_s, u"Bacon"_s);

    setTexts(document, 101, { u" Cola "_s, u"Cola light"_s, u"Kola"_s, u"Coca"_s, QString() });
    setTexts(document, 102, { u"Fanta"_s });
    setTexts(document, 201,
        { QString(30, u'a'), QString(30, u'b'), QString(30, u'c'), QString(30, u'd'), QString(30, u'e') });
    setTexts(document, 202, { u"Salad"_s, u"Salade"_s });
    setTexts(document, 301, { u"Extra cheese"_s });
    setTexts(document, 302, { u"Bacon"_s });

    document.LinePlu[lineSlot(1, 1)] = 101;
    document.LinePlu[lineSlot(12, 3)] = 102;
    document.LinePlu[lineSlot(13, 0)] = 201;
    document.LinePlu[lineSlot(14, 23)] = 202;
    document.LinePlu[lineSlot(1, 0)] = 203;

    addList(document, u"Toppings"_s, { 301, 302, 999 });
    addList(document, u"Sauces"_s, { 302 });
    addList(document, QString(), { 301 });

    ModifierAssignment& fanta = document.Assignments[document.AssignmentCount++];
    fanta.Key = u"Fanta"_s;
    attach(fanta, u"Toppings"_s, 1, 1, 2, 3);
    ModifierAssignment& steak = document.Assignments[document.AssignmentCount++];
    steak.Key = u"Steak"_s;
    attach(steak, u"Toppings"_s, 0, 0, 2, 1);
    attach(steak, u"Sauces"_s, 0, 1, 1, 0);
}

// What the terminal receives for the crafted menu, given its texts and the keys of Steak and Salad.
QStringList expectedSession(
    const std::function<QString(int plu)>& textOf, int steakKey, int saladKey, const QString& languageNames)
{
    return {
        linkCall("menu_init", { 3, 1, 65535 }),
        linkCall("radio_make_tree_mkdir", { u"Toppings"_s }),
        linkCall("radio_make_tree_cd", { u"Toppings"_s }),
        linkCall("menu_modifier", { 301, textOf(301) }),
        linkCall("menu_modifier", { 302, textOf(302) }),
        linkCall("radio_make_tree_cd_back"),
        linkCall("radio_make_tree_mkdir", { u"Sauces"_s }),
        linkCall("radio_make_tree_cd", { u"Sauces"_s }),
        linkCall("menu_modifier", { 302, textOf(302) }),
        linkCall("radio_make_tree_cd_back"),
        linkCall("menu_modifier", { 301, textOf(301) }),
        linkCall("radio_make_tree_mkdir", { u"Drinks"_s }),
        linkCall("radio_make_tree_cd", { u"Drinks"_s }),
        linkCall("menu_item", { 101, textOf(101), u"2.50"_s, 2 }),
        linkCall("menu_item", { 102, textOf(102), u"1.80"_s, 268 }),
        linkCall("radio_make_tree_modifier_min_max", { u"Toppings"_s, 1, 1, 2 }),
        linkCall("radio_make_tree_cd_back"),
        linkCall("menu_item", { 201, textOf(201), u"18.00"_s, steakKey }),
        linkCall("menu_item_modifier_group", { u"Toppings"_s, 0, 2, 1 }),
        linkCall("menu_item_modifier_group", { u"Sauces"_s, 1, 1, 0 }),
        linkCall("menu_item", { 202, textOf(202), u"7.00"_s, saladKey }),
        linkCall("radio_set_entry", { 1530, languageNames }),
        linkCall("menu_upload"),
        linkCall("menu_close"),
    };
}

} // namespace

class SendDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void sendsTheWholeMenuInTheTerminalsOrder();
    void thirteenPagesAndOldFirmwareChangeKeysAndTexts();
    void aPortThatDoesNotOpenSendsNothingAndAMissingLibraryIsNamed();
    void theMenuCheckComesFirstAndShowsTheRowsItNames();

private:
    // The Send dialog the main window's Send command opens, past the menu check when it finds anything;
    // null, after a warning, when none opens.
    static QDialog* openSendDialog(MainWindow& window);
    [[nodiscard]] static bool clickSend(QDialog& dialog, const QString& port);
    QDialog* checkWindow() const { return m_window->findChild<QDialog*>(u"CheckMenu"_s); }

    std::unique_ptr<SimulatedLink> m_link;
    std::unique_ptr<WindowFixture> m_fixture;
    MainWindow* m_window = nullptr;
    ScriptedPrompts* m_prompts = nullptr;
};

void SendDialogTest::init()
{
    m_link = std::make_unique<SimulatedLink>();
    m_fixture = std::make_unique<WindowFixture>();
    QVERIFY(m_fixture->startWindow());
    m_window = m_fixture->window.get();
    m_prompts = &m_fixture->prompts;
    craftMenu(m_window->document());
}

void SendDialogTest::cleanup()
{
    m_fixture.reset();
    m_link.reset();
}

QDialog* SendDialogTest::openSendDialog(MainWindow& window)
{
    if (!trigger(window, u"SendAll"_s)) {
        return nullptr;
    }
    // The crafted menu holds what the terminals would get wrong.
    if (auto* check = window.findChild<QDialog*>(u"CheckMenu"_s); check && check->isVisible()) {
        if (!trigger(*check, u"SendAnyway"_s)) {
            return nullptr;
        }
    }
    QDialog* dialog = nullptr;
    return find(window, u"SendDialog"_s, dialog) ? dialog : nullptr;
}

bool SendDialogTest::clickSend(QDialog& dialog, const QString& port)
{
    QLineEdit* box = nullptr;
    QPushButton* send = nullptr;
    if (!find(dialog, u"Text2"_s, box) || !find(dialog, u"Command1"_s, send)) {
        return false;
    }
    box->setText(port);
    QTest::mouseClick(send, Qt::LeftButton);
    return true;
}

void SendDialogTest::sendsTheWholeMenuInTheTerminalsOrder()
{
    QDialog* dialog = openSendDialog(*m_window);
    QVERIFY(dialog);
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->windowTitle(), u"Send"_s);
    // The catalogue goes to the working copy first, for the import of the products sent last.
    QVERIFY(QFile::exists(m_fixture->root.workingFile(u"_pludata.txt"_s)));

    QVERIFY(clickSend(*dialog, u"3"_s));

    const auto textOf = [](int plu) -> QString {
        switch (plu) {
        case 101:
            return terminalText({ 10, 20, 20, 24, 24 }, u"ColaCola lightCoca"_s);
        case 102:
            return terminalText({ 11, 11, 11, 11, 11 }, u"Fanta"_s);
        case 201: // cut at 90 characters, header included
            return terminalText(
                { 36, 66, 66, 90, 90 }, QString(30, u'a') + QString(30, u'b') + QString(24, u'd'));
        case 202:
            return terminalText({ 11, 17, 17, 17, 17 }, u"SaladSalade"_s);
        case 301:
            return terminalText({ 18, 18, 18, 18, 18 }, u"Extra cheese"_s);
        default:
            return terminalText({ 11, 11, 11, 11, 11 }, u"Bacon"_s);
        }
    };
    // Page 12 is the last lettered page in use, so page 13 follows key 216 and page 14 key 240.
    QCOMPARE(m_link->calls(),
        expectedSession(
            textOf, 217, 264, terminalText({ 13, 23, 23, 30, 30 }, u"EnglishNederlandsEspañol"_s)));
    QCOMPARE(dialog->windowTitle(), u"Sended"_s);
    QVERIFY(dialog->isVisible());
    QCOMPARE(PortSetting::saved(), u"3"_s);

    dialog->close();
    QVERIFY(QTest::qWaitFor([&] { return !m_window->findChild<QDialog*>(u"SendDialog"_s); }));
    dialog = openSendDialog(*m_window);
    QVERIFY(dialog);
    QCOMPARE(shownText(*dialog, u"Text2"_s), u"3"_s);
    QCOMPARE(m_prompts->messages, QStringList());
}

void SendDialogTest::thirteenPagesAndOldFirmwareChangeKeysAndTexts()
{
    QDialog* dialog = openSendDialog(*m_window);
    QCheckBox *thirteenPages = nullptr, *oldFirmware = nullptr;
    QVERIFY(dialog);
    QVERIFY(find(*dialog, u"Check1"_s, thirteenPages));
    QVERIFY(find(*dialog, u"Check2"_s, oldFirmware));
    thirteenPages->setChecked(true);
    QTest::mouseClick(oldFirmware, Qt::LeftButton);
    QVERIFY(m_window->document().OldFirmware);

    QVERIFY(clickSend(*dialog, u"3"_s));

    const auto textOf = [](int plu) -> QString {
        switch (plu) {
        case 101:
            return u" Cola "_s;
        case 102:
            return u"Fanta"_s;
        case 201:
            return QString(30, u'a');
        case 202:
            return u"Salad"_s;
        case 301:
            return u"Extra cheese"_s;
        default:
            return u"Bacon"_s;
        }
    };
    QCOMPARE(m_link->calls(), expectedSession(textOf, 289, 336, u"English"_s));
}

void SendDialogTest::aPortThatDoesNotOpenSendsNothingAndAMissingLibraryIsNamed()
{
    SimulatedLink::setInitResult(4);
    QDialog* dialog = openSendDialog(*m_window);
    QVERIFY(dialog);
    QVERIFY(clickSend(*dialog, u"3 (COM3)"_s));
    QCOMPARE(m_link->calls(), QStringList { linkCall("menu_init", { 3, 1, 65535 }) });
    QCOMPARE(dialog->windowTitle(), u"Send"_s);
    QVERIFY(dialog->isVisible());
    QVERIFY(shownText(*dialog, u"Status"_s).contains(u"nothing was sent"_s));
    QCOMPARE(m_prompts->messages, QStringList());

    qputenv("QUORVEL_DRAVLINK", QByteArray(m_link->filePath(u"missing/Dravlink"_s).toLocal8Bit()));
    MainWindow otherWindow(*m_prompts);
    QDialog* otherDialog = openSendDialog(otherWindow);
    QVERIFY(otherDialog);
    QVERIFY(clickSend(*otherDialog, u"3"_s));
    QCOMPARE(m_prompts->messages.size(), 1);
    QVERIFY2(m_prompts->messages.first().contains(u"Dravlink"_s), qPrintable(m_prompts->messages.first()));
}

void SendDialogTest::theMenuCheckComesFirstAndShowsTheRowsItNames()
{
    m_window->document().LinePlu[lineSlot(3, 4)] = 9876;
    QVERIFY(trigger(*m_window, u"SendAll"_s));
    QDialog* check = checkWindow();
    QVERIFY(check && check->isVisible());
    QVERIFY(!m_window->findChild<QDialog*>(u"SendDialog"_s));
    QTreeWidget* problems = nullptr;
    QVERIFY(find(*check, u"Problems"_s, problems));
    const QList<QTreeWidgetItem*> missing = problems->findItems(u"missing-product"_s, Qt::MatchExactly, 4);
    QCOMPARE(missing.size(), 1);
    QCOMPARE(missing.first()->text(0), u"3"_s);
    QCOMPARE(missing.first()->text(2), u"5"_s);

    // Activating it shows page 3 with row 5 taking the keyboard.
    emit problems->itemActivated(missing.first(), 0);
    QCOMPARE(m_window->findChild<PageView*>()->currentPage(), 3);
    QCOMPARE(m_window->focusWidget(), m_window->findChild<QWidget*>(u"Linhas_4"_s));

    QVERIFY(trigger(*check, u"Close"_s));
    QVERIFY(!m_window->findChild<QDialog*>(u"SendDialog"_s));
    QVERIFY(trigger(*m_window, u"CheckMenu"_s));
    QPushButton* sendAnyway = nullptr;
    QVERIFY(find(*checkWindow(), u"SendAnyway"_s, sendAnyway));
    QVERIFY(checkWindow()->isVisible());
    QVERIFY(!sendAnyway->isVisible());
}

QTEST_MAIN(SendDialogTest)
#include "SendDialogTest.moc"
