#include "PrintDialog.h"

#include "document/Fault.h"
#include "document/NumberText.h"
#include "printing/PrintPreferences.h"
#include "ui/HandlerGuard.h"
#include "ui/NamedWidgets.h"
#include "ui/UserPrompts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPageSize>
#include <QPalette>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

using PrintSelection::Pages;

namespace {

constexpr double OffsetLimit = 50; // millimetres a printer may be off by, either way
const QColor RefusedBoxColor(255, 214, 214); // a box whose text is not stored

// As people write millimetres: "0.25", not the files' ".25".
QString marginText(float value)
{
    return QString::number(static_cast<double>(value), 'g', 7);
}

QDoubleSpinBox* offsetBox(QWidget* parent, const QString& name)
{
    auto* box = named(new QDoubleSpinBox(parent), name);
    box->setRange(-OffsetLimit, OffsetLimit);
    box->setDecimals(1);
    box->setSingleStep(0.5);
    box->setSuffix(QStringLiteral(" mm"));
    return box;
}

} // namespace

PrintDialog::PrintDialog(
    MenuDocument& document, std::function<int()> currentPage, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent)
    , GuardedHandlers(prompts)
    , m_document(document)
    , m_currentPage(std::move(currentPage))
{
    setObjectName(QStringLiteral("Print"));
    setWindowTitle(QStringLiteral("Print"));
    setModal(true);

    auto* columns = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    left->addLayout(buildPageChoices());
    left->addWidget(buildLanguages());
    left->addStretch();
    auto* right = new QVBoxLayout;
    right->addWidget(buildMargins());
    right->addWidget(buildPrinter());
    right->addStretch();
    columns->addLayout(left);
    columns->addLayout(right);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addLayout(buildCommands());
    guarded([this] { load(); });
}

QLayout* PrintDialog::buildPageChoices()
{
    const QString captions[] = { QStringLiteral("Print &current page"), QStringLiteral("Print &all pages"),
        QStringLiteral("Print all &front pages"), QStringLiteral("Print all &back pages") };
    auto* column = new QVBoxLayout;
    for (std::size_t i = 0; i < m_pageChoices.size(); ++i) {
        m_pageChoices[i] = named(new QRadioButton(captions[i], this), QStringLiteral("Option%1").arg(i + 1));
        column->addWidget(m_pageChoices[i]);
    }
    return column;
}

// The options carry the menu's language names.
QWidget* PrintDialog::buildLanguages()
{
    auto* frame = named(new QGroupBox(QStringLiteral("Language to Print"), this), QStringLiteral("Frame1"));
    auto* column = new QVBoxLayout(frame);
    for (int i = 0; i < Limits::LanguageCount; ++i) {
        auto* option = named(new QRadioButton(frame), QStringLiteral("LanguageP_%1").arg(i));
        m_languages[static_cast<std::size_t>(i)] = option;
        column->addWidget(option);
        connect(option, &QRadioButton::clicked, this, [this, i] { LanguageP_Click(i); });
    }
    return frame;
}

QWidget* PrintDialog::buildMargins()
{
    auto* frame = named(new QGroupBox(QStringLiteral("Margins"), this), QStringLiteral("Frame2"));
    auto* form = new QFormLayout(frame);
    m_priceMargin = named(new QLineEdit(frame), QStringLiteral("Text1"));
    m_textMargin = named(new QLineEdit(frame), QStringLiteral("Text2"));
    m_lastRowMargin = named(new QLineEdit(frame), QStringLiteral("Text4"));
    m_priceMargin->setToolTip(
        QStringLiteral("Millimetres from the right edge of the sheet to the end of the prices"));
    m_textMargin->setToolTip(QStringLiteral("Millimetres from the left edge of the sheet to the row texts"));
    m_lastRowMargin->setToolTip(
        QStringLiteral("Millimetres from the top edge of the sheet to the bottom of the last row"));
    form->addRow(QStringLiteral("Margin X (P&rice)"), m_priceMargin);
    form->addRow(QStringLiteral("Margin X (&Descr.)"), m_textMargin);
    form->addRow(QStringLiteral("Margin &Y"), m_lastRowMargin);
    m_printLines = named(new QCheckBox(QStringLiteral("Print &lines"), frame), QStringLiteral("Check1"));
    form->addRow(m_printLines);
    connect(m_priceMargin, &QLineEdit::textChanged, this, &PrintDialog::Text1_Change);
    connect(m_textMargin, &QLineEdit::textChanged, this, &PrintDialog::Text2_Change);
    connect(m_lastRowMargin, &QLineEdit::textChanged, this, &PrintDialog::Text4_Change);
    connect(m_printLines, &QCheckBox::clicked, this, &PrintDialog::Check1_Click);
    return frame;
}

