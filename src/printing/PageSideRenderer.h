#pragma once

#include "PrintPreferences.h"
#include "PrintSelection.h"

#include <QStringList>

class MenuDocument;
class QPainter;

// Where a printed side lies on its sheet and what it shows, in millimetres from the sheet's top left
// corner. The column of 24 rows stands on `bottom`; row texts start at `descriptionLeft` and prices
// end `priceMargin` before the sheet's right edge.
struct SideLayout
{
    double priceMargin = 47;
    double descriptionLeft = 59;
    double bottom = 165;
    bool lines = true;
    int language = 1; // column of the language table whose texts are printed
    PrintPreferences::Offset offset; // the printer's calibration, added to every position

    // The margins and the lines flag as the menu's print settings hold them.
    static SideLayout of(const MenuDocument& document, int language, const PrintPreferences::Offset& offset);
};

// Draws one side of a page, as the magnet sheet shows it, on the device the painter is active on:
// a printer, a PDF file or an image alike.
namespace PageSideRenderer {

// Height of a printed row: 24 of them make the magnet page's 165 mm.
constexpr double RowPitch = 6.88;

// Returns the stored paths of the pictures the side should show and that could not be found; the side
// is drawn without them.
QStringList draw(QPainter& painter, const MenuDocument& document, const PrintSelection::Sheet& sheet,
    const SideLayout& layout);

} // namespace PageSideRenderer
