#pragma once

#include <QString>

// What the print dialog remembers per user, outside the menu: the language last printed and, for each
// printer, how far it shifts the print on a pre-printed sheet.
namespace PrintPreferences {

// A PDF file counts as a printer of its own.
QString pdfPrinterName();

// Language column 1 to 5 of the language table; 1 when none was kept.
int language();
void saveLanguage(int language);

QString lastPrinter();
void saveLastPrinter(const QString& printerName);

// Millimetres to move everything by, right and down, so that the print meets the sheet's marks.
struct Offset
{
    double x = 0;
    double y = 0;

    bool operator==(const Offset&) const = default;
};

Offset calibration(const QString& printerName);
void saveCalibration(const QString& printerName, const Offset& offset);

} // namespace PrintPreferences
