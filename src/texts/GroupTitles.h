#pragma once

#include <QString>

#include <cstdint>

class MenuDocument;

// A group title heads the rows below it on its page side, down to the next group title or the end of
// the side: they take its colours and, when it has one, its picture. The extent is not stored; it
// follows from that rule whenever a group is made or removed.
namespace GroupTitles {

// Key of the group title's text in the language table.
int textKey(int slot);

// Language row 0 to 4 of the group title. Row 0 is also the title the back row shows.
void storeText(MenuDocument& document, int slot, int row, const QString& text);

// Whether the slot has both group colours of its own.
bool hasGroupColors(const MenuDocument& document, int slot);

// A slot without both group colours takes the default colours of text lines for both.
void fillDefaultGroupColors(MenuDocument& document, int slot);

// What a group is made with.
struct Group
{
    QString title;
    std::int32_t backColor = 0;
    std::int32_t foreColor = 0;
    QString picture;
    bool visibleOnLeft = false; // the back rows take the group colours too
};

// Marks the slot as the head of a group and colours the rows of its extent. Products and empty lines
// take the group colours as their own; titles and notes keep theirs.
void createGroup(MenuDocument& document, int slot, const Group& group);

// The slot keeps the title, so that it still ends any group above it, but heads nothing: the rows
// of its extent lose their group colours, picture mark and own colours.
void removeGroup(MenuDocument& document, int slot, const QString& title);

} // namespace GroupTitles
