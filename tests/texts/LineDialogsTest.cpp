// The Edit Line and Group Title dialogs reach the line logic and show its result. What the logic does
// to the document is checked by the line texts' logic tests.
#include "catalogue/CataloguePanel.h"
#include "document/ComponentFiles.h"
#include "support/RecordingTranslator.h"
#include "support/SampleDocuments.h"
#include "support/WidgetFixture.h"
#include "texts/EditLineDialog.h"
#include "texts/GroupTitleDialog.h"
#include "texts/LanguageArea.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using SampleDocuments::addPlu;

class LineDialogsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void editLineStoresTextsKindsAndColoursAndClosesOnEnter();
    void editLineTranslatesFromTheSourceRow();
    void editLineOnAnEmptyRowLeavesTheLanguageNamesAlone();
    void groupTitleMakesAndRemovesTheGroup();

private:
    void openEditLine(const LineEditing::Opening& opening);
    void openGroupTitle(int row, const QString& title);
    [[nodiscard]] bool setText(QWidget& dialog, const QString& name, const QString& text) const;
    // Whether the named frame is shown.
    QString frame(const QString& name) const;

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<MenuDocument> m_document;
    ScriptedPrompts m_prompts;
    RecordingTranslator m_translator;
    std::unique_ptr<CataloguePanel> m_catalogue;
    std::unique_ptr<EditLineDialog> m_editLine;
    std::unique_ptr<GroupTitleDialog> m_groupTitle;
};

void LineDialogsTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_document = std::make_unique<MenuDocument>();
    m_prompts = ScriptedPrompts();
    m_translator.calls.clear();
    addPlu(*m_document, u"101"_s, u"Sopa"_s, u"3.00"_s);
    addPlu(*m_document, u"102"_s, u"Bitoque"_s, u"9.50"_s);
    const QStringList names { u"Portugues"_s, u"Italiano"_s, u"Frances"_s, u"English"_s, u"Espanol"_s };
    for (int row = 0; row < names.size(); ++row) {
        m_document->LanguageTable.at(TextKey::LanguageNames, row + 1) = names[row];
    }
    m_catalogue = std::make_unique<CataloguePanel>(*m_document, m_prompts);
    m_catalogue->rebuildPluList();
}

void LineDialogsTest::cleanup()
{
    m_editLine.reset();
    m_groupTitle.reset();
    m_catalogue.reset();
    m_document.reset();
    m_root.reset();
}

void LineDialogsTest::openEditLine(const LineEditing::Opening& opening)
{
    m_editLine
        = std::make_unique<EditLineDialog>(*m_document, opening, *m_catalogue, m_translator, m_prompts);
    m_editLine->show();
}

void LineDialogsTest::openGroupTitle(int row, const QString& title)
{
    m_groupTitle = std::make_unique<GroupTitleDialog>(*m_document, 1, row, title, m_translator, m_prompts);
    m_groupTitle->show();
}

bool LineDialogsTest::setText(QWidget& dialog, const QString& name, const QString& text) const
{
    QLineEdit* box = nullptr;
    if (!find(dialog, name, box)) {
        return false;
    }
    box->setText(text);
    return true;
}

QString LineDialogsTest::frame(const QString& name) const
{
    QGroupBox* box = nullptr;
    return !find(*m_editLine, name, box) ? u"missing"_s : box->isVisible() ? u"shown"_s : u"hidden"_s;
}

