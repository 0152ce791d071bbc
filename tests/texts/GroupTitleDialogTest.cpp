#include "texts/GroupTitleDialog.h"

#include "document/MenuDocument.h"
#include "support/RecordingTranslator.h"
#include "support/RequireChild.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class GroupTitleDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void emptyGroupColoursStartFromTheTextLineDefaults();
    void titleTextsAreKeptUnderTheirSlot();
    void coloursReachTheBackRowOnlyWhenVisibleOnLeft();
    void picturesInTheProjectFolderAreStoredRelative();
    void aGroupOnTheLastRowCoversOnlyThatRow();
    void aGroupStopsAtTheNextGroupTitle();
    void removingAGroupClearsTheRowsBelowIt();
    void translationWorksAsInTheLineEditor();

private:
    GroupTitleDialog& open(int page, int row, const QString& title);
    template<typename Widget = QLineEdit>
    Widget* find(const QString& name) const
    {
        return requireChild<Widget>(*m_dialog, name);
    }
    void click(const QString& button) const { find<QAbstractButton>(button)->click(); }
    LineLayout& line(int slot) const { return m_document->LineLayouts[slot]; }
    // Page 1 with a product on row 4 coloured by hand, a title on row 5 and an empty row 6.
    void layOutRows();

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<MenuDocument> m_document;
    ScriptedPrompts m_prompts;
    RecordingTranslator m_translator;
    std::unique_ptr<GroupTitleDialog> m_dialog;
};

void GroupTitleDialogTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_document = std::make_unique<MenuDocument>();
    m_prompts = ScriptedPrompts();
    m_translator.calls.clear();
}

void GroupTitleDialogTest::cleanup()
{
    m_dialog.reset();
    m_document.reset();
    m_root.reset();
}

GroupTitleDialog& GroupTitleDialogTest::open(int page, int row, const QString& title)
{
    m_dialog = std::make_unique<GroupTitleDialog>(*m_document, page, row, title, m_translator, m_prompts);
    m_dialog->show();
    return *m_dialog;
}

void GroupTitleDialogTest::layOutRows()
{
    line(4).kind = ProductLine;
    line(4).backColor = u"111"_s;
    line(4).foreColor = u"222"_s;
    line(5).kind = TitleLine;
    line(5).backColor = u"333"_s;
    line(5).foreColor = u"444"_s;
}

void GroupTitleDialogTest::emptyGroupColoursStartFromTheTextLineDefaults()
{
    m_document->PrintSettings.ColorBack[0] = u"33023"_s;
    m_document->PrintSettings.ColorFore[0] = u"0"_s;
    line(3).backBackColor = u"  "_s;
    line(3).backForeColor = u"255"_s;
    open(1, 3, u"Pratos"_s);
    QCOMPARE(line(3).backBackColor, u"33023"_s);
    QCOMPARE(line(3).backForeColor, u"0"_s);
    QVERIFY(!find<QCheckBox>(u"VisibleOnLeft"_s)->isChecked());
    QCOMPARE(find<QLabel>(u"Label1"_s)->text(), u"Pratos"_s);
    QCOMPARE(find<QLabel>(u"Label1"_s)->palette().color(QPalette::Window), QColor(255, 128, 0));

    // a slot with group colours keeps them, and the box starts ticked
    line(7).backBackColor = u"255"_s;
    line(7).backForeColor = u"16777215"_s;
    open(1, 7, u"Vinhos"_s);
    QCOMPARE(line(7).backBackColor, u"255"_s);
    QCOMPARE(line(7).backForeColor, u"16777215"_s);
    QVERIFY(find<QCheckBox>(u"VisibleOnLeft"_s)->isChecked());
}

void GroupTitleDialogTest::titleTextsAreKeptUnderTheirSlot()
{
    m_document->LanguageTable.at(11027, 3) = u"Primi"_s;
    open(2, 3, u"Pratos"_s);
    QCOMPARE(find(u"Text3_2"_s)->text(), u"Primi"_s);

    find(u"Text3_1"_s)->setText(u"Dishes"_s);
    QCOMPARE(m_document->LanguageTable.at(11027, 2), u"Dishes"_s);
    QCOMPARE(line(27).backText, QString());
    find(u"Text3_0"_s)->setText(u"Pratos do dia"_s);
    QCOMPARE(m_document->LanguageTable.at(11027, 1), u"Pratos do dia"_s);
    QCOMPARE(line(27).backText, u"Pratos do dia"_s);
    QCOMPARE(find<QLabel>(u"Label1"_s)->text(), u"Pratos do dia"_s);
}

void GroupTitleDialogTest::coloursReachTheBackRowOnlyWhenVisibleOnLeft()
{
    open(1, 2, u"Pratos"_s);
    const QString initialBack = line(2).backBackColor;
    m_prompts.answers = QStringList { u"255"_s, u"65280"_s };
    click(u"Command1"_s);
    QCOMPARE(line(2).backBackColor, initialBack);
    QCOMPARE(find<QLabel>(u"Label1"_s)->palette().color(QPalette::Window), QColor(Qt::red));

    click(u"VisibleOnLeft"_s);
    click(u"Command2"_s);
    QCOMPARE(line(2).backForeColor, u"65280"_s);
    QCOMPARE(line(2).backBackColor, initialBack); // only the colour just chosen is stored

    click(u"Command2"_s); // cancelled
    QCOMPARE(line(2).backForeColor, u"65280"_s);
}

