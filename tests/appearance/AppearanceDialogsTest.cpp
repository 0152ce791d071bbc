#include "appearance/BackgroundEffectsDialog.h"
#include "appearance/DefaultColorsDialog.h"
#include "designer/PictureBox.h"
#include "document/MenuDocument.h"
#include "support/RequireChild.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"
#include "ui/ColorButton.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class AppearanceDialogsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void defaultColoursAreStoredAtOnceAndACancelKeepsThem();
    void aTypedFontAndAnyCurrencyAreStored();
    void backgroundEffectsOnSideBChangeOnlyTheBackFields();
    void picturesInTheProjectFolderAreStoredRelative();
    void aPageBeyondTheTablesIsARangeFault();

private:
    template<typename Widget>
    Widget* find(QDialog& dialog, const QString& name) const
    {
        return requireChild<Widget>(dialog, name);
    }
    std::unique_ptr<BackgroundEffectsDialog> openBackgroundEffects(int page, int side);

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<MenuDocument> m_document;
    ScriptedPrompts m_prompts;
    PictureBox m_area { PictureBox::Fit::Fill };
};

void AppearanceDialogsTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_document = std::make_unique<MenuDocument>();
    m_prompts = ScriptedPrompts();
    m_area.setColor(QColor(0xEF, 0xEF, 0xEF));
}

void AppearanceDialogsTest::cleanup()
{
    m_document.reset();
    m_root.reset();
}

void AppearanceDialogsTest::defaultColoursAreStoredAtOnceAndACancelKeepsThem()
{
    DefaultColorsDialog dialog(*m_document, m_prompts);
    QCOMPARE(dialog.windowTitle(), u"Default Colors"_s);
    const auto button = [&](const QString& name) { return find<ColorButton>(dialog, name); };
    // a menu without printer settings: orange text lines with black text, white on black titles, notes
    // black on light grey
    const QList<std::pair<QString, std::int32_t>> shown = { { u"Command3_0"_s, 0x0080FF },
        { u"Command4_0"_s, 0 }, { u"Command3_1"_s, 0 }, { u"Command4_1"_s, 0xFFFFFF },
        { u"Command3_2"_s, 0xEFEFEF }, { u"Command4_2"_s, 0 }, { u"Command5"_s, 0xEFEFEF } };
    for (const auto& [name, color] : shown) {
        QCOMPARE(button(name)->colorNumber(), color);
    }

    m_prompts.answers = QStringList { u"255"_s, QString(), u"65280"_s };
    button(u"Command3_1"_s)->click();
    QCOMPARE(m_document->PrintSettings.ColorBack[1], u"255"_s);
    QCOMPARE(m_prompts.asked.last(), u"color: 0"_s); // opened on the button's colour
    button(u"Command4_2"_s)->click(); // cancelled
    QCOMPARE(m_document->PrintSettings.ColorFore[2], u"0"_s);
    QCOMPARE(button(u"Command4_2"_s)->colorNumber(), 0);
    button(u"Command5"_s)->click();
    QCOMPARE(m_document->PrintSettings.DefaultPageColor, u"65280"_s);
    // the pages take the new default only when the printer settings are loaded again
    QCOMPARE(m_document->PrintSettings.PageColorA[1], u"15724527"_s);
    QVERIFY(m_prompts.messages.isEmpty());
}