void LineDialogsTest::editLineStoresTextsKindsAndColoursAndClosesOnEnter()
{
    // An empty row has no line to colour.
    openEditLine({ 1, 3, {}, {}, {}, {}, {} });
    QPushButton *backColour = nullptr, *textColour = nullptr;
    QVERIFY(find(*m_editLine, u"Command1"_s, backColour));
    QVERIFY(find(*m_editLine, u"Command2"_s, textColour));
    QVERIFY(!backColour->isEnabled() && !textColour->isEnabled());

    // A title on page 2, row 5: its texts live under 10029.
    LineLayout& title = m_document->LineLayouts[lineSlot(2, 5)];
    title.kind = TitleLine;
    title.text = u"Sobremesas"_s;
    m_document->LanguageTable.at(10029, 3) = u"Dolci"_s;
    openEditLine({ 2, 5, u"Sobremesas"_s, {}, {}, {}, {} });
    QCOMPARE(frame(u"Frame2"_s), u"shown"_s);
    QCOMPARE(frame(u"Frame1"_s), u"hidden"_s);
    QCOMPARE(shownText(*m_editLine, u"Text3_2"_s), u"Dolci"_s);
    QCOMPARE(shownText(*m_editLine, u"Text1"_s), u"103"_s);
    QVERIFY(setText(*m_editLine, u"Text3_0"_s, u"Doces"_s));
    QCOMPARE(m_document->LanguageTable.at(10029, 1), u"Doces"_s);
    QCOMPARE(shownText(*m_editLine, u"Label4"_s), u"Doces"_s);
    QVERIFY(trigger(*m_editLine, u"Option3"_s));
    QCOMPARE(frame(u"Frame3"_s), u"shown"_s);
    QCOMPARE(shownText(*m_editLine, u"Label5"_s), u"Doces"_s);

    // The language names are edited only while unlocked.
    QComboBox* lingua = nullptr;
    QVERIFY(find(*m_editLine, u"Lingua_4"_s, lingua));
    QVERIFY(!lingua->isEnabled());
    QVERIFY(trigger(*m_editLine, u"Check1"_s));
    lingua->setCurrentText(u"Deutsch"_s);
    QCOMPARE(m_document->LanguageTable.at(TextKey::LanguageNames, 5), u"Deutsch"_s);

    // Colours are stored at once; without one of its own the line starts from the note's default.
    m_prompts.answers = QStringList { u"255"_s };
    QVERIFY(trigger(*m_editLine, u"Command1"_s));
    QVERIFY(trigger(*m_editLine, u"Command2"_s)); // cancelled
    QCOMPARE(title.backColor, u"255"_s);
    QCOMPARE(title.foreColor, QString());
    QCOMPARE(m_prompts.asked, QStringList({ u"color: 15724527"_s, u"color: 0"_s }));

    // Enter closes from any control, and closing writes the line back.
    QCheckBox* unlock = nullptr;
    QVERIFY(find(*m_editLine, u"Check1"_s, unlock));
    QTest::keyClick(unlock, Qt::Key_Return);
    QVERIFY(!m_editLine->isVisible());
    QCOMPARE(title.kind, static_cast<std::int32_t>(NoteLine));
    QCOMPARE(title.text, u"Doces"_s);

    // A product row renames the catalogue's entry as its first text is typed.
    m_document->LineLayouts[0].kind = ProductLine;
    m_document->LinePlu[0] = 102;
    openEditLine({ 1, 0, u"Bitoque"_s, u"1"_s, u"102"_s, u"9.50"_s, {} });
    QCOMPARE(frame(u"Frame1"_s), u"shown"_s);
    QVERIFY(setText(*m_editLine, u"Text3_0"_s, u"Bitoque da casa"_s));
    QListWidget* list = nullptr;
    QVERIFY(find(*m_catalogue, u"Lista_plus"_s, list));
    QCOMPARE(list->item(1)->text(), u"Bitoque da casa"_s);
    QVERIFY(setText(*m_editLine, u"Text2"_s, u"10.00"_s));
    QVERIFY(trigger(*m_editLine, u"Command3"_s));
    QVERIFY(!m_editLine->isVisible());
    QCOMPARE(m_document->Plus[1].Price, u"10.00"_s);
}

void LineDialogsTest::editLineOnAnEmptyRowLeavesTheLanguageNamesAlone()
{
    m_document->FilePrefix = m_root->path() + u"/menu"_s;
    const QString languages = m_document->FilePrefix + u"_Languages.txt"_s;
    QVERIFY(ComponentFiles::save(*m_document).isEmpty());
    const QByteArray namesBefore = readBytes(languages);

    // An empty row shares its key with the language names: the other languages wait for a code.
    openEditLine({ 1, 9, {}, {}, {}, {}, {} });
    QLineEdit* box = nullptr;
    for (int row = 1; row < LanguageArea::Rows; ++row) {
        QVERIFY(find(*m_editLine, u"Text3_"_s + QString::number(row), box));
        QVERIFY(box->text().isEmpty() && !box->isEnabled() && !box->placeholderText().isEmpty());
        QTest::keyClicks(box, u"Water"_s);
    }
    QPushButton* translateAll = nullptr;
    QVERIFY(find(*m_editLine, u"Command5"_s, translateAll));
    QVERIFY(!translateAll->isEnabled());
    QVERIFY(find(*m_editLine, u"Text3_0"_s, box));
    QTest::keyClicks(box, u"Agua"_s);
    QCOMPARE(shownText(*m_editLine, u"Label1"_s), u"Agua"_s);
    m_editLine->close();
    QVERIFY(ComponentFiles::save(*m_document).isEmpty());
    QCOMPARE(readBytes(languages), namesBefore);

    // A code opens them, under the product's key.
    openEditLine({ 1, 10, {}, {}, {}, {}, {} });
    QVERIFY(setText(*m_editLine, u"Text1"_s, u"305"_s));
    QVERIFY(find(*m_editLine, u"Text3_1"_s, box));
    QVERIFY(box->isEnabled());
    QTest::keyClicks(box, u"Water"_s);
    QCOMPARE(m_document->LanguageTable.at(305, 2), u"Water"_s);
    QCOMPARE(m_document->LanguageTable.at(TextKey::LanguageNames, 2), u"Italiano"_s);
}