void GroupTitleDialogTest::picturesInTheProjectFolderAreStoredRelative()
{
    m_document->ProjectFolder = u"C:\\menus\\bar\\"_s;
    open(1, 0, u"Pratos"_s);
    m_prompts.answers = QStringList { u"C:/menus/bar/pics/soup.JPG"_s, u"C:/menus/other/wine.JPG"_s };
    click(u"Command5"_s);
    QCOMPARE(find(u"Text1"_s)->text(), u"pics/soup.JPG"_s);
    QCOMPARE(line(0).picturePath, u"pics/soup.JPG"_s);

    click(u"Command5"_s);
    QCOMPARE(line(0).picturePath, u"C:/menus/other/wine.JPG"_s);

    click(u"Command5"_s); // cancelled
    QCOMPARE(line(0).picturePath, u"C:/menus/other/wine.JPG"_s);
    QCOMPARE(m_prompts.asked.first(), u"open: *.JPG"_s);
}

void GroupTitleDialogTest::aGroupOnTheLastRowCoversOnlyThatRow()
{
    line(23).kind = ProductLine;
    line(24).kind = ProductLine;
    line(23).picturePath = u"a.jpg"_s;
    open(1, 23, u"Cafes"_s);
    click(u"VisibleOnLeft"_s);
    m_prompts.answers = QStringList { u"255"_s };
    click(u"Command1"_s);
    click(u"Command3"_s);

    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(line(23).pictureRole, static_cast<std::int32_t>(GroupStart));
    QCOMPARE(line(23).backText, u"Cafes"_s);
    QCOMPARE(line(23).backColor, u"255"_s);
    QCOMPARE(line(23).backBackColor, u"255"_s);
    LineLayout untouched;
    untouched.kind = ProductLine;
    QCOMPARE(line(24), untouched);
}

void GroupTitleDialogTest::aGroupStopsAtTheNextGroupTitle()
{
    layOutRows();
    line(7).backText = u"Vinhos"_s;
    line(3).picturePath = u"pratos.jpg"_s;
    open(1, 3, u"Pratos"_s);
    m_prompts.answers = QStringList { u"255"_s, u"65280"_s };
    click(u"Command1"_s);
    click(u"Command2"_s);
    click(u"Command3"_s);

    // products and empty lines take the group's colours; titles keep theirs
    QCOMPARE(line(4).backColor, u"255"_s);
    QCOMPARE(line(4).foreColor, u"65280"_s);
    QCOMPARE(line(5).backColor, u"333"_s);
    QCOMPARE(line(5).foreColor, u"444"_s);
    QCOMPARE(line(6).backColor, u"255"_s);
    for (int slot = 4; slot <= 6; ++slot) {
        QCOMPARE(line(slot).pictureRole, static_cast<std::int32_t>(CoveredByPicture));
        QCOMPARE(line(slot).backBackColor, QString()); // not visible on the left
    }
    LineLayout nextHead;
    nextHead.backText = u"Vinhos"_s;
    QCOMPARE(line(7), nextHead);
}

void GroupTitleDialogTest::removingAGroupClearsTheRowsBelowIt()
{
    layOutRows();
    line(2).pictureRole = GroupStart;
    line(2).backText = u"Pratos"_s;
    for (int slot = 3; slot < 24; ++slot) {
        line(slot).backBackColor = u"255"_s;
        line(slot).pictureRole = CoveredByPicture;
    }
    line(6).backText = u"Vinhos"_s;
    open(1, 2, u"Pratos antigos"_s);
    click(u"Command7"_s);

    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(line(2).pictureRole, 0);
    QCOMPARE(line(2).backText, u"Pratos antigos"_s);
    for (int slot = 3; slot <= 5; ++slot) {
        QCOMPARE(line(slot).backColor, QString());
        QCOMPARE(line(slot).foreColor, QString());
        QCOMPARE(line(slot).backBackColor, QString());
        QCOMPARE(line(slot).pictureRole, 0);
    }
    QCOMPARE(line(5).kind, static_cast<std::int32_t>(TitleLine));
    QCOMPARE(line(6).pictureRole, static_cast<std::int32_t>(CoveredByPicture));
    QCOMPARE(line(6).backBackColor, u"255"_s);
}

void GroupTitleDialogTest::translationWorksAsInTheLineEditor()
{
    m_document->LanguageTable.at(TextKey::LanguageNames, 1) = u"Portugues"_s;
    m_document->LanguageTable.at(TextKey::LanguageNames, 4) = u"English"_s;
    m_document->LanguageTable.at(11001, 4) = u"Desserts"_s;
    open(1, 1, QString());

    click(u"Command4_0"_s);
    QCOMPARE(line(1).backText, u"Portugues:Desserts"_s);

    click(u"Command8"_s);
    QCOMPARE(m_translator.calls.size(), 5);
    QCOMPARE(m_translator.calls[1], u"English>:Desserts"_s);
    QCOMPARE(m_dialog->findChild<QLineEdit*>(u"Text3_0"_s)->text(), u"Portugues:Desserts"_s);
}

QTEST_MAIN(GroupTitleDialogTest)
#include "GroupTitleDialogTest.moc"
