#pragma once

#include <QString>

#include <cstdint>

class MenuDocument;

// What the line editor does to the document: where a line's texts are kept, what the editor opens
// with, and the kind and product binding it writes when it closes.
namespace LineEditing {

// The row the editor is opened on, as the main window shows it.
struct Opening
{
    int page = 1;
    int row = 0;
    QString rowText; // the front row's text
    QString tag; // the catalogue position of the row's product, blank without one
    QString pluNumber; // code and price of the row's product; empty without one
    QString price;
    QString selectedEntryText; // the PLU list's selected entry; empty when none is selected
};

// What the editor shows when it opens.
struct Start
{
    int slot = 0;
    bool holdsLine = false;
    std::int32_t kind = 1; // the kind option chosen at first: a line of kind 0 counts as a product
    QString code; // Text1
    QString price; // Text2
    QString mainText; // the first language row
    QString backColor; // the line's own colours, empty when none is set
    QString foreColor;
};

// An empty row shows the product selected in the PLU list, with its code and price, so that closing
// the editor gives that product back what it had. A title or note shows a free PLU number as its code.
Start startOf(const MenuDocument& document, const Opening& opening);

// Titles and notes keep their texts under 10000 + slot, products under the numeric value of the code
// as it is typed now; a code that is not a number gives key 0, the language names.
int textKey(std::int32_t kind, int slot, const QString& code);

// Language row 0 to 4 of the text key.
void storeText(MenuDocument& document, int key, int row, const QString& text);

// The default colour entry of a kind: 0 text lines, 1 titles, 2 notes.
int defaultColorIndex(std::int32_t kind);

// What the editor holds when it closes.
struct Closing
{
    int slot = 0;
    bool holdsLine = false;
    std::int32_t kind = 1; // the kind option chosen
    QString code;
    QString price;
    QString previewText; // the preview of the chosen kind
    QString tag;
    QString selectedEntryText;
};

// A line of product kind takes the code and price on its product, or becomes a new product at the
// end of the catalogue; a title or note gives up its product, whose code becomes "0". Then, whatever
// the line, the product selected in the PLU list takes the code and price.
void writeBack(MenuDocument& document, const Closing& closing);

} // namespace LineEditing
