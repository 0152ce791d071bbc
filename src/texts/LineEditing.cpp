#include "LineEditing.h"

#include "designer/RowEditing.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"

namespace LineEditing {

namespace {

bool isTitleOrNote(std::int32_t kind)
{
    return kind == TitleLine || kind == NoteLine;
}

void writeProduct(MenuDocument& document, const Closing& closing)
{
    using namespace RowEditing;
    if (!isBlankTag(closing.tag)) {
        PluRecord& plu = document.Plus[positionOfTag(closing.tag)];
        plu.Code = closing.code;
        // What the row's price box stores when it shows the price.
        plu.Price = NumberText::withDecimalPoint(closing.price);
        document.LineLayouts[closing.slot].text = closing.previewText;
    } else if (!closing.code.isEmpty()) {
        const int position = document.PluCount;
        PluRecord& plu = document.Plus[position];
        plu.AuxText.clear();
        plu.Code = closing.code;
        plu.Description = closing.previewText;
        plu.AltCode = plu.Code;
        plu.Price = NumberText::withDecimalPoint(closing.price);
        document.LinePlu[closing.slot] = NumberText::int32Value(plu.Code);
        document.PluCount = position + 1;
    }
}

void writeTitleOrNote(MenuDocument& document, const Closing& closing)
{
    if (!RowEditing::isBlankTag(closing.tag)) {
        document.Plus[RowEditing::positionOfTag(closing.tag)].Code = QStringLiteral("0");
    }
    document.LineLayouts[closing.slot].text = closing.previewText;
}

} // namespace

Start startOf(const MenuDocument& document, const Opening& opening)
{
    Start start;
    start.slot = lineSlot(opening.page, opening.row);
    const LineLayout& line = document.LineLayouts[start.slot];
    start.holdsLine = !opening.rowText.isEmpty() || line.kind != EmptyLine;
    start.code = opening.pluNumber;
    start.price = opening.price;
    if (!start.holdsLine) {
        start.mainText = opening.selectedEntryText;
        if (const int selected = RowEditing::FindPluByDescription(document, opening.selectedEntryText);
            selected >= 0) {
            start.code = document.Plus[selected].Code;
            start.price = document.Plus[selected].Price;
        }
        return start;
    }
    start.mainText = opening.rowText;
    start.backColor = line.backColor;
    start.foreColor = line.foreColor;
    if (isTitleOrNote(line.kind)) {
        start.kind = line.kind;
        start.code = QString::number(RowEditing::NextFreePluNumber(document));
    }
    return start;
}

int textKey(std::int32_t kind, int slot, const QString& code)
{
    return isTitleOrNote(kind) ? TextKey::LineTextBase + slot : NumberText::int32Value(code);
}

void storeText(MenuDocument& document, int key, int row, const QString& text)
{
    document.LanguageTable.at(key, row + 1) = text;
}

int defaultColorIndex(std::int32_t kind)
{
    return isTitleOrNote(kind) ? kind - 1 : 0;
}

void writeBack(MenuDocument& document, const Closing& closing)
{
    if (closing.holdsLine) {
        if (isTitleOrNote(closing.kind)) {
            writeTitleOrNote(document, closing);
        } else {
            writeProduct(document, closing);
        }
        document.LineLayouts[closing.slot].kind = closing.kind;
    }
    if (const int selected = RowEditing::FindPluByDescription(document, closing.selectedEntryText);
        selected >= 0) {
        document.Plus[selected].Code = closing.code;
        document.Plus[selected].Price = NumberText::withDecimalPoint(closing.price);
    }
}

} // namespace LineEditing
