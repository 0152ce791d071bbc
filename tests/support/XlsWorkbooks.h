#pragma once

#include <QJsonArray>
#include <QList>
#include <QString>

// One worksheet to write: its name and its rows, each a JSON array of cells (a text, a number, or null
// for an empty cell).
struct XlsSheet
{
    QString name;
    QJsonArray rows;
};

// Writes an .xls workbook with the sheets in order, through the spreadsheet writer of Debian's
// python3-xlwt. Throws when the writer fails.
void writeXlsWorkbook(const QString& path, const QList<XlsSheet>& sheets);

// A sheet with the heading row and data rows of texts and numbers.
XlsSheet xlsSheet(const QString& name, const QStringList& headings, const QList<QJsonArray>& rows);
