#include "PageRendering.h"

#include "document/Blanks.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"
#include "document/PluNumberIndex.h"

#include <algorithm>

namespace PageRendering {

namespace {

constexpr double PrintedRowHeight = 6.88;

// Entry of the default colour tables that a line kind takes.
int defaultColorEntry(std::int32_t kind)
{
    switch (kind) {
    case TitleLine:
        return 1;
    case NoteLine:
        return 2;
    default:
        return 0;
    }
}

std::optional<FrontStyle> frontStyleOf(const LineLayout& line, const PrintSettings& print)
{
    int pointSize = 0;
    switch (line.kind) {
    case EmptyLine:
    case ProductLine:
        pointSize = 13;
        break;
    case TitleLine:
        pointSize = 14;
        break;
    case NoteLine:
        pointSize = 9;
        break;
    default:
        return std::nullopt;
    }
    const int entry = defaultColorEntry(line.kind);
    return FrontStyle { colorNumber(GetColor(line.backColor, print.ColorBack[entry])),
        colorNumber(GetColor(line.foreColor, print.ColorFore[entry])), pointSize };
}

// The last row a picture starting at the slot reaches: the covered rows below it, never past the
// page's last row.
int lastCoveredSlot(const MenuDocument& document, int slot)
{
    while (slot % Limits::RowsPerPage != Limits::RowsPerPage - 1
        && document.LineLayouts[slot + 1].pictureRole == CoveredByPicture) {
        ++slot;
    }
    return slot;
}

} // namespace

QString defaultSideColor()
{
    return QStringLiteral("14745599");
}

int LastUsedPage(const MenuDocument& document)
{
    for (int slot = Limits::LetteredPageCount * Limits::RowsPerPage; slot >= 0; --slot) {
        if (document.LinePlu[slot] > 0) {
            const int page = slot / Limits::RowsPerPage + 1;
            if (page <= Limits::LetteredPageCount) {
                return page;
            }
        }
    }
    return 0;
}

QString GetColor(const QString& colorText, const QString& defaultText)
{
    return colorText.isEmpty() ? defaultText : colorText;
}

std::int32_t colorNumber(const QString& colorText)
{
    return NumberText::int32Value(colorText);
}

std::optional<QString> magnetLetter(int page, const QString& pagesVersion, int lastUsedPage)
{
    if (page > Limits::LetteredPageCount) {
        return QString();
    }
    QStringView letters;
    int position = 0; // counting from 1
    if (pagesVersion == u"0") {
        letters = u"ABCDEFGHIJKL ";
        position = Limits::LetteredPageCount - lastUsedPage + page;
    } else if (pagesVersion == u"1") {
        letters = u"DEFGHIJKLABC ";
        position = page;
    } else {
        return std::nullopt;
    }
    if (position < 1) {
        throw RangeFault(); // only a page below 1 gets here
    }
    return position <= letters.size() ? letters.mid(position - 1, 1).toString() : QString();
}

SideView describeSide(const MenuDocument& document, int page, Side side, const PictureLoader& load)
{
    const PrintSettings& print = document.PrintSettings;
    const QString& stored = side == Side::Front ? print.PageColorA[page] : print.PageColorB[page];
    SideView view;
    view.colorText = GetColor(stored, defaultSideColor());
    view.color = colorNumber(view.colorText);
    view.picture = PicturePaths::findPicture(
        side == Side::Front ? print.PageValueA[page] : print.PageValueB[page], document.ProjectFolder, load);
    return view;
}

void storeSide(MenuDocument& document, int page, Side side, const SideView& view)
{
    PrintSettings& print = document.PrintSettings;
    (side == Side::Front ? print.PageColorA[page] : print.PageColorB[page]) = view.colorText;
    (side == Side::Front ? print.PageValueA[page] : print.PageValueB[page]) = view.picture.path;
}

RowView describeRow(const MenuDocument& document, const PluNumberIndex& catalogue, int page, int row,
    const PictureLoader& load)
{
    const int slot = lineSlot(page, row);
    const LineLayout& line = document.LineLayouts[slot];
    const std::int32_t plu = document.LinePlu[slot];
    RowView view;

    view.pictureBoxVisible = line.pictureRole != CoveredByPicture;

    if (plu != 0) {
        const int index = catalogue.lastPluIndex(plu);
        if (index >= 0) {
            const PluRecord& product = document.Plus[index];
            view.price = product.Price;
            view.text = product.Description;
            view.tag = QString::number(index);
        }
    }

    if (!line.backBackColor.isEmpty()) {
        view.backBackColor = colorNumber(line.backBackColor);
    }
    if (!line.backForeColor.isEmpty()) {
        view.backForeColor = colorNumber(line.backForeColor);
    }

    view.front = frontStyleOf(line, document.PrintSettings);
    if (line.kind == TitleLine || line.kind == NoteLine) {
        view.text = line.text;
    }

    if (line.pictureRole == GroupStart && !isBlank(line.picturePath)) {
        view.pictureRows = lastCoveredSlot(document, slot) - slot + 1;
        view.pictureTag = QString::number(view.pictureRows * PrintedRowHeight, 'g', 15);
        view.picture = PicturePaths::findPicture(line.picturePath, document.ProjectFolder, load);
    }

    if (!isBlank(line.backText)) {
        view.backText = line.backText;
    }
    return view;
}

void storeRow(MenuDocument& document, int page, int row, const RowView& view)
{
    if (view.pictureRows > 0) {
        document.LineLayouts[lineSlot(page, row)].picturePath = view.picture.path;
    }
}

} // namespace PageRendering
