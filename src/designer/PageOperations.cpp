#include "PageOperations.h"

#include "document/Fault.h"
#include "document/MenuDocument.h"

namespace PageOperations {

namespace {

constexpr int LastPageSlot = lineSlot(Limits::PageCount, 0); // 312: the first line of page 14
constexpr int LastRow = Limits::RowsPerPage - 1;

void checkPage(int page)
{
    if (page < 1 || page > Limits::PageCount) {
        throw RangeFault();
    }
}

void checkRow(int page, int row)
{
    checkPage(page);
    if (row < 0 || row > LastRow) {
        throw RangeFault();
    }
}

// What a row is left with when its product goes: an unbound product line, the rest untouched.
void unbind(MenuDocument& document, int slot)
{
    document.LinePlu[slot] = 0;
    document.LineLayouts[slot].kind = ProductLine;
}

void copyPageValues(PrintSettings& print, int from, int to)
{
    print.PageColorA[to] = print.PageColorA[from];
    print.PageColorB[to] = print.PageColorB[from];
    print.PageValueA[to] = print.PageValueA[from];
    print.PageValueB[to] = print.PageValueB[from];
}

void clearPageValues(PrintSettings& print, int page)
{
    print.PageColorA[page].clear();
    print.PageColorB[page].clear();
    print.PageValueA[page].clear();
    print.PageValueB[page].clear();
}

} // namespace

void copyLine(MenuDocument& document, int from, int to)
{
    document.LinePlu[to] = document.LinePlu[from];
    document.LineLayouts[to] = document.LineLayouts[from];
    LanguageTable& texts = document.LanguageTable;
    for (const int base : { TextKey::LineTextBase, TextKey::GroupTitleBase }) {
        for (int language = 1; language <= Limits::LanguageCount; ++language) {
            texts.at(base + to, language) = texts.at(base + from, language);
        }
    }
}

void clearLine(MenuDocument& document, int slot)
{
    document.LinePlu[slot] = 0;
    LineLayout& line = document.LineLayouts[slot];
    line.backColor.clear();
    line.foreColor.clear();
    line.backText.clear();
    line.backBackColor.clear();
    line.picturePath.clear();
    line.kind = EmptyLine;
    line.pictureRole = 0;
    LanguageTable& texts = document.LanguageTable;
    for (const int base : { TextKey::LineTextBase, TextKey::GroupTitleBase }) {
        for (int language = 1; language <= Limits::LanguageCount; ++language) {
            texts.at(base + slot, language).clear();
        }
    }
}

void InsertPage(MenuDocument& document, int page)
{
    checkPage(page);
    const int first = lineSlot(page, 0);
    for (int i = LastPageSlot; i >= first; --i) {
        copyLine(document, i, i + Limits::RowsPerPage);
    }
    PrintSettings& print = document.PrintSettings;
    for (int q = Limits::PageCount - 1; q >= page; --q) {
        copyPageValues(print, q, q + 1);
    }
    clearPageValues(print, page);
    for (int r = 0; r <= LastRow; ++r) {
        clearLine(document, first + r);
    }
}

void DeletePage(MenuDocument& document, int page)
{
    checkPage(page);
    for (int i = lineSlot(page, 0); i <= LastPageSlot; ++i) {
        copyLine(document, i + Limits::RowsPerPage, i);
    }
    PrintSettings& print = document.PrintSettings;
    for (int q = page; q < Limits::PageCount; ++q) {
        copyPageValues(print, q + 1, q);
    }
    clearPageValues(print, Limits::PageCount);
    for (int r = 0; r <= LastRow; ++r) {
        clearLine(document, LastPageSlot + r);
    }
}

void DeleteRow(MenuDocument& document, int page, int row)
{
    checkRow(page, row);
    unbind(document, lineSlot(page, row));
}

void MoveRowUp(MenuDocument& document, int page, int row)
{
    checkRow(page, row);
    for (int j = row; j < LastRow; ++j) {
        copyLine(document, lineSlot(page, j + 1), lineSlot(page, j));
    }
    unbind(document, lineSlot(page, LastRow));
}

void MoveRowDown(MenuDocument& document, int page, int row)
{
    checkRow(page, row);
    for (int j = LastRow - 1; j >= row; --j) {
        copyLine(document, lineSlot(page, j), lineSlot(page, j + 1));
    }
    unbind(document, lineSlot(page, row));
}

} // namespace PageOperations
