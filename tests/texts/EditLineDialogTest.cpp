#include "texts/EditLineDialog.h"

#include "catalogue/CataloguePanel.h"
#include "document/ComponentFiles.h"
#include "support/RecordingTranslator.h"
#include "support/RequireChild.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"
#include "texts/LanguageArea.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using SampleDocuments::addPlu;

class EditLineDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void titleTextsAreKeptUnderTheirSlot();
    void productTextsFollowTheCodeAndRenameTheListEntry();
    void languageNamesAreEditedOnlyWhileUnlocked();
    void anEmptyRowLeavesTheLanguageNamesAlone();
    void autoPrefersTheRowNamedExactlyEnglish();
    void translateAllFillsRowsOneToFourOnly();
    void autoWithoutAnySourceOnlyEmptiesTheRow();
    void coloursBelongToExistingLinesAndAreStoredAtOnce();
    void closingBindsTheProductOfAProductLine();
    void closingAsTitleOrNoteUnbindsTheProduct();
    void closingGivesTheSelectedProductTheCodeAndPrice();
    void enterAnywhereCloses();

private:
    // Opens the editor, not modally, on a row of the page as the main window shows it.
    EditLineDialog& open(const LineEditing::Opening& opening);
    template<typename Widget = QLineEdit>
    Widget* find(const QString& name) const
    {
        return requireChild<Widget>(*m_dialog, name);
    }
    QLineEdit* text3(int row) const { return find(u"Text3_"_s + QString::number(row)); }
    void click(const QString& button) const { find<QAbstractButton>(button)->click(); }
    QString language(int key, int column) const { return m_document->LanguageTable.at(key, column); }
    void setLanguageNames(const QStringList& names);

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<MenuDocument> m_document;
    ScriptedPrompts m_prompts;
    RecordingTranslator m_translator;
    std::unique_ptr<CataloguePanel> m_catalogue;
    std::unique_ptr<EditLineDialog> m_dialog;
};

void EditLineDialogTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_document = std::make_unique<MenuDocument>();
    m_prompts = ScriptedPrompts();
    m_translator.calls.clear();
    addPlu(*m_document, u"101"_s, u"Sopa"_s, u"3.00"_s);
    addPlu(*m_document, u"102"_s, u"Bitoque"_s, u"9.50"_s);
    addPlu(*m_document, u"103"_s, u"Mousse"_s, u"3.50"_s);
    setLanguageNames({ u"Portugues"_s, u"English"_s, u"Italiano"_s, u"Frances"_s, u"Espanol"_s });
    m_catalogue = std::make_unique<CataloguePanel>(*m_document, m_prompts);
    m_catalogue->rebuildPluList();
}

void EditLineDialogTest::cleanup()
{
    m_dialog.reset();
    m_catalogue.reset();
    m_document.reset();
    m_root.reset();
}

EditLineDialog& EditLineDialogTest::open(const LineEditing::Opening& opening)
{
    m_dialog = std::make_unique<EditLineDialog>(*m_document, opening, *m_catalogue, m_translator, m_prompts);
    m_dialog->show();
    return *m_dialog;
}

void EditLineDialogTest::setLanguageNames(const QStringList& names)
{
    for (int row = 0; row < names.size(); ++row) {
        m_document->LanguageTable.at(TextKey::LanguageNames, row + 1) = names[row];
    }
}

void EditLineDialogTest::titleTextsAreKeptUnderTheirSlot()
{
    // given a title on page 2, row 5, with texts stored under 10000 + 24 + 5
    LineLayout& line = m_document->LineLayouts[lineSlot(2, 5)];
    line.kind = TitleLine;
    line.text = u"Sobremesas"_s;
    m_document->LanguageTable.at(10029, 1) = u"stored first text"_s;
    m_document->LanguageTable.at(10029, 3) = u"Dolci"_s;

    open({ 2, 5, u"Sobremesas"_s, {}, {}, {}, {} });

    // then the title is shown with its own text in row 0 and the stored ones below it
    QVERIFY(find<QRadioButton>(u"Option2"_s)->isChecked());
    QVERIFY(find<QGroupBox>(u"Frame2"_s)->isVisible());
    QVERIFY(!find<QGroupBox>(u"Frame1"_s)->isVisible());
    QCOMPARE(text3(0)->text(), u"Sobremesas"_s);
    QCOMPARE(text3(2)->text(), u"Dolci"_s);
    QCOMPARE(find<QLabel>(u"Label4"_s)->text(), u"Sobremesas"_s);
    QCOMPARE(find(u"Text1"_s)->text(), u"104"_s); // a number no product has

    text3(1)->setText(u"Desserts"_s);
    QCOMPARE(language(10029, 2), u"Desserts"_s);
    text3(0)->setText(u"Doces"_s);
    QCOMPARE(language(10029, 1), u"Doces"_s);
    QCOMPARE(find<QLabel>(u"Label4"_s)->text(), u"Doces"_s);

    // choosing the note shows its own frame with the line's text
    click(u"Option3"_s);
    QVERIFY(find<QGroupBox>(u"Frame3"_s)->isVisible());
    QVERIFY(!find<QGroupBox>(u"Frame2"_s)->isVisible());
    QCOMPARE(find<QLabel>(u"Label5"_s)->text(), u"Doces"_s);
}

