#include "printing/PrintDialog.h"

#include "document/MenuDocument.h"
#include "support/PdfPages.h"
#include "support/RequireChild.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class PrintDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void marginsAreWrittenOnEveryChangeAndANonNumberKeepsThem();
    void allFrontPagesPromptOnceBeforeTheFirstSheet();
    void theCurrentPageIsTheOneShownWhenPrinting();
    void theLanguageIsKeptForTheNextOpening();
    void eachPrinterKeepsItsCalibrationAndItMovesThePrint();

private:
    PrintDialog& open();
    template<typename Widget = QLineEdit>
    Widget* find(const QString& name) const
    {
        return requireChild<Widget>(*m_dialog, name);
    }
    void click(const QString& name) const { find<QAbstractButton>(name)->click(); }
    // Chooses the PDF file as the printer and prints into it.
    void printToPdf() const;

    std::unique_ptr<TestWorkingRoot> m_root;
    std::unique_ptr<QTemporaryDir> m_settings;
    std::unique_ptr<MenuDocument> m_document;
    ScriptedPrompts m_prompts;
    int m_shownPage = 1;
    QString m_pdf;
    std::unique_ptr<PrintDialog> m_dialog;
};

void PrintDialogTest::init()
{
    m_root = std::make_unique<TestWorkingRoot>();
    m_settings = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings->path());
    m_document = SampleDocuments::printedMenu();
    m_prompts = ScriptedPrompts();
    m_shownPage = 1;
    m_pdf = m_root->path() + u"/print.pdf"_s;
}

void PrintDialogTest::cleanup()
{
    m_dialog.reset();
    m_document.reset();
    m_root.reset();
}

PrintDialog& PrintDialogTest::open()
{
    m_dialog = std::make_unique<PrintDialog>(
        *m_document, [this] { return m_shownPage; }, m_prompts);
    m_dialog->show();
    return *m_dialog;
}

void PrintDialogTest::printToPdf() const
{
    find<QComboBox>(u"PrinterName"_s)->setCurrentText(u"PDF file"_s);
    find(u"PdfFile"_s)->setText(m_pdf);
    click(u"Command1"_s);
}

void PrintDialogTest::marginsAreWrittenOnEveryChangeAndANonNumberKeepsThem()
{
    PrintSettings& print = m_document->PrintSettings;
    print.Value1 = 47.123456F; // more digits than the box shows: opening must not round it
    open();
    QCOMPARE(m_dialog->windowTitle(), u"Print"_s);
    QCOMPARE(find(u"Text1"_s)->text(), u"47.12346"_s);
    QCOMPARE(find(u"Text2"_s)->text(), u"59"_s);
    QCOMPARE(find(u"Text4"_s)->text(), u"165"_s);
    QCOMPARE(print.Value1, 47.123456F);
    QVERIFY(find<QRadioButton>(u"Option1"_s)->isChecked());

    QTest::keyClick(find(u"Text2"_s), Qt::Key_Backspace); // "5"
    QCOMPARE(print.Value3, 5.0F);
    QTest::keyClicks(find(u"Text2"_s), u"8.5"_s);
    QCOMPARE(print.Value3, 58.5F);
    find(u"Text4"_s)->setText(u" 170 "_s);
    QCOMPARE(print.Value2, 170.0F);
    find(u"Text1"_s)->setText(u"50"_s);
    QCOMPARE(print.Value1, 50.0F);
    QVERIFY(m_prompts.messages.isEmpty());

    for (const QString& text : { QString(), u"12mm"_s, u"1e40"_s }) {
        find(u"Text1"_s)->setText(text);
        QCOMPARE(print.Value1, 50.0F);
    }
    QCOMPARE(m_prompts.messages, QStringList({ u"Type mismatch"_s, u"Type mismatch"_s, u"Overflow"_s }));

    QVERIFY(find<QCheckBox>(u"Check1"_s)->isChecked());
    click(u"Check1"_s);
    QCOMPARE(print.Value4, 0);
    click(u"Check1"_s);
    QCOMPARE(print.Value4, 1);
}

