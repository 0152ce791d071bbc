#pragma once

#include "PrintJob.h"
#include "document/MenuDocument.h"
#include "ui/GuardedHandlers.h"

#include <QDialog>

#include <array>
#include <functional>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLineEdit;
class QPrinter;
class QPushButton;
class QRadioButton;

// "Print": which pages go to the printer, in which language, with which margins and whether the row
// lines are drawn. Margins and lines are the menu's own and are stored as they are edited; the language
// and the printer with its calibration are the user's and are kept in the settings. The dialog opens on
// "Print current page".
class PrintDialog : public QDialog, private GuardedHandlers
{
    Q_OBJECT

public:
    // The current page is asked for when printing: it is the one the main window shows then.
    PrintDialog(MenuDocument& document, std::function<int()> currentPage, UserPrompts& prompts,
        QWidget* parent = nullptr);

public slots:
    void Command1_Click(); // Print
    void Text1_Change(const QString& text); // Margin X (Price)
    void Text2_Change(const QString& text); // Margin X (Descr.)
    void Text4_Change(const QString& text); // Margin Y
    void Check1_Click();
    void LanguageP_Click(int index);
    void PrinterName_Change();
    void Offset_Change();
    void BrowsePdf_Click();
    void Preview_Click();

private:
    QLayout* buildPageChoices();
    QWidget* buildLanguages();
    QWidget* buildMargins();
    QWidget* buildPrinter();
    QLayout* buildCommands();
    void load();
    void fillPrinterNames();

    PrintSelection::Pages chosenPages() const;
    int chosenLanguage() const;
    PrintJob::Request request() const;
    bool printsToPdf() const;
    // The sheets are made aside and replace the chosen file only once complete.
    void printToPdfFile();
    void setUpPrinter(QPrinter& printer) const;
    void storeMargin(float PrintSettings::*margin, QLineEdit* box, const QString& text);

    MenuDocument& m_document;
    std::function<int()> m_currentPage;
    std::array<QRadioButton*, 4> m_pageChoices {};
    std::array<QRadioButton*, Limits::LanguageCount> m_languages {};
    QLineEdit* m_priceMargin = nullptr;
    QLineEdit* m_textMargin = nullptr;
    QLineEdit* m_lastRowMargin = nullptr;
    QCheckBox* m_printLines = nullptr;
    QComboBox* m_printerName = nullptr;
    QLineEdit* m_pdfFile = nullptr;
    QPushButton* m_browsePdf = nullptr;
    QDoubleSpinBox* m_offsetX = nullptr;
    QDoubleSpinBox* m_offsetY = nullptr;
};
