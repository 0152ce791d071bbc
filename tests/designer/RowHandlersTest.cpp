#include "app/MainWindow.h"
#include "designer/PageView.h"
#include "support/ModalDialogDriver.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace Qt::StringLiterals;
using SampleDocuments::addPlu;

class RowHandlersTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void typingANewProductCreatesItOnceWhenTheRowIsLeft();
    void typingOverAProductRenamesItEverywhere();
    void titleRowsNeverTouchTheCatalogue();
    void pricesAreStoredOnlyOnRowsWithAProduct();
    void bindingButtonsLayOutConsecutiveProducts();
    void enterAndDoubleClickOpenTheRowsEditors();

private:
    QLineEdit* box(const char* name, int row) const
    {
        return m_window->findChild<QLineEdit*>(QLatin1StringView(name) + u'_' + QString::number(row));
    }
    QListWidget* list(const char* name) const
    {
        return m_window->findChild<QListWidget*>(QLatin1StringView(name));
    }
    // Types into a box that has the focus, then moves the focus on, as a user leaving the row does.
    void typeAndLeave(QLineEdit* typed, const QString& text, QWidget* next);
    void showPage(int page);

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<ScriptedPrompts> m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

void RowHandlersTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_prompts = std::make_unique<ScriptedPrompts>();
    m_window = std::make_unique<MainWindow>(*m_prompts);
    MenuDocument& document = m_window->document();
    addPlu(document, u"101"_s, u"Sopa de legumes"_s, u"3.00"_s);
    addPlu(document, u"102"_s, u"Bitoque"_s, u"9.50"_s);
    addPlu(document, u"103"_s, u"Bacalhau com natas"_s, u"12.00"_s);
    addPlu(document, u"104"_s, u"Mousse"_s, u"3.50"_s);
    ModifierAssignment& assignment = document.Assignments[document.AssignmentCount++];
    assignment.Key = u"Bitoque"_s;
    m_window->Refresh_Page();
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void RowHandlersTest::cleanup()
{
    m_window.reset();
    m_prompts.reset();
    m_root.reset();
}

void RowHandlersTest::typeAndLeave(QLineEdit* typed, const QString& text, QWidget* next)
{
    typed->setFocus();
    QVERIFY(typed->hasFocus());
    typed->selectAll();
    QTest::keyClicks(typed, text);
    next->setFocus();
    QVERIFY(next->hasFocus());
}

void RowHandlersTest::showPage(int page)
{
    m_window->findChild<PageView*>()->setCurrentPage(page);
    m_window->Update_Page();
}

void RowHandlersTest::typingANewProductCreatesItOnceWhenTheRowIsLeft()
{
    const MenuDocument& document = m_window->document();
    QTest::keyClicks(box("Linhas", 2), u"Arroz"_s); // no focus yet: nothing is committed while typing
    QCOMPARE(document.PluCount, 4);

    typeAndLeave(box("Linhas", 2), u"Arroz de pato"_s, box("Linhas", 3));
    QCOMPARE(document.PluCount, 5);
    QCOMPARE(document.Plus[4].Code, u"105"_s);
    QCOMPARE(document.Plus[4].Description, u"Arroz de pato"_s);
    QCOMPARE(document.LinePlu[2], 105);
    QCOMPARE(box("Linhas", 2)->property("tag").toString(), u"4"_s);

    box("Linhas", 2)->setFocus();
    box("Linhas", 3)->setFocus();
    QCOMPARE(document.PluCount, 5);

    // An existing description binds that product instead of making another.
    typeAndLeave(box("Linhas", 3), u"Mousse"_s, box("Linhas", 4));
    QCOMPARE(document.PluCount, 5);
    QCOMPARE(document.LinePlu[3], 104);
    QCOMPARE(box("Price", 3)->text(), u"3.50"_s);
}

void RowHandlersTest::typingOverAProductRenamesItEverywhere()
{
    MenuDocument& document = m_window->document();
    document.LinePlu[lineSlot(1, 0)] = 102;
    document.LinePlu[lineSlot(2, 5)] = 102;
    m_window->Update_Page();

    typeAndLeave(box("Linhas", 0), u"Bitoque da casa"_s, box("Linhas", 1));
    QCOMPARE(document.Plus[1].Description, u"Bitoque da casa"_s);
    QCOMPARE(document.PluCount, 4);
    QCOMPARE(list("Lista_plus")->item(1)->text(), u"Bitoque da casa"_s);
    QCOMPARE(list("List1")->item(0)->text(), u"Bitoque da casa"_s);
    showPage(2);
    QCOMPARE(box("Linhas", 5)->text(), u"Bitoque da casa"_s);
}

