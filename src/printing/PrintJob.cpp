#include "PrintJob.h"

#include "app/BusyCursor.h"
#include "app/UserPrompts.h"

#include <QPagedPaintDevice>
#include <QPainter>

namespace PrintJob {

bool drawSheets(const MenuDocument& document, const Request& request, QPagedPaintDevice& device)
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
        PageSideRenderer::draw(painter, document, sheets.at(i), request.layout);
    }
    return painter.end();
}

bool print(
    const MenuDocument& document, const Request& request, QPagedPaintDevice& device, UserPrompts& prompts)
{
    if (const QString prompt = PrintSelection::sheetPrompt(request.pages); !prompt.isEmpty()) {
        prompts.showMessage(prompt);
    }
    const BusyCursor busy;
    return drawSheets(document, request, device);
}

} // namespace PrintJob
