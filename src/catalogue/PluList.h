#pragma once

#include <QList>
#include <QString>

#include <cstdint>

class MenuDocument;
class UserPrompts;

// One entry of the catalogue list: what it shows and the PLU number it stands for.
struct PluListEntry
{
    QString description;
    std::int32_t number = 0;

    bool operator==(const PluListEntry&) const = default;
};

// The catalogue list's contents and the edits made from it. A number too large for an entry raises
// an OverflowFault; a count past the catalogue's end raises a RangeFault.
namespace PluList {

// Every product whose number is above 0, in catalogue order. Deleted products ("0") and codes that are
// not numbers stay hidden.
QList<PluListEntry> definedPlus(const MenuDocument& document);

// The products bound to page lines, slot by slot: a product on three lines is listed three times, and
// two products with the same number are both listed for each of its lines.
QList<PluListEntry> placedPlus(const MenuDocument& document);

// The products above 0 whose description holds the text, case ignored; the empty text holds in all.
QList<PluListEntry> filteredPlus(const MenuDocument& document, const QString& text);

bool containsIgnoringCase(const QString& text, const QString& searchText);

// Adds a product described by the text, asking for its number and price. Neither answer is checked:
// a cancelled box stores the empty text and the product is still added. An empty description is
// refused with a message. Returns whether a product was added.
bool addPlu(MenuDocument& document, UserPrompts& prompts, const QString& description);

// The price of the first product 0 to PluCount with the number; empty when there is none.
QString priceOfPlu(const MenuDocument& document, std::int32_t number);

} // namespace PluList