void EditLineDialogTest::productTextsFollowTheCodeAndRenameTheListEntry()
{
    m_document->LineLayouts[0].kind = ProductLine;
    m_document->LanguageTable.at(102, 2) = u"Steak"_s;
    open({ 1, 0, u"Bitoque"_s, u"1"_s, u"102"_s, u"9.50"_s, u"Bitoque"_s });

    QVERIFY(find<QRadioButton>(u"Option1"_s)->isChecked());
    QVERIFY(find<QGroupBox>(u"Frame1"_s)->isVisible());
    QCOMPARE(find(u"Text1"_s)->text(), u"102"_s);
    QCOMPARE(find(u"Text2"_s)->text(), u"9.50"_s);
    QCOMPARE(text3(1)->text(), u"Steak"_s);

    text3(0)->setText(u"Bitoque da casa"_s);
    QCOMPARE(language(102, 1), u"Bitoque da casa"_s);
    QCOMPARE(m_catalogue->findChild<QListWidget*>(u"Lista_plus"_s)->item(1)->text(), u"Bitoque da casa"_s);

    // the key follows the code as it is typed
    find(u"Text1"_s)->setText(u"202"_s);
    text3(3)->setText(u"Bistec"_s);
    QCOMPARE(language(202, 4), u"Bistec"_s);
    QCOMPARE(language(102, 4), QString());
}

void EditLineDialogTest::languageNamesAreEditedOnlyWhileUnlocked()
{
    open({ 1, 0, u"Sopa"_s, u"0"_s, u"101"_s, {}, {} });
    auto* lingua = find<QComboBox>(u"Lingua_4"_s);
    QCOMPARE(lingua->currentText(), u"Espanol"_s);
    QVERIFY(!lingua->isEnabled());

    click(u"Check1"_s);
    QVERIFY(lingua->isEnabled());
    lingua->setCurrentText(u"Deutsch"_s);
    QCOMPARE(language(TextKey::LanguageNames, 5), u"Deutsch"_s);

    click(u"Check1"_s);
    QVERIFY(!find<QComboBox>(u"Lingua_0"_s)->isEnabled());
}

void EditLineDialogTest::anEmptyRowLeavesTheLanguageNamesAlone()
{
    m_document->FilePrefix = m_root->path() + u"/menu"_s;
    const QString languages = m_document->FilePrefix + u"_Languages.txt"_s;
    QVERIFY(ComponentFiles::save(*m_document).isEmpty());
    const QByteArray namesBefore = readBytes(languages);

    // An empty row shares its key with the language names: the other languages wait for a code.
    open({ 1, 9, {}, {}, {}, {}, {} });
    for (int row = 1; row < LanguageArea::Rows; ++row) {
        QVERIFY(text3(row)->text().isEmpty());
        QVERIFY(!text3(row)->isEnabled());
        QVERIFY(!text3(row)->placeholderText().isEmpty());
        QTest::keyClicks(text3(row), u"Water"_s);
    }
    QVERIFY(!find<QPushButton>(u"Command5"_s)->isEnabled());
    QTest::keyClicks(text3(0), u"Agua"_s);
    QCOMPARE(find<QLabel>(u"Label1"_s)->text(), u"Agua"_s);
    m_dialog->close();
    QVERIFY(ComponentFiles::save(*m_document).isEmpty());
    QCOMPARE(readBytes(languages), namesBefore);

    // A code opens them, under the product's key.
    open({ 1, 10, {}, {}, {}, {}, {} });
    find(u"Text1"_s)->setText(u"305"_s);
    QVERIFY(text3(1)->isEnabled());
    QTest::keyClicks(text3(1), u"Water"_s);
    QCOMPARE(language(305, 2), u"Water"_s);
    QCOMPARE(language(TextKey::LanguageNames, 2), u"English"_s);
}

