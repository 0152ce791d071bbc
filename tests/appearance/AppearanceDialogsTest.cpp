#include "appearance/BackgroundEffectsDialog.h"
#include "appearance/DefaultColorsDialog.h"
#include "designer/PictureBox.h"
#include "document/MenuDocument.h"
#include "support/WidgetFixture.h"
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
    // The colour each button shows; a menu without printer settings has orange text lines with black
    // text, white on black titles, notes black on light grey.
    const auto shown = [&dialog] {
        QList<std::int32_t> colors;
        for (const QString& name : { u"Command3_0"_s, u"Command4_0"_s, u"Command3_1"_s, u"Command4_1"_s,
                 u"Command3_2"_s, u"Command4_2"_s, u"Command5"_s }) {
            ColorButton* button = nullptr;
            colors.append(find(dialog, name, button) ? button->colorNumber() : -1);
        }
        return colors;
    };
    QCOMPARE(shown(), QList<std::int32_t>({ 0x0080FF, 0, 0, 0xFFFFFF, 0xEFEFEF, 0, 0xEFEFEF }));

    m_prompts.answers = QStringList { u"255"_s, QString(), u"65280"_s };
    QVERIFY(trigger(dialog, u"Command3_1"_s));
    QCOMPARE(m_document->PrintSettings.ColorBack[1], u"255"_s);
    QCOMPARE(m_prompts.asked.last(), u"color: 0"_s); // opened on the button's colour
    QVERIFY(trigger(dialog, u"Command4_2"_s)); // cancelled
    QCOMPARE(m_document->PrintSettings.ColorFore[2], u"0"_s);
    QVERIFY(trigger(dialog, u"Command5"_s));
    QCOMPARE(m_document->PrintSettings.DefaultPageColor, u"65280"_s);
    QCOMPARE(shown(), QList<std::int32_t>({ 0x0080FF, 0, 255, 0xFFFFFF, 0xEFEFEF, 0, 65280 }));
    // the pages take the new default only when the printer settings are loaded again
    QCOMPARE(m_document->PrintSettings.PageColorA[1], u"15724527"_s);
    QVERIFY(m_prompts.messages.isEmpty());
}

void AppearanceDialogsTest::aTypedFontAndAnyCurrencyAreStored()
{
    m_document->PrintSettings.FontName = u"No Such Font"_s;
    DefaultColorsDialog dialog(*m_document, m_prompts);
    QComboBox* font = nullptr;
    QLineEdit* currency = nullptr;
    QLabel* sample = nullptr;
    QVERIFY(find(dialog, u"Combo1"_s, font));
    QVERIFY(find(dialog, u"Text3"_s, currency));
    QVERIFY(find(dialog, u"Label1"_s, sample));
    QVERIFY(font->count() > 0); // the fonts there are to print with
    QCOMPARE(font->currentText(), u"No Such Font"_s);
    QCOMPARE(currency->text(), u"€"_s);
    QCOMPARE(m_document->PrintSettings.FontName, u"No Such Font"_s); // opening stored nothing

    font->setEditText(u"Typed Font"_s);
    QCOMPARE(m_document->PrintSettings.FontName, u"Typed Font"_s);
    QCOMPARE(sample->font().family(), u"Typed Font"_s);
    font->setCurrentIndex(0);
    QCOMPARE(m_document->PrintSettings.FontName, font->itemText(0));
    currency->setText(u"CHF"_s);
    QCOMPARE(m_document->PrintSettings.CurrencySymbol, u"CHF"_s);
    currency->clear();
    QCOMPARE(m_document->PrintSettings.CurrencySymbol, QString());
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
    ColorButton* color = nullptr;
    QVERIFY(find(*dialog, u"Command1"_s, color));
    QCOMPARE(shownText(*dialog, u"Text1"_s), u"verso.jpg"_s);
    QCOMPARE(color->colorNumber(), 0xEFEFEF); // the area's colour

    m_prompts.answers = QStringList { QString(), u"255"_s };
    color->click(); // cancelled
    QCOMPARE(m_area.color(), QColor(0xEF, 0xEF, 0xEF));
    QCOMPARE(print, before);
    color->click();
    QCOMPARE(m_area.color(), QColor(Qt::red));

    QLineEdit* path = nullptr;
    QVERIFY(find(*dialog, u"Text1"_s, path));
    path->setText(u"pics/back.jpg"_s);
    PrintSettings expected = before;
    expected.PageColorB[2] = u"255"_s;
    expected.PageValueB[2] = u"pics/back.jpg"_s;
    QCOMPARE(print, expected);
}

void AppearanceDialogsTest::picturesInTheProjectFolderAreStoredRelative()
{
    m_document->ProjectFolder = u"C:\\menus\\bar\\"_s;
    auto dialog = openBackgroundEffects(1, 1);
    m_prompts.answers = QStringList { u"C:/menus/bar/pics/front.JPG"_s, QString() };
    QVERIFY(trigger(*dialog, u"Command2"_s));
    QCOMPARE(m_prompts.asked.last(), u"open: *.JPG"_s);
    QCOMPARE(m_document->PrintSettings.PageValueA[1], u"pics/front.JPG"_s);
    QVERIFY(trigger(*dialog, u"Command2"_s)); // cancelled
    QCOMPARE(m_document->PrintSettings.PageValueA[1], u"pics/front.JPG"_s);
    QCOMPARE(m_document->PrintSettings.PageValueB[1], QString());
}

void AppearanceDialogsTest::aPageBeyondTheTablesIsARangeFault()
{
    auto dialog = openBackgroundEffects(15, 1);
    QCOMPARE(m_prompts.messages, QStringList { u"Subscript out of range"_s });
}

QTEST_MAIN(AppearanceDialogsTest)
#include "AppearanceDialogsTest.moc"
