#include "XlsWorkbooks.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <stdexcept>

namespace {

// Debian's own interpreter: another python3 first on the PATH may lack the module.
const QString Python = QStringLiteral("/usr/bin/python3");

const char* const WriterScript = R"(
import json, sys, xlwt
spec = json.load(sys.stdin)
book = xlwt.Workbook(encoding="utf-8")
for sheet in spec["sheets"]:
    worksheet = book.add_sheet(sheet["name"])
    for r, row in enumerate(sheet["rows"]):
        for c, value in enumerate(row):
            if value is not None:
                worksheet.write(r, c, value)
book.save(spec["path"])
)";

} // namespace

void writeXlsWorkbook(const QString& path, const QList<XlsSheet>& sheets)
{
    QJsonArray sheetList;
    for (const XlsSheet& sheet : sheets) {
        sheetList.append(
            QJsonObject { { QStringLiteral("name"), sheet.name }, { QStringLiteral("rows"), sheet.rows } });
    }
    const QJsonObject spec { { QStringLiteral("path"), path }, { QStringLiteral("sheets"), sheetList } };

    QProcess writer;
    writer.start(Python, { QStringLiteral("-c"), QString::fromUtf8(WriterScript) });
    writer.write(QJsonDocument(spec).toJson(QJsonDocument::Compact));
    writer.closeWriteChannel();
    if (!writer.waitForFinished(60'000) || writer.exitStatus() != QProcess::NormalExit
        || writer.exitCode() != 0) {
        throw std::runtime_error(
            "the workbook writer failed: " + writer.readAllStandardError().toStdString());
    }
}

XlsSheet xlsSheet(const QString& name, const QStringList& headings, const QList<QJsonArray>& rows)
{
    XlsSheet sheet { name, { QJsonArray::fromStringList(headings) } };
    for (const QJsonArray& row : rows) {
        sheet.rows.append(row);
    }
    return sheet;
}
