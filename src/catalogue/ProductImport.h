#pragma once

#include <QString>

#include <functional>

class MenuDocument;

// The imports of the Import menu. Each reads and checks its whole source before it clears the document
// (through the caller's New) and replaces the catalogue; pages, modifiers and language texts are empty
// afterwards. The spreadsheet imports turn their sheets into the exchange file and import that, so one
// reader serves them all.
class ProductImport
{
public:
    ProductImport(MenuDocument& document, std::function<void()> clearDocument);

    // The text imports return false, leaving the document as it was, when their file cannot be opened.
    // Lines past the catalogue's capacity raise a RangeFault after the document was cleared.
    bool fromLastSent();
    // "PLUCODE","DESCRIPTION","PRICE": the texts between the 1st and 2nd, 3rd and 4th, 5th and 6th
    // double quotes of each line; whatever stands outside the quotes is ignored.
    bool fromCsv(const QString& path);

    // The spreadsheet imports raise ImportError, leaving the document and the exchange file as they
    // were, when a workbook cannot be read, a column is missing, a price is not a number or there are
    // more products than the catalogue holds.
    // The sheet with the columns PLUCODE, DESCRIPTION and PRICE.
    bool fromPluSheet(const QString& path);
    // The back office's family sheet; its product sheet is the "PLU.XLS" in the same folder.
    bool fromBackOffice(const QString& familySheetPath);

    // The back office's product sheet that belongs with a family sheet. Its name's case may differ.
    static QString productSheetBeside(const QString& familySheetPath);

private:
    bool importExchangeLines(const QStringList& lines);

    MenuDocument& m_document;
    std::function<void()> m_clearDocument;
};