void RowHandlersTest::titleRowsNeverTouchTheCatalogue()
{
    MenuDocument& document = m_window->document();
    document.LineLayouts[lineSlot(1, 1)].kind = TitleLine;
    m_window->Update_Page();

    typeAndLeave(box("Linhas", 1), u"Mousse"_s, box("Linhas", 2));
    QCOMPARE(document.LineLayouts[1].text, u"Mousse"_s);
    QCOMPARE(document.LinePlu[1], 0);
    QCOMPARE(document.PluCount, 4);

    typeAndLeave(box("LinhasVerso", 1), u"Sobremesas"_s, box("Linhas", 2));
    QCOMPARE(document.LineLayouts[1].backText, u"Sobremesas"_s);
}

void RowHandlersTest::pricesAreStoredOnlyOnRowsWithAProduct()
{
    MenuDocument& document = m_window->document();
    document.LinePlu[0] = 103;
    m_window->Update_Page();
    typeAndLeave(box("Price", 0), u"13.50"_s, box("Price", 1));
    QCOMPARE(document.Plus[2].Price, u"13.50"_s);

    typeAndLeave(box("Price", 1), u"7.00"_s, box("Price", 2));
    m_window->Update_Page();
    QCOMPARE(box("Price", 1)->text(), QString());
    for (int i = 0; i < document.PluCount; ++i) {
        QVERIFY(document.Plus[i].Price != u"7.00"_s);
    }
}

void RowHandlersTest::bindingButtonsLayOutConsecutiveProducts()
{
    const auto bind = [this](int row) {
        return m_window->findChild<QToolButton*>(u"Command12_"_s + QString::number(row));
    };
    MenuDocument& document = m_window->document();
    bind(0)->click(); // nothing selected in the catalogue: nothing happens
    QCOMPARE(document.LinePlu[0], 0);

    list("Lista_plus")->setCurrentRow(0);
    for (int row = 0; row < 3; ++row) {
        bind(row)->click();
    }
    QCOMPARE(document.LinePlu[0], 101);
    QCOMPARE(document.LinePlu[1], 102);
    QCOMPARE(document.LinePlu[2], 103);
    QCOMPARE(document.LineLayouts[2].kind, static_cast<std::int32_t>(ProductLine));
    QCOMPARE(box("Linhas", 2)->text(), u"Bacalhau com natas"_s);
    QVERIFY(bind(3)->hasFocus());
    QCOMPARE(list("Lista_plus")->currentRow(), 3);

    // On the last entry the selection stays; on the last row the focus does.
    bind(23)->setFocus();
    bind(23)->click();
    bind(22)->click();
    QCOMPARE(document.LinePlu[23], 104);
    QCOMPARE(document.LinePlu[22], 104);
    QVERIFY(bind(23)->hasFocus());
}

void RowHandlersTest::enterAndDoubleClickOpenTheRowsEditors()
{
    MenuDocument& document = m_window->document();
    document.LinePlu[4] = 102;
    m_window->Update_Page();
    list("Lista_plus")->setCurrentRow(2);

    // What an editor showed, looked at while it was open.
    QStringList shown;
    ModalDialogDriver driver;
    const auto showing = [&](const QStringList& names) {
        driver.onNextDialog([&shown, names](QDialog& dialog) {
            shown = { dialog.windowTitle() };
            for (const QString& name : names) {
                const auto* box = dialog.findChild<QLineEdit*>(name);
                shown.append(box ? box->text() : dialog.findChild<QLabel*>(name)->text());
            }
            dialog.close();
        });
    };

    showing({ u"Text1"_s, u"Text2"_s, u"Text3_0"_s });
    box("Linhas", 4)->setFocus();
    QTest::keyClick(box("Linhas", 4), Qt::Key_Return);
    QVERIFY(driver.acted());
    QCOMPARE(shown, (QStringList { u"Edit Line"_s, u"102"_s, u"9.50"_s, u"Bitoque"_s }));

    // Opening a row with a new text commits it first.
    showing({ u"Text1"_s, u"Text3_0"_s });
    QTest::keyClicks(box("Linhas", 6), u"Pudim"_s);
    QTest::mouseDClick(box("Linhas", 6), Qt::LeftButton);
    QVERIFY(driver.acted());
    QCOMPARE(shown, (QStringList { u"Edit Line"_s, u"105"_s, u"Pudim"_s }));
    QCOMPARE(document.Plus[4].Description, u"Pudim"_s);

    showing({ u"Label1"_s });
    box("LinhasVerso", 9)->setText(u"Doces"_s);
    box("LinhasVerso", 9)->setFocus();
    QTest::keyClick(box("LinhasVerso", 9), Qt::Key_Enter);
    QVERIFY(driver.acted());
    QVERIFY(!driver.leftOpen());
    QCOMPARE(shown, (QStringList { u"Group Title"_s, u"Doces"_s }));
}

QTEST_MAIN(RowHandlersTest)
#include "RowHandlersTest.moc"