void PrintDialogTest::allFrontPagesPromptOnceBeforeTheFirstSheet()
{
    open();
    click(u"Option3"_s);
    bool sheetDrawnBeforePrompt = true;
    m_prompts.whilePrompting = [&] { sheetDrawnBeforePrompt = QFile::exists(m_pdf); };
    printToPdf();
    QCOMPARE(m_prompts.messages, QStringList { u"Please insert pages type 'PAGE A' on the printer"_s });
    QVERIFY(!sheetDrawnBeforePrompt);
    QCOMPARE(PdfPages::pageCount(m_pdf), 13);
    QVERIFY(PdfPages::text(m_pdf, 1).contains(u"Entradas"_s));
    QVERIFY(PdfPages::text(m_pdf, 13).contains(u"Queijo da serra"_s));

    m_prompts.messages.clear();
    click(u"Option4"_s);
    click(u"Command1"_s);
    QCOMPARE(m_prompts.messages, QStringList { u"Please insert pages type 'PAGE B' on the printer"_s });
    QCOMPARE(PdfPages::pageCount(m_pdf), 13);
    QVERIFY(PdfPages::text(m_pdf, 1).contains(u"Sobremesas"_s));

    m_prompts.messages.clear();
    click(u"Option2"_s);
    click(u"Command1"_s);
    QVERIFY(m_prompts.messages.isEmpty());
    QCOMPARE(PdfPages::pageCount(m_pdf), 26); // a new sheet after each side, page 14 left out
    QVERIFY(PdfPages::text(m_pdf, 2).contains(u"Sobremesas"_s));
}

void PrintDialogTest::theCurrentPageIsTheOneShownWhenPrinting()
{
    open();
    m_shownPage = 14; // turned to after the dialog opened
    printToPdf();
    QVERIFY(m_prompts.messages.isEmpty());
    QCOMPARE(PdfPages::pageCount(m_pdf), 2);
    QVERIFY(PdfPages::text(m_pdf, 1).contains(u"Prato secreto"_s));
}

void PrintDialogTest::theLanguageIsKeptForTheNextOpening()
{
    open();
    QVERIFY(find<QRadioButton>(u"LanguageP_0"_s)->isChecked());
    QCOMPARE(find<QRadioButton>(u"LanguageP_1"_s)->text(), u"English"_s);
    click(u"LanguageP_1"_s);
    m_dialog.reset();

    open();
    QVERIFY(find<QRadioButton>(u"LanguageP_1"_s)->isChecked());
    printToPdf();
    QVERIFY(PdfPages::text(m_pdf, 1).contains(u"Soup of the day"_s));
    QVERIFY(!PdfPages::text(m_pdf, 1).contains(u"Sopa do dia"_s));
}

void PrintDialogTest::eachPrinterKeepsItsCalibrationAndItMovesThePrint()
{
    open();
    click(u"Option4"_s);
    find<QComboBox>(u"PrinterName"_s)->setCurrentText(u"PDF file"_s);
    find<QDoubleSpinBox>(u"OffsetY"_s)->setValue(20);
    printToPdf();
    m_dialog.reset();

    // The back of page 1 has the blue group on rows 8 to 11; 20 mm lower it covers the middle of row 12.
    constexpr int Resolution = 30;
    const QImage page = PdfPages::image(m_pdf, 1, Resolution);
    const auto rowMiddle = [](int row) { return 165 - (24 - row - 0.5) * 6.88; };
    QCOMPARE(PdfPages::colorAt(page, Resolution, 160, rowMiddle(8)), QColor(Qt::yellow));
    QCOMPARE(PdfPages::colorAt(page, Resolution, 160, rowMiddle(8) + 20), QColor(Qt::blue));

    open();
    QCOMPARE(find<QComboBox>(u"PrinterName"_s)->currentText(), u"PDF file"_s);
    QCOMPARE(find<QDoubleSpinBox>(u"OffsetY"_s)->value(), 20.0);
    QCOMPARE(find<QDoubleSpinBox>(u"OffsetX"_s)->value(), 0.0);
}

QTEST_MAIN(PrintDialogTest)
#include "PrintDialogTest.moc"
