#include "PrintJob.h"

#include "ui/BusyCursor.h"
#include "ui/UserPrompts.h"

#include <QBuffer>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>

namespace {

constexpr int PdfResolution = 600;

} // namespace

namespace PrintJob {

bool drawSheets(const MenuDocument& document, const Request& request, QPagedPaintDevice& device,
    QStringList* missingPictures)
{
    QPainter painter;
    if (!painter.begin(&device)) {
        return false;
    }
    const QList<PrintSelection::Sheet> sheets = PrintSelection::sheetsOf(request.pages, request.currentPage);
    for (qsizetype i = 0; i < sheets.size(); ++i) {
        if (i > 0) {
            device.newPage();
        }
        const QStringList missing = PageSideRenderer::draw(painter, document, sheets.at(i), request.layout);
        if (missingPictures) {
            *missingPictures += missing;
        }
    }
    if (missingPictures) {
        missingPictures->removeDuplicates();
    }
    return painter.end();
}

bool print(const MenuDocument& document, const Request& request, QPagedPaintDevice& device,
    UserPrompts& prompts, QStringList* missingPictures)
{
    if (const QString prompt = PrintSelection::sheetPrompt(request.pages); !prompt.isEmpty()) {
        prompts.showMessage(prompt);
    }
    const BusyCursor busy;
    return drawSheets(document, request, device, missingPictures);
}

std::optional<WriteFailure> printPdf(const MenuDocument& document, const Request& request,
    const QString& path, UserPrompts& prompts, QStringList* missingPictures)
{
    QBuffer sheets;
    sheets.open(QIODevice::WriteOnly);
    QPdfWriter writer(&sheets);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF());
    writer.setResolution(PdfResolution);
    writer.setCreator(QStringLiteral("Orvik Quorvel"));
    writer.setTitle(QStringLiteral("Orvik Quorvel"));
    if (!print(document, request, writer, prompts, missingPictures)) {
        return WriteFailure { path, QStringLiteral("the sheets could not be drawn") };
    }
    return SafeWrite::writeFile(path, sheets.data());
}

} // namespace PrintJob