// The printer, and how far it is off on a pre-printed sheet: each printer keeps its own calibration.
QWidget* PrintDialog::buildPrinter()
{
    auto* frame = named(new QGroupBox(QStringLiteral("Printer"), this), QStringLiteral("PrinterFrame"));
    auto* form = new QFormLayout(frame);
    m_printerName = named(new QComboBox(frame), QStringLiteral("PrinterName"));
    m_pdfFile = named(new QLineEdit(frame), QStringLiteral("PdfFile"));
    m_browsePdf = commandButton(frame, QStringLiteral("BrowsePdf"), QStringLiteral("Br&owse"));
    auto* pdfRow = new QHBoxLayout;
    pdfRow->addWidget(m_pdfFile);
    pdfRow->addWidget(m_browsePdf);
    m_offsetX = offsetBox(frame, QStringLiteral("OffsetX"));
    m_offsetY = offsetBox(frame, QStringLiteral("OffsetY"));
    m_offsetX->setToolTip(
        QStringLiteral("Moves the whole print to the right (or left, below 0) on this printer"));
    m_offsetY->setToolTip(QStringLiteral("Moves the whole print down (or up, below 0) on this printer"));
    form->addRow(QStringLiteral("Pri&nter"), m_printerName);
    form->addRow(QStringLiteral("PDF f&ile"), pdfRow);
    form->addRow(QStringLiteral("Shift ri&ght"), m_offsetX);
    form->addRow(QStringLiteral("Shift do&wn"), m_offsetY);
    qobject_cast<QLabel*>(form->labelForField(pdfRow))->setBuddy(m_pdfFile);
    connect(m_printerName, &QComboBox::currentTextChanged, this, &PrintDialog::PrinterName_Change);
    connect(m_browsePdf, &QPushButton::clicked, this, &PrintDialog::BrowsePdf_Click);
    for (QDoubleSpinBox* box : { m_offsetX, m_offsetY }) {
        connect(box, &QDoubleSpinBox::valueChanged, this, &PrintDialog::Offset_Change);
    }
    return frame;
}

QLayout* PrintDialog::buildCommands()
{
    auto* preview = commandButton(this, QStringLiteral("Preview"), QStringLiteral("Pre&view"));
    // Not the default button: Enter in a margin box must not send sheets to the printer.
    auto* print = commandButton(this, QStringLiteral("Command1"), QStringLiteral("&Print"));
    auto* close = commandButton(this, QStringLiteral("Command2"), QStringLiteral("Clos&e Window"));
    connect(preview, &QPushButton::clicked, this, &PrintDialog::Preview_Click);
    connect(print, &QPushButton::clicked, this, &PrintDialog::Command1_Click);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* row = new QHBoxLayout;
    row->addWidget(preview);
    row->addStretch();
    row->addWidget(print);
    row->addWidget(close);
    return row;
}

// Filling the boxes is not an edit: it must not write the texts back into the settings.
void PrintDialog::load()
{
    const PrintSettings& print = m_document.PrintSettings;
    {
        const QSignalBlocker blockPrice(m_priceMargin);
        const QSignalBlocker blockText(m_textMargin);
        const QSignalBlocker blockLastRow(m_lastRowMargin);
        m_priceMargin->setText(marginText(print.Value1));
        m_textMargin->setText(marginText(print.Value3));
        m_lastRowMargin->setText(marginText(print.Value2));
    }
    m_printLines->setChecked(print.Value4 == 1);
    m_pageChoices[0]->setChecked(true);
    for (int i = 0; i < Limits::LanguageCount; ++i) {
        m_languages[static_cast<std::size_t>(i)]->setText(
            m_document.LanguageTable.at(TextKey::LanguageNames, i + 1));
    }
    m_languages[static_cast<std::size_t>(PrintPreferences::language() - 1)]->setChecked(true);
    fillPrinterNames();
}

// The printers the system knows, then the PDF file; the one used last comes up again.
void PrintDialog::fillPrinterNames()
{
    QStringList names = QPrinterInfo::availablePrinterNames();
    names.append(PrintPreferences::pdfPrinterName());
    QString chosen = PrintPreferences::lastPrinter();
    if (!names.contains(chosen)) {
        chosen = QPrinterInfo::defaultPrinterName();
    }
    if (!names.contains(chosen)) {
        chosen = PrintPreferences::pdfPrinterName();
    }
    {
        const QSignalBlocker block(m_printerName);
        m_printerName->addItems(names);
        m_printerName->setCurrentText(chosen);
    }
    PrinterName_Change();
}

// A margin box stores only a number, a decimal comma read as a point. Anything else is refused quietly,
// not with a message at every keystroke: the box turns red and the margin keeps its last value.
void PrintDialog::storeMargin(float PrintSettings::*margin, QLineEdit* box, const QString& text)
{
    guarded([&] {
        bool stored = true;
        try {
            m_document.PrintSettings.*margin = NumberText::wholeSingle(NumberText::withDecimalPoint(text));
        } catch (const Fault&) { // not a number, or beyond a float
            stored = false;
        }
        QPalette colors = palette();
        if (!stored) {
            colors.setColor(QPalette::Base, RefusedBoxColor);
        }
        box->setPalette(colors);
        box->setToolTip(stored ? QString() : QStringLiteral("Type a number of millimetres, such as 5.5"));
    });
}