void LineDialogsTest::editLineTranslatesFromTheSourceRow()
{
    m_document->LineLayouts[0].kind = ProductLine;
    m_document->LanguageTable.at(101, 3) = u"Minestra"_s;
    openEditLine({ 1, 0, {}, u"0"_s, u"101"_s, {}, {} });
    QVERIFY(trigger(*m_editLine, u"Command4_2"_s)); // no text to translate from: the row only empties
    QVERIFY(m_translator.calls.isEmpty());
    QCOMPARE(m_document->LanguageTable.at(101, 3), QString());

    m_document->LanguageTable.at(101, 4) = u"Soup"_s;
    openEditLine({ 1, 0, {}, u"0"_s, u"101"_s, {}, {} });
    QVERIFY(trigger(*m_editLine, u"Command4_1"_s));
    QCOMPARE(m_translator.calls, QStringList { u"English>Italiano:Soup"_s });
    QCOMPARE(m_document->LanguageTable.at(101, 2), u"Italiano:Soup"_s);

    // Translate All fills rows 1 to 4, each from the source as it stands then.
    m_translator.calls.clear();
    QVERIFY(trigger(*m_editLine, u"Command5"_s));
    QCOMPARE(m_translator.calls,
        QStringList({ u"English>Italiano:Soup"_s, u"English>Frances:Soup"_s,
            u"Italiano>English:Italiano:Soup"_s, u"English>Espanol:English:Italiano:Soup"_s }));
    QCOMPARE(shownText(*m_editLine, u"Text3_0"_s), QString());
}

void LineDialogsTest::groupTitleMakesAndRemovesTheGroup()
{
    m_document->PrintSettings.ColorBack[0] = u"33023"_s;
    m_document->PrintSettings.ColorFore[0] = u"0"_s;
    m_document->ProjectFolder = u"C:\\menus\\bar\\"_s;
    m_document->LineLayouts[4].kind = ProductLine;
    m_document->LineLayouts[7].backText = u"Vinhos"_s;
    openGroupTitle(3, u"Pratos"_s);
    const LineLayout& head = m_document->LineLayouts[3];
    QCOMPARE(head.backBackColor, u"33023"_s); // the defaults of text lines
    QVERIFY(setText(*m_groupTitle, u"Text3_0"_s, u"Pratos do dia"_s));
    QCOMPARE(head.backText, u"Pratos do dia"_s);
    QCOMPARE(shownText(*m_groupTitle, u"Label1"_s), u"Pratos do dia"_s);

    m_prompts.answers = QStringList { u"255"_s, u"65280"_s, u"C:/menus/bar/pics/soup.JPG"_s };
    QVERIFY(trigger(*m_groupTitle, u"VisibleOnLeft"_s));
    QVERIFY(trigger(*m_groupTitle, u"Command1"_s));
    QVERIFY(trigger(*m_groupTitle, u"Command2"_s));
    QVERIFY(trigger(*m_groupTitle, u"Command5"_s));
    QVERIFY(trigger(*m_groupTitle, u"Command1"_s)); // cancelled
    QVERIFY(trigger(*m_groupTitle, u"Command5"_s)); // cancelled
    QCOMPARE(shownText(*m_groupTitle, u"Text1"_s), u"pics/soup.JPG"_s);
    QCOMPARE(head.picturePath, u"pics/soup.JPG"_s);
    QCOMPARE(head.backBackColor, u"255"_s);
    QVERIFY(trigger(*m_groupTitle, u"Command3"_s));
    QVERIFY(!m_groupTitle->isVisible());
    QCOMPARE(head.pictureRole, static_cast<std::int32_t>(GroupStart));
    QCOMPARE(m_document->LineLayouts[4].backColor, u"255"_s);
    QCOMPARE(m_document->LineLayouts[6].pictureRole, static_cast<std::int32_t>(CoveredByPicture));

    // Auto and Translate All work as in the line editor.
    m_document->LanguageTable.at(11003, 4) = u"Dishes"_s;
    openGroupTitle(3, u"Pratos do dia"_s);
    QVERIFY(trigger(*m_groupTitle, u"Command4_1"_s));
    QCOMPARE(m_translator.calls, QStringList { u"English>Italiano:Dishes"_s });
    QVERIFY(trigger(*m_groupTitle, u"Command8"_s));
    QCOMPARE(m_translator.calls.size(), 5);

    QVERIFY(trigger(*m_groupTitle, u"Command7"_s));
    QVERIFY(!m_groupTitle->isVisible());
    QCOMPARE(head.pictureRole, 0);
    QCOMPARE(m_document->LineLayouts[4].backColor, QString());
}

QTEST_MAIN(LineDialogsTest)
#include "LineDialogsTest.moc"
