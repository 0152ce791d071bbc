#pragma once

#include <QString>

#include <cstdint>

class MenuDocument;

// What typing in the rows of a page does to the catalogue and the lines.
namespace RowEditing {

// The first catalogue position 0 to PluCount - 1 whose description is exactly the text (case and
// blanks count); -1 for the empty text or when none matches.
int FindPluByDescription(const MenuDocument& document, const QString& text);

// A PLU number that no product has yet: one above the highest number in the catalogue, 1 for a
// catalogue without numbers.
std::int32_t NextFreePluNumber(const MenuDocument& document);

// A front row's tag holds the catalogue position of the product it shows, as text; a blank tag
// means no product stands on the row.
bool isBlankTag(const QString& tag);
int positionOfTag(const QString& tag);

// What the row shows after a commit.
struct CommittedRow
{
    QString tag;
    QString price;
    bool priceChanged = false; // the row took a product: its price box shows that product's price
};

// Leaving a front row: text typed on an empty product row binds the product with that description,
// or creates one with the next free number; text typed over a product renames it; on a title or note
// it becomes the line's own text. A match at catalogue position 0 is not taken: that product is
// created a second time.
CommittedRow commitRow(MenuDocument& document, int slot, const QString& text, const QString& tag);

} // namespace RowEditing