void EditLineDialogTest::autoPrefersTheRowNamedExactlyEnglish()
{
    // given Portuguese in row 0 and English in row 3
    setLanguageNames({ u"Portugues"_s, u"Italiano"_s, u"Frances"_s, u"English"_s, u"Espanol"_s });
    m_document->LanguageTable.at(101, 4) = u"Soup"_s;
    open({ 1, 0, u"Sopa"_s, u"0"_s, u"101"_s, {}, {} });

    click(u"Command4_1"_s);
    click(u"Command4_4"_s);
    QCOMPARE(m_translator.calls, (QStringList { u"English>Italiano:Soup"_s, u"English>Espanol:Soup"_s }));
    QCOMPARE(text3(1)->text(), u"Italiano:Soup"_s);
    QCOMPARE(language(101, 2), u"Italiano:Soup"_s);

    // "english" is not the English row: the first row with a text is the source
    m_translator.calls.clear();
    setLanguageNames({ u"Portugues"_s, u"Italiano"_s, u"Frances"_s, u"english"_s, u"Espanol"_s });
    open({ 1, 0, u"Sopa"_s, u"0"_s, u"101"_s, {}, {} });
    click(u"Command4_2"_s);
    QCOMPARE(m_translator.calls, (QStringList { u"Portugues>Frances:Sopa"_s }));
}

void EditLineDialogTest::translateAllFillsRowsOneToFourOnly()
{
    // given an empty row 0 and an English text in row 3
    setLanguageNames({ u"Portugues"_s, u"Italiano"_s, u"Frances"_s, u"English"_s, u"Espanol"_s });
    m_document->LanguageTable.at(101, 4) = u"Soup"_s;
    m_document->LanguageTable.at(101, 3) = u"old"_s;
    m_document->LineLayouts[0].kind = ProductLine;
    open({ 1, 0, {}, u"0"_s, u"101"_s, {}, {} });

    click(u"Command5"_s);

    // row 3 empties itself and falls back to the first text left, row 1; row 4 finds English again
    QCOMPARE(m_translator.calls,
        (QStringList { u"English>Italiano:Soup"_s, u"English>Frances:Soup"_s,
            u"Italiano>English:Italiano:Soup"_s, u"English>Espanol:English:Italiano:Soup"_s }));
    QCOMPARE(text3(0)->text(), QString());
    QCOMPARE(language(101, 1), QString());
    QCOMPARE(language(101, 3), u"Frances:Soup"_s);
}

void EditLineDialogTest::autoWithoutAnySourceOnlyEmptiesTheRow()
{
    m_document->LanguageTable.at(101, 3) = u"Minestra"_s;
    open({ 1, 0, {}, u"0"_s, u"101"_s, {}, {} });

    click(u"Command4_2"_s);
    QVERIFY(m_translator.calls.isEmpty());
    QCOMPARE(text3(2)->text(), QString());
    QCOMPARE(language(101, 3), QString());
}

void EditLineDialogTest::coloursBelongToExistingLinesAndAreStoredAtOnce()
{
    open({ 1, 3, {}, {}, {}, {}, {} });
    QVERIFY(!find<QPushButton>(u"Command1"_s)->isEnabled());
    QVERIFY(!find<QPushButton>(u"Command2"_s)->isEnabled());

    LineLayout& line = m_document->LineLayouts[4];
    line.kind = NoteLine;
    line.foreColor = u"65280"_s;
    open({ 1, 4, u"Picante"_s, {}, {}, {}, {} });
    QVERIFY(find<QPushButton>(u"Command1"_s)->isEnabled());

    m_prompts.answers = QStringList { u"255"_s };
    click(u"Command1"_s);
    QCOMPARE(line.backColor, u"255"_s);
    QCOMPARE(find<QLabel>(u"Label1"_s)->palette().color(QPalette::Window), QColor(Qt::red));

    // cancelled: the colour stays, and the dialog opened on the line's own colour
    click(u"Command2"_s);
    QCOMPARE(m_prompts.asked, (QStringList { u"color: 15724527"_s, u"color: 65280"_s }));
    QCOMPARE(line.foreColor, u"65280"_s);
    QCOMPARE(find<QLabel>(u"Label1"_s)->palette().color(QPalette::WindowText), QColor(Qt::green));
}