void PrintDialog::Text1_Change(const QString& text)
{
    storeMargin(&PrintSettings::Value1, m_priceMargin, text);
}

void PrintDialog::Text2_Change(const QString& text)
{
    storeMargin(&PrintSettings::Value3, m_textMargin, text);
}

void PrintDialog::Text4_Change(const QString& text)
{
    storeMargin(&PrintSettings::Value2, m_lastRowMargin, text);
}

void PrintDialog::Check1_Click()
{
    guarded([this] { m_document.PrintSettings.Value4 = m_printLines->isChecked() ? 1 : 0; });
}

void PrintDialog::LanguageP_Click(int index)
{
    guarded([index] { PrintPreferences::saveLanguage(index + 1); });
}

void PrintDialog::PrinterName_Change()
{
    guarded([this] {
        const QString name = m_printerName->currentText();
        PrintPreferences::saveLastPrinter(name);
        const bool pdf = printsToPdf();
        m_pdfFile->setEnabled(pdf);
        m_browsePdf->setEnabled(pdf);
        const PrintPreferences::Offset offset = PrintPreferences::calibration(name);
        const QSignalBlocker blockX(m_offsetX);
        const QSignalBlocker blockY(m_offsetY);
        m_offsetX->setValue(offset.x);
        m_offsetY->setValue(offset.y);
    });
}

void PrintDialog::Offset_Change()
{
    guarded([this] {
        PrintPreferences::saveCalibration(
            m_printerName->currentText(), { m_offsetX->value(), m_offsetY->value() });
    });
}

void PrintDialog::BrowsePdf_Click()
{
    guarded([this] {
        const QString path = m_prompts.askSaveFile(QStringLiteral("*.pdf"));
        if (!path.isEmpty()) {
            m_pdfFile->setText(path);
        }
    });
}

Pages PrintDialog::chosenPages() const
{
    const Pages pages[] = { Pages::Current, Pages::All, Pages::AllFronts, Pages::AllBacks };
    for (std::size_t i = 0; i < m_pageChoices.size(); ++i) {
        if (m_pageChoices[i]->isChecked()) {
            return pages[i];
        }
    }
    return Pages::Current;
}

int PrintDialog::chosenLanguage() const
{
    for (int i = 0; i < Limits::LanguageCount; ++i) {
        if (m_languages[static_cast<std::size_t>(i)]->isChecked()) {
            return i + 1;
        }
    }
    return 1;
}

PrintJob::Request PrintDialog::request() const
{
    const PrintPreferences::Offset offset { m_offsetX->value(), m_offsetY->value() };
    return { chosenPages(), m_currentPage(), SideLayout::of(m_document, chosenLanguage(), offset) };
}

bool PrintDialog::printsToPdf() const
{
    return m_printerName->currentText() == PrintPreferences::pdfPrinterName();
}

// Positions are taken from the paper's corner, whatever the printer cannot reach.
void PrintDialog::setUpPrinter(QPrinter& printer) const
{
    if (printsToPdf()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setOutputFileName(m_pdfFile->text());
    } else {
        printer.setPrinterName(m_printerName->currentText());
    }
    printer.setFullPage(true);
    printer.setDocName(QStringLiteral("Orvik Quorvel"));
}

void PrintDialog::Command1_Click()
{
    guarded([this] {
        if (printsToPdf() && m_pdfFile->text().isEmpty()) {
            BrowsePdf_Click();
            if (m_pdfFile->text().isEmpty()) {
                return;
            }
        }
        if (printsToPdf()) {
            printToPdfFile();
            return;
        }
        QPrinter printer(QPrinter::HighResolution);
        setUpPrinter(printer);
        if (!PrintJob::print(m_document, request(), printer, m_prompts)) {
            m_prompts.showMessage(QStringLiteral("Could not print on %1.").arg(m_printerName->currentText()));
        }
    });
}

void PrintDialog::printToPdfFile()
{
    if (const std::optional<WriteFailure> failure
        = PrintJob::printPdf(m_document, request(), m_pdfFile->text(), m_prompts)) {
        m_prompts.showMessage(QStringLiteral("Could not write %1: %2")
                                  .arg(QDir::toNativeSeparators(failure->path), failure->reason));
    }
}

// The preview shows what Print would put on the sheets, without asking for them.
void PrintDialog::Preview_Click()
{
    guarded([this] {
        QPrinter printer(QPrinter::HighResolution);
        setUpPrinter(printer);
        const PrintJob::Request shown = request();
        QPrintPreviewDialog preview(&printer, this);
        preview.setWindowTitle(QStringLiteral("Print preview"));
        connect(&preview, &QPrintPreviewDialog::paintRequested, this,
            [&](QPrinter* sheets) { PrintJob::drawSheets(m_document, shown, *sheets); });
        preview.exec();
    });
}