void AppearanceDialogsTest::aTypedFontAndAnyCurrencyAreStored()
{
    m_document->PrintSettings.FontName = u"No Such Font"_s;
    DefaultColorsDialog dialog(*m_document, m_prompts);
    auto* font = find<QComboBox>(dialog, u"Combo1"_s);
    auto* currency = find<QLineEdit>(dialog, u"Text3"_s);
    QVERIFY(font->count() > 0); // the fonts there are to print with
    QCOMPARE(font->currentText(), u"No Such Font"_s);
    QCOMPARE(currency->text(), u"€"_s);
    QCOMPARE(m_document->PrintSettings.FontName, u"No Such Font"_s); // opening stored nothing

    font->setEditText(u"Typed Font"_s);
    QCOMPARE(m_document->PrintSettings.FontName, u"Typed Font"_s);
    QCOMPARE(find<QLabel>(dialog, u"Label1"_s)->font().family(), u"Typed Font"_s);
    font->setCurrentIndex(0);
    QCOMPARE(m_document->PrintSettings.FontName, font->itemText(0));
    currency->setText(u"CHF"_s);
    QCOMPARE(m_document->PrintSettings.CurrencySymbol, u"CHF"_s);
    currency->clear();
    QCOMPARE(m_document->PrintSettings.CurrencySymbol, QString());
    QCOMPARE(m_document->PrintSettings.FontName, font->itemText(0));
}

std::unique_ptr<BackgroundEffectsDialog> AppearanceDialogsTest::openBackgroundEffects(int page, int side)
{
    return std::make_unique<BackgroundEffectsDialog>(*m_document, page, side, m_area, m_prompts);
}

void AppearanceDialogsTest::backgroundEffectsOnSideBChangeOnlyTheBackFields()
{
    PrintSettings& print = m_document->PrintSettings;
    print.PageValueB[2] = u"verso.jpg"_s;
    const PrintSettings before = print;
    auto dialog = openBackgroundEffects(2, 2);
    QCOMPARE(dialog->windowTitle(), u"Background effects"_s);
    QCOMPARE(find<QLineEdit>(*dialog, u"Text1"_s)->text(), u"verso.jpg"_s);
    QCOMPARE(find<ColorButton>(*dialog, u"Command1"_s)->colorNumber(), 0xEFEFEF); // the area's colour

    m_prompts.answers = QStringList { QString(), u"255"_s };
    find<ColorButton>(*dialog, u"Command1"_s)->click(); // cancelled
    QCOMPARE(m_area.color(), QColor(0xEF, 0xEF, 0xEF));
    QCOMPARE(print, before);
    find<ColorButton>(*dialog, u"Command1"_s)->click();
    QCOMPARE(m_area.color(), QColor(Qt::red));
    QCOMPARE(print.PageColorB[2], u"255"_s);

    find<QLineEdit>(*dialog, u"Text1"_s)->setText(u"pics/back.jpg"_s);
    QCOMPARE(print.PageValueB[2], u"pics/back.jpg"_s);
    PrintSettings expected = before;
    expected.PageColorB[2] = u"255"_s;
    expected.PageValueB[2] = u"pics/back.jpg"_s;
    QCOMPARE(print, expected);
}

void AppearanceDialogsTest::picturesInTheProjectFolderAreStoredRelative()
{
    m_document->ProjectFolder = u"C:\\menus\\bar\\"_s;
    auto dialog = openBackgroundEffects(1, 1);
    m_prompts.answers
        = QStringList { u"C:/menus/bar/pics/front.JPG"_s, QString(), u"/srv/other/front.JPG"_s };
    auto* browse = find<QPushButton>(*dialog, u"Command2"_s);
    browse->click();
    QCOMPARE(m_prompts.asked.last(), u"open: *.JPG"_s);
    QCOMPARE(m_document->PrintSettings.PageValueA[1], u"pics/front.JPG"_s);
    browse->click(); // cancelled
    QCOMPARE(m_document->PrintSettings.PageValueA[1], u"pics/front.JPG"_s);
    browse->click();
    QCOMPARE(m_document->PrintSettings.PageValueA[1], u"/srv/other/front.JPG"_s);
    QCOMPARE(m_document->PrintSettings.PageValueB[1], QString());
}

void AppearanceDialogsTest::aPageBeyondTheTablesIsARangeFault()
{
    auto dialog = openBackgroundEffects(15, 1);
    QCOMPARE(m_prompts.messages, QStringList { u"Subscript out of range"_s });
}

QTEST_MAIN(AppearanceDialogsTest)
#include "AppearanceDialogsTest.moc"
