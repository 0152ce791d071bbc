#pragma once

#include "document/PicturePaths.h"

#include <QString>

#include <cstdint>
#include <optional>

class MenuDocument;
class PluNumberIndex;

// What a page side and its rows show, worked out from the document alone. The page view draws it on
// the screen; a printout can draw the same description on paper. Nothing here writes to the document:
// the few values the screen keeps (a page colour that was empty, the path a picture was found under)
// are stored by the caller through storeSide and storeRow.
namespace PageRendering {

using PicturePaths::PictureLoader;
using PicturePaths::PictureLookup;

// A page side whose colour was never set shows this pale yellow (0xE0FFFF).
QString defaultSideColor();

// The last page 1 to 12 that holds a bound product, 0 when none does. Page 13 and 14 never count: the
// magnet letters run over twelve pages.
int LastUsedPage(const MenuDocument& document);

// The colour text, or the default when it is empty.
QString GetColor(const QString& colorText, const QString& defaultText);

// A colour text as the number a widget takes (0x00BBGGRR).
std::int32_t colorNumber(const QString& colorText);

// The magnet letter of a page. Pages 13 and 14 have none (""); a page past the last letter gets the
// trailing blank or "". With a lettering other than "0" and "1" there is no answer and the caption
// stays as it is.
std::optional<QString> magnetLetter(int page, const QString& pagesVersion, int lastUsedPage);

enum class Side
{
    Front,
    Back
};

struct SideView
{
    QString colorText; // the stored colour, or the default when none is stored
    std::int32_t color = 0;
    PictureLookup picture;
};

SideView describeSide(const MenuDocument& document, int page, Side side, const PictureLoader& load);
void storeSide(MenuDocument& document, int page, Side side, const SideView& view);

struct FrontStyle
{
    std::int32_t backColor = 0;
    std::int32_t foreColor = 0;
    int pointSize = 13;

    bool operator==(const FrontStyle&) const = default;
};

// One row of a page: the front text box with its price, and the back text box with the picture box
// beside it.
struct RowView
{
    QString text;
    QString price;
    QString tag; // catalogue index of the product shown, as text; empty without one
    std::optional<FrontStyle> front; // empty for kinds other than 0 to 3: the front row keeps its look

    QString backText;
    std::int32_t backBackColor = 0xFFFFFF;
    std::int32_t backForeColor = 0;

    bool pictureBoxVisible = true;
    int pictureRows = 0; // rows a picture starting here covers, its own included; 0 without one
    QString pictureTag; // pictureRows * 6.88: the picture's height on the printed sheet
    PictureLookup picture;
};

// Row 0 to 23 of a page; the catalogue index must describe the document as it is now.
RowView describeRow(const MenuDocument& document, const PluNumberIndex& catalogue, int page, int row,
    const PictureLoader& load);
void storeRow(MenuDocument& document, int page, int row, const RowView& view);

} // namespace PageRendering
