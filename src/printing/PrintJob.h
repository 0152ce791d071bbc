#pragma once

#include "PageSideRenderer.h"
#include "document/SafeWrite.h"

#include <optional>

class MenuDocument;
class QPagedPaintDevice;
class UserPrompts;

// One print: the sheets of the chosen pages, one page side on each, drawn on a printer, a PDF file or
// a preview.
namespace PrintJob {

struct Request
{
    PrintSelection::Pages pages = PrintSelection::Pages::Current;
    int currentPage = 1;
    SideLayout layout;
};

// Draws the sheets; false when the device could not be started (a file that cannot be written). The
// sheets are drawn without the pictures that cannot be found; their stored paths are added, each once,
// to missingPictures when it is given.
bool drawSheets(const MenuDocument& document, const Request& request, QPagedPaintDevice& device,
    QStringList* missingPictures = nullptr);

// Asks for the kind of sheet to load first when the choice calls for it, then draws the sheets with
// the busy pointer showing.
bool print(const MenuDocument& document, const Request& request, QPagedPaintDevice& device,
    UserPrompts& prompts, QStringList* missingPictures = nullptr);

// Prints into a PDF file, A4 without margins. The sheets are made in memory and take the file's place
// only once complete, so that a print that fails leaves the file as it was. Nothing when it succeeded.
std::optional<WriteFailure> printPdf(const MenuDocument& document, const Request& request,
    const QString& path, UserPrompts& prompts, QStringList* missingPictures = nullptr);

} // namespace PrintJob
