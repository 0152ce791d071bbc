#include "printing/PrintDialog.h"

#include "document/MenuDocument.h"
#include "support/PdfPages.h"
#include "support/SampleDocuments.h"
#include "support/WidgetFixture.h"

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
    void theCurrentPageAndTheLanguageAreThoseShownAndKept();
    void eachPrinterKeepsItsCalibrationAndItMovesThePrint();

private:
    void open();
    // Chooses the PDF file as the printer and prints into it; false when a control is missing.
    [[nodiscard]] bool printToPdf() const;
    [[nodiscard]] bool click(const QString& name) const { return trigger(*m_dialog, name); }

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

void PrintDialogTest::open()
{
    m_dialog = std::make_unique<PrintDialog>(
        *m_document, [this] { return m_shownPage; }, m_prompts);
    m_dialog->show();
}

bool PrintDialogTest::printToPdf() const
{
    QComboBox* printer = nullptr;
    QLineEdit* file = nullptr;
    if (!find(*m_dialog, u"PrinterName"_s, printer) || !find(*m_dialog, u"PdfFile"_s, file)) {
        return false;
    }
    printer->setCurrentText(u"PDF file"_s);
    file->setText(m_pdf);
    return click(u"Command1"_s);
}

void PrintDialogTest::marginsAreWrittenOnEveryChangeAndANonNumberKeepsThem()
{
    PrintSettings& print = m_document->PrintSettings;
    print.Value1 = 47.123456F; // more digits than the box shows: opening must not round it
    open();
    QLineEdit *left = nullptr, *top = nullptr, *height = nullptr;
    QCheckBox* check = nullptr;
    QVERIFY(find(*m_dialog, u"Text1"_s, left));
    QVERIFY(find(*m_dialog, u"Text2"_s, top));
    QVERIFY(find(*m_dialog, u"Text4"_s, height));
    QVERIFY(find(*m_dialog, u"Check1"_s, check));
    QCOMPARE(left->text(), u"47.12346"_s);
    QCOMPARE(top->text(), u"59"_s);
    QCOMPARE(height->text(), u"165"_s);
    QCOMPARE(print.Value1, 47.123456F);

    QTest::keyClick(top, Qt::Key_Backspace); // "5"
    QCOMPARE(print.Value3, 5.0F);
    QTest::keyClicks(top, u"8.5"_s);
    QCOMPARE(print.Value3, 58.5F);
    height->setText(u" 170 "_s);
    QCOMPARE(print.Value2, 170.0F);
    left->setText(u"50"_s);
    QCOMPARE(print.Value1, 50.0F);
    QVERIFY(m_prompts.messages.isEmpty());

    // Text that is not a number is refused quietly: the box turns red and the margin stays.
    const QColor normal = left->palette().color(QPalette::Base);
    for (const QString& text : { QString(), u"12mm"_s, u"1e40"_s }) {
        left->setText(text);
        QCOMPARE(print.Value1, 50.0F);
        QVERIFY(left->palette().color(QPalette::Base) != normal);
    }
    QVERIFY(m_prompts.messages.isEmpty());
    left->setText(u"5,5"_s);
    QCOMPARE(print.Value1, 5.5F);
    QCOMPARE(left->palette().color(QPalette::Base), normal);

    QVERIFY(check->isChecked());
    check->click();
    QCOMPARE(print.Value4, 0);
    check->click();
    QCOMPARE(print.Value4, 1);
}

void PrintDialogTest::allFrontPagesPromptOnceBeforeTheFirstSheet()
{
    open();
    QVERIFY(click(u"Option3"_s));
    bool sheetDrawnBeforePrompt = true;
    m_prompts.whilePrompting = [&] { sheetDrawnBeforePrompt = QFile::exists(m_pdf); };
    QVERIFY(printToPdf());
    QCOMPARE(m_prompts.messages, QStringList { u"Please insert pages type 'PAGE A' on the printer"_s });
    QVERIFY(!sheetDrawnBeforePrompt);
    QCOMPARE(PdfPages::pageCount(m_pdf), 13);
    QVERIFY(PdfPages::text(m_pdf, 13).contains(u"Queijo da serra"_s));

    m_prompts.messages.clear();
    QVERIFY(click(u"Option4"_s));
    QVERIFY(click(u"Command1"_s));
    QCOMPARE(m_prompts.messages, QStringList { u"Please insert pages type 'PAGE B' on the printer"_s });
    QVERIFY(PdfPages::text(m_pdf, 1).contains(u"Sobremesas"_s));

    m_prompts.messages.clear();
    QVERIFY(click(u"Option2"_s));
    QVERIFY(click(u"Command1"_s));
    QVERIFY(m_prompts.messages.isEmpty());
    QCOMPARE(PdfPages::pageCount(m_pdf), 26); // a new sheet after each side, page 14 left out
    QVERIFY(PdfPages::text(m_pdf, 2).contains(u"Sobremesas"_s));
}

void PrintDialogTest::theCurrentPageAndTheLanguageAreThoseShownAndKept()
{
    open();
    m_shownPage = 14; // turned to after the dialog opened
    QVERIFY(printToPdf());
    QVERIFY(m_prompts.messages.isEmpty());
    QCOMPARE(PdfPages::pageCount(m_pdf), 2);
    QVERIFY(PdfPages::text(m_pdf, 1).contains(u"Prato secreto"_s));
    QVERIFY(click(u"LanguageP_1"_s));
    m_dialog.reset();

    open();
    QRadioButton* english = nullptr;
    QVERIFY(find(*m_dialog, u"LanguageP_1"_s, english));
    QVERIFY(english->isChecked());
}

void PrintDialogTest::eachPrinterKeepsItsCalibrationAndItMovesThePrint()
{
    open();
    QComboBox* printer = nullptr;
    QDoubleSpinBox* offsetY = nullptr;
    QVERIFY(find(*m_dialog, u"PrinterName"_s, printer));
    QVERIFY(find(*m_dialog, u"OffsetY"_s, offsetY));
    QVERIFY(click(u"Option4"_s));
    printer->setCurrentText(u"PDF file"_s);
    offsetY->setValue(20);
    QVERIFY(printToPdf());
    m_dialog.reset();

    // The back of page 1 has the blue group on rows 8 to 11; 20 mm lower it covers the middle of row 12.
    constexpr int Resolution = 30;
    const QImage page = PdfPages::image(m_pdf, 1, Resolution);
    const auto rowMiddle = [](int row) { return 165 - (24 - row - 0.5) * 6.88; };
    QCOMPARE(PdfPages::colorAt(page, Resolution, 160, rowMiddle(8)), QColor(Qt::yellow));
    QCOMPARE(PdfPages::colorAt(page, Resolution, 160, rowMiddle(8) + 20), QColor(Qt::blue));

    open();
    QVERIFY(find(*m_dialog, u"PrinterName"_s, printer));
    QVERIFY(find(*m_dialog, u"OffsetY"_s, offsetY));
    QCOMPARE(printer->currentText(), u"PDF file"_s);
    QCOMPARE(offsetY->value(), 20.0);
}

QTEST_MAIN(PrintDialogTest)
#include "PrintDialogTest.moc"
