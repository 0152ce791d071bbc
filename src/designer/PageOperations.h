#pragma once

class MenuDocument;

// Whole pages and rows of a page moved about in the document. A line moves as one unit: its bound
// PLU number, its layout record and its texts in every language, those of the front row (key
// 10000 + slot) as well as those of the group title on the back (key 11000 + slot). A product's own
// texts stay where they are: they belong to its PLU number, not to the line.
//
// Every operation checks its page and row first and raises a RangeFault before it changes anything.
namespace PageOperations {

// Line `to` takes everything of line `from`; line `from` keeps what it holds.
void copyLine(MenuDocument& document, int from, int to);

// Empties a line for the page operations: unbound, kind and group mark 0, colours, back text and
// picture empty, its language texts empty. Its own text and back text colour stay in the record,
// out of sight on a line of kind 0, and travel with the line if it is moved later.
void clearLine(MenuDocument& document, int slot);

// An empty page at `page`: the pages from it to 13 move one page on, with their four page values;
// page 14's lines are overwritten, only its first line is kept in the spare slot.
void InsertPage(MenuDocument& document, int page);

// Takes `page` out: the pages after it move one page forward with their page values, and page 14 is
// left empty. Page 14's first line takes the spare slot's content before it is cleared.
void DeletePage(MenuDocument& document, int page);

// The row dialog's operations on row 0 to 23 of a page. None of them reaches another page.
// DELETE: the row loses its product and becomes a product line; everything else stays in the record.
void DeleteRow(MenuDocument& document, int page, int row);
// MOVE UP: the rows below `row` move up one, over it; the last row is left unbound.
void MoveRowUp(MenuDocument& document, int page, int row);
// MOVE DOWN: the rows from `row` to 22 move down one, over row 23; `row` is left unbound.
void MoveRowDown(MenuDocument& document, int page, int row);

} // namespace PageOperations
