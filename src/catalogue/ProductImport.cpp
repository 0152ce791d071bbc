#include "ProductImport.h"

#include "ImportError.h"
#include "Workbook.h"
#include "document/AnsiCodec.h"
#include "document/Blanks.h"
#include "document/LineReader.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"
#include "document/PluLine.h"
#include "document/WorkingPaths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <optional>

namespace {

const QString ProductSheetName = QStringLiteral("PLU.XLS");

// A record as read from a text source, and which of its fields an import stores; the fields it does
// not store keep what the cleared catalogue left in them.
using StoreFields = void (*)(PluRecord& target, PluRecord&& read);

void storeAllFields(PluRecord& target, PluRecord&& read)
{
    target = std::move(read);
}

void storeCsvFields(PluRecord& target, PluRecord&& read)
{
    target.Code = std::move(read.Code);
    target.Description = std::move(read.Description);
    target.Price = std::move(read.Price);
}

// The text between the quote at `from` and the next one; `from` moves past the closing quote. A
// missing quote gives the empty text.
QStringView nextQuoted(QStringView line, qsizetype& from)
{
    const qsizetype open = from < 0 ? -1 : line.indexOf(u'"', from);
    const qsizetype close = open < 0 ? -1 : line.indexOf(u'"', open + 1);
    if (close < 0) {
        from = -1;
        return {};
    }
    from = close + 1;
    return line.sliced(open + 1, close - open - 1);
}

PluRecord parseCsvLine(QStringView line)
{
    qsizetype from = 0;
    PluRecord plu;
    plu.Code = nextQuoted(line, from).toString();
    plu.Description = trimBlanks(nextQuoted(line, from)).toString();
    plu.Price = NumberText::withDecimalPoint(trimBlanks(nextQuoted(line, from)).toString());
    return plu;
}

// Every line of the file, empty ones included; nothing when it cannot be opened.
std::optional<QList<PluRecord>> readRecords(const QString& path, PluRecord (*parse)(QStringView))
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    LineReader in(file.readAll());
    QList<PluRecord> records;
    while (!in.atEnd()) {
        records.append(parse(in.next()));
    }
    return records;
}

bool isNumber(const QString& text)
{
    static const QRegularExpression number(QStringLiteral(R"(^[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?$)"));
    return number.match(text).hasMatch();
}

// An empty price is taken: the product is simply not priced yet. Back offices write a decimal comma.
QString checkedPrice(const Worksheet& sheet, int row, const QString& cell)
{
    const QString price = NumberText::withDecimalPoint(trimBlanks(cell).toString());
    if (!price.isEmpty() && !isNumber(price)) {
        throw ImportError(sheet.path(),
            QStringLiteral("the price \"%1\" in row %2 is not a number")
                .arg(price)
                .arg(Worksheet::shownRowNumber(row)));
    }
    return price;
}

// Three cells of one row, in the order their headings were asked for.
using RowCells = std::array<QString, 3>;

// One exchange line for every row that holds something under the three headings; rows with nothing
// there are passed over.
template<typename MakeLine>
QStringList exchangeLines(const Worksheet& sheet, const std::array<QString, 3>& headings, MakeLine&& makeLine)
{
    std::array<int, 3> columns {};
    std::transform(headings.begin(), headings.end(), columns.begin(),
        [&sheet](const QString& heading) { return sheet.column(heading); });
    QStringList lines;
    for (int row = 0; row < sheet.dataRowCount(); ++row) {
        RowCells cells;
        std::transform(columns.begin(), columns.end(), cells.begin(),
            [&sheet, row](int column) { return sheet.cell(row, column); });
        if (!std::all_of(cells.begin(), cells.end(), [](const QString& cell) { return isBlank(cell); })) {
            lines.append(makeLine(row, cells));
        }
    }
    return lines;
}

// The exchange file lines of the sheet with the columns PLUCODE, DESCRIPTION and PRICE. The number
// goes to both the code and the alternative code.
QStringList pluSheetLines(const Worksheet& sheet)
{
    return exchangeLines(sheet,
        { QStringLiteral("PLUCODE"), QStringLiteral("DESCRIPTION"), QStringLiteral("PRICE") },
        [&sheet](int row, const RowCells& cells) {
            const auto& [number, description, price] = cells;
            return QString(QStringLiteral("0, ") + number + QStringLiteral(",0, ") + number + u','
                + checkedPrice(sheet, row, price) + u',' + trimBlanks(description));
        });
}

