#pragma once

#include "PageSideRenderer.h"

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

// Draws the sheets; false when the device could not be started (a file that cannot be written).
bool drawSheets(const MenuDocument& document, const Request& request, QPagedPaintDevice& device);

// Asks for the kind of sheet to load first when the choice calls for it, then draws the sheets with
// the busy pointer showing.
bool print(
    const MenuDocument& document, const Request& request, QPagedPaintDevice& device, UserPrompts& prompts);

} // namespace PrintJob
