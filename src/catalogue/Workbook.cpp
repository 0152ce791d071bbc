#include "Workbook.h"

#include "ImportError.h"

#include <QFile>

#include <freexl.h>

namespace {

const QString PreferredSheet = QStringLiteral("Sheet1");

QString openProblem(int code)
{
    switch (code) {
    case FREEXL_FILE_NOT_FOUND:
        return QStringLiteral("the file does not exist or cannot be read");
    case FREEXL_INSUFFICIENT_MEMORY:
        return QStringLiteral("there is not enough memory to read it");
    default:
        return QStringLiteral("it is not a readable Excel 97-2003 (.xls) workbook (error %1)").arg(code);
    }
}

// Numbers read as their shortest decimal text: 1001 as "1001", 2.5 as "2.5".
QString cellText(const FreeXL_CellValue& value)
{
    switch (value.type) {
    case FREEXL_CELL_INT:
        return QString::number(value.value.int_value);
    case FREEXL_CELL_DOUBLE:
        return QString::number(value.value.double_value, 'g', 15);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME:
        return QString::fromUtf8(value.value.text_value);
    default:
        return {};
    }
}

// Owns an open FreeXL handle.
class OpenWorkbook
{
public:
    explicit OpenWorkbook(const QString& path)
        : m_path(path)
    {
        const int opened = freexl_open(QFile::encodeName(path).constData(), &m_handle);
        if (opened != FREEXL_OK) {
            freexl_close(m_handle); // a failed open may still hold memory
            throw ImportError(m_path, openProblem(opened));
        }
    }
    ~OpenWorkbook() { freexl_close(m_handle); }
    OpenWorkbook(const OpenWorkbook&) = delete;
    OpenWorkbook& operator=(const OpenWorkbook&) = delete;

    // Selects "Sheet1", else the first worksheet, and returns its name.
    QString selectSheet()
    {
        unsigned int count = 0;
        check(freexl_get_info(m_handle, FREEXL_BIFF_SHEET_COUNT, &count));
        if (count == 0) {
            throw ImportError(m_path, QStringLiteral("the workbook holds no worksheet"));
        }
        unsigned short chosen = 0;
        for (unsigned short sheet = 0; sheet < count; ++sheet) {
            if (sheetName(sheet) == PreferredSheet) {
                chosen = sheet;
                break;
            }
        }
        check(freexl_select_active_worksheet(m_handle, chosen));
        return sheetName(chosen);
    }

    QList<QStringList> readRows()
    {
        unsigned int rowCount = 0;
        unsigned short columnCount = 0;
        check(freexl_worksheet_dimensions(m_handle, &rowCount, &columnCount));
        QList<QStringList> rows;
        rows.reserve(rowCount);
        for (unsigned int row = 0; row < rowCount; ++row) {
            QStringList cells;
            cells.reserve(columnCount);
            for (unsigned short column = 0; column < columnCount; ++column) {
                FreeXL_CellValue value;
                check(freexl_get_cell_value(m_handle, row, column, &value));
                cells.append(cellText(value));
            }
            rows.append(std::move(cells));
        }
        return rows;
    }

private:
    QString sheetName(unsigned short sheet)
    {
        const char* name = nullptr;
        check(freexl_get_worksheet_name(m_handle, sheet, &name));
        return QString::fromUtf8(name);
    }

    void check(int result) const
    {
        if (result != FREEXL_OK) {
            throw ImportError(m_path, openProblem(result));
        }
    }

    QString m_path;
    const void* m_handle = nullptr;
};

} // namespace

Worksheet Worksheet::read(const QString& path)
{
    OpenWorkbook workbook(path);
    Worksheet sheet;
    sheet.m_path = path;
    sheet.m_name = workbook.selectSheet();
    sheet.m_rows = workbook.readRows();
    return sheet;
}

int Worksheet::column(const QString& heading) const
{
    const int found = m_rows.isEmpty() ? -1 : static_cast<int>(m_rows.first().indexOf(heading));
    if (found < 0) {
        throw ImportError(
            m_path, QStringLiteral("the worksheet \"%1\" has no column \"%2\"").arg(m_name, heading));
    }
    return found;
}

QString Worksheet::cell(int dataRow, int column) const
{
    return m_rows.at(dataRow + 1).at(column);
}