// A family becomes "NUMERO,0, COMANDO, y, x, NOME": its code "0" keeps it out of the product list and
// away from the product numbers, and "y" and "x" in the alternative code and price mark it as a family.
QStringList familyLines(const Worksheet& sheet)
{
    return exchangeLines(sheet,
        { QStringLiteral("COMANDO,N,4,0"), QStringLiteral("NUMERO,N,3,0"), QStringLiteral("NOME,C,25") },
        [](int, const RowCells& cells) {
            const auto& [command, number, name] = cells;
            return QString(number + QStringLiteral(",0, ") + command + QStringLiteral(", y, x, ") + name);
        });
}

QStringList productLines(const Worksheet& sheet)
{
    return exchangeLines(sheet,
        { QStringLiteral("NUMERO,N,6,0"), QStringLiteral("PLU,C,20"), QStringLiteral("VENDA,N,12,2") },
        [&sheet](int row, const RowCells& cells) {
            const auto& [number, text, price] = cells;
            return QString(QStringLiteral("0, ") + number + QStringLiteral(",0, ") + number
                + QStringLiteral(", ") + checkedPrice(sheet, row, price) + QStringLiteral(", ") + text);
        });
}

void checkCapacity(const QString& path, const QStringList& lines)
{
    if (lines.size() > Limits::PluCapacity) {
        throw ImportError(path,
            QStringLiteral("it holds %1 products and the catalogue takes at most %2")
                .arg(lines.size())
                .arg(Limits::PluCapacity));
    }
}

void writeExchangeFile(const QStringList& lines)
{
    const QString path = WorkingPaths::exchangeFile();
    QByteArray bytes;
    for (const QString& line : lines) {
        AnsiCodec::appendEncoded(bytes, line);
        bytes.append("\r\n", 2);
    }
    QDir().mkpath(WorkingPaths::workingRoot());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        throw ImportError(path, QStringLiteral("the exchange file cannot be written"));
    }
}

// Clears the document with the caller's New, then stores the records from index 0 on.
bool replaceCatalogue(MenuDocument& document, const std::function<void()>& clearDocument,
    std::optional<QList<PluRecord>> records, StoreFields store)
{
    if (!records) {
        return false;
    }
    clearDocument();
    int count = 0;
    for (PluRecord& record : *records) {
        store(document.Plus[count++], std::move(record));
    }
    document.PluCount = count;
    return true;
}

} // namespace

ProductImport::ProductImport(MenuDocument& document, std::function<void()> clearDocument)
    : m_document(document)
    , m_clearDocument(std::move(clearDocument))
{ }

bool ProductImport::fromLastSent()
{
    return replaceCatalogue(m_document, m_clearDocument,
        readRecords(WorkingPaths::exchangeFile(), [](QStringView line) { return PluLine::parse(line); }),
        storeAllFields);
}

bool ProductImport::fromCsv(const QString& path)
{
    return replaceCatalogue(m_document, m_clearDocument, readRecords(path, parseCsvLine), storeCsvFields);
}

bool ProductImport::fromPluSheet(const QString& path)
{
    const QStringList lines = pluSheetLines(Worksheet::read(path));
    checkCapacity(path, lines);
    return importExchangeLines(lines);
}

bool ProductImport::fromBackOffice(const QString& familySheetPath)
{
    const Worksheet families = Worksheet::read(familySheetPath);
    const Worksheet products = Worksheet::read(productSheetBeside(familySheetPath));
    QStringList lines = familyLines(families);
    lines += productLines(products);
    checkCapacity(familySheetPath, lines);
    return importExchangeLines(lines);
}

QString ProductImport::productSheetBeside(const QString& familySheetPath)
{
    const QDir folder = QFileInfo(familySheetPath).dir();
    const QString exact = folder.filePath(ProductSheetName);
    if (QFileInfo::exists(exact)) {
        return exact;
    }
    // Name filters ignore case.
    const QStringList found = folder.entryList({ ProductSheetName }, QDir::Files);
    return found.isEmpty() ? exact : folder.filePath(found.first());
}

bool ProductImport::importExchangeLines(const QStringList& lines)
{
    writeExchangeFile(lines);
    return fromLastSent();
}