void EditLineDialogTest::closingBindsTheProductOfAProductLine()
{
    // a line with a product takes the code and the price on that product
    m_document->LineLayouts[0].kind = ProductLine;
    m_document->LinePlu[0] = 102;
    open({ 1, 0, u"Bitoque"_s, u"1"_s, u"102"_s, u"9.50"_s, {} });
    find(u"Text1"_s)->setText(u"202"_s);
    find(u"Text2"_s)->setText(u"10.00"_s);
    m_dialog->close();
    QCOMPARE(m_document->Plus[1].Code, u"202"_s);
    QCOMPARE(m_document->Plus[1].Price, u"10.00"_s);
    QCOMPARE(m_document->LineLayouts[0].text, u"Bitoque"_s);
    QCOMPARE(m_document->PluCount, 3);

    // a line without one becomes a new product at the end of the catalogue
    open({ 1, 7, u"Arroz de pato"_s, {}, {}, {}, {} });
    find(u"Text1"_s)->setText(u"300"_s);
    find(u"Text2"_s)->setText(u"11.00"_s);
    m_dialog->close();
    QCOMPARE(m_document->PluCount, 4);
    QCOMPARE(m_document->Plus[3], (PluRecord { u"300"_s, {}, u"300"_s, u"11.00"_s, u"Arroz de pato"_s }));
    QCOMPARE(m_document->LinePlu[7], 300);
    QCOMPARE(m_document->LineLayouts[7].kind, static_cast<std::int32_t>(ProductLine));

    // without a code nothing is made, and an empty row stays empty
    open({ 1, 8, u"Sem codigo"_s, {}, {}, {}, {} });
    m_dialog->close();
    open({ 1, 9, {}, {}, {}, {}, {} });
    find(u"Text1"_s)->setText(u"400"_s);
    m_dialog->close();
    QCOMPARE(m_document->PluCount, 4);
    QCOMPARE(m_document->LineLayouts[9].kind, static_cast<std::int32_t>(EmptyLine));
}

void EditLineDialogTest::closingAsTitleOrNoteUnbindsTheProduct()
{
    m_document->LineLayouts[2].kind = ProductLine;
    m_document->LinePlu[2] = 103;
    open({ 1, 2, u"Mousse"_s, u"2"_s, u"103"_s, u"3.50"_s, {} });
    click(u"Option2"_s);
    text3(0)->setText(u"Doces"_s);
    m_dialog->close();
    QCOMPARE(m_document->Plus[2].Code, u"0"_s);
    QCOMPARE(m_document->Plus[2].Description, u"Mousse"_s);
    QCOMPARE(m_document->LineLayouts[2].kind, static_cast<std::int32_t>(TitleLine));
    QCOMPARE(m_document->LineLayouts[2].text, u"Doces"_s);

    open({ 1, 2, u"Doces"_s, {}, {}, {}, {} });
    click(u"Option3"_s);
    m_dialog->close();
    QCOMPARE(m_document->LineLayouts[2].kind, static_cast<std::int32_t>(NoteLine));
    QCOMPARE(m_document->LineLayouts[2].text, u"Doces"_s);
    QCOMPARE(m_document->PluCount, 3);
}

void EditLineDialogTest::closingGivesTheSelectedProductTheCodeAndPrice()
{
    // an empty row shows the selected product, so closing it untouched changes nothing
    open({ 1, 5, {}, {}, {}, {}, u"Mousse"_s });
    QCOMPARE(text3(0)->text(), u"Mousse"_s);
    QCOMPARE(find(u"Text1"_s)->text(), u"103"_s);
    m_dialog->close();
    QCOMPARE(m_document->Plus[2].Code, u"103"_s);
    QCOMPARE(m_document->Plus[2].Price, u"3.50"_s);

    open({ 1, 5, {}, {}, {}, {}, u"Mousse"_s });
    find(u"Text1"_s)->setText(u"303"_s);
    find(u"Text2"_s)->setText(u"4.00"_s);
    m_dialog->close();
    QCOMPARE(m_document->Plus[2].Code, u"303"_s);
    QCOMPARE(m_document->Plus[2].Price, u"4.00"_s);
}

void EditLineDialogTest::enterAnywhereCloses()
{
    m_document->LineLayouts[6].kind = NoteLine;
    for (const QString& name : { u"Text3_2"_s, u"Command4_1"_s, u"Check1"_s, u"Option3"_s }) {
        open({ 1, 6, u"Picante"_s, {}, {}, {}, {} });
        QTest::keyClick(find<QWidget>(name), Qt::Key_Return);
        QVERIFY2(!m_dialog->isVisible(), qPrintable(name));
    }
    open({ 1, 6, u"Picante"_s, {}, {}, {}, {} });
    click(u"Option2"_s);
    click(u"Command3"_s);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_document->LineLayouts[6].kind, static_cast<std::int32_t>(TitleLine));
}

QTEST_MAIN(EditLineDialogTest)
#include "EditLineDialogTest.moc"
