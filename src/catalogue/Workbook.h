#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// One worksheet of an .xls workbook, read whole, its cells as texts. The first row holds the column
// headings.
class Worksheet
{
public:
    // The worksheet named "Sheet1" of the workbook, else its first one. Raises ImportError naming the
    // file when the workbook cannot be read or holds no worksheet.
    static Worksheet read(const QString& path);

    const QString& path() const { return m_path; }
    const QString& name() const { return m_name; }
    // Rows after the heading row.
    int dataRowCount() const { return static_cast<int>(m_rows.size()) - 1; }

    // The column with exactly this heading. Raises ImportError naming the file and the heading when
    // there is none.
    int column(const QString& heading) const;
    // A cell of a data row (0 is the row under the headings); the empty text for an empty cell.
    QString cell(int dataRow, int column) const;
    // The row number the spreadsheet program shows for a data row.
    static int shownRowNumber(int dataRow) { return dataRow + 2; }

private:
    QString m_path;
    QString m_name;
    QList<QStringList> m_rows;
};
