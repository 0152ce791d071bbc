#include "GroupTitles.h"

#include "document/Blanks.h"
#include "document/MenuDocument.h"

namespace GroupTitles {

namespace {

// The slots after the head that its group covers, in order.
template<typename Visit>
void forEachFollowingSlot(const MenuDocument& document, int slot, Visit&& visit)
{
    for (int i = slot + 1; i % Limits::RowsPerPage != 0 && document.LineLayouts[i].backText.isEmpty(); ++i) {
        visit(i);
    }
}

QString colorText(std::int32_t color)
{
    return QString::number(color);
}

void colorLine(LineLayout& line, const Group& group)
{
    if (group.visibleOnLeft) {
        line.backBackColor = colorText(group.backColor);
        line.backForeColor = colorText(group.foreColor);
    }
    if (line.kind < TitleLine) {
        line.backColor = colorText(group.backColor);
        line.foreColor = colorText(group.foreColor);
    }
}

} // namespace

int textKey(int slot)
{
    return TextKey::GroupTitleBase + slot;
}

void storeText(MenuDocument& document, int slot, int row, const QString& text)
{
    document.LanguageTable.at(textKey(slot), row + 1) = text;
    if (row == 0) {
        document.LineLayouts[slot].backText = text;
    }
}

bool hasGroupColors(const MenuDocument& document, int slot)
{
    const LineLayout& line = document.LineLayouts[slot];
    return !isBlank(line.backBackColor) && !isBlank(line.backForeColor);
}

void fillDefaultGroupColors(MenuDocument& document, int slot)
{
    if (hasGroupColors(document, slot)) {
        return;
    }
    LineLayout& line = document.LineLayouts[slot];
    line.backBackColor = document.PrintSettings.ColorBack[0];
    line.backForeColor = document.PrintSettings.ColorFore[0];
}

void createGroup(MenuDocument& document, int slot, const Group& group)
{
    LineLayout& head = document.LineLayouts[slot];
    head.pictureRole = GroupStart;
    head.backText = group.title;
    colorLine(head, group);
    const bool withPicture = !isBlank(group.picture);
    forEachFollowingSlot(document, slot, [&](int i) {
        LineLayout& line = document.LineLayouts[i];
        colorLine(line, group);
        if (withPicture) {
            line.pictureRole = CoveredByPicture;
        }
    });
}

void removeGroup(MenuDocument& document, int slot, const QString& title)
{
    LineLayout& head = document.LineLayouts[slot];
    head.pictureRole = 0;
    head.backText = title;
    forEachFollowingSlot(document, slot, [&](int i) {
        LineLayout& line = document.LineLayouts[i];
        line.backBackColor.clear();
        line.backForeColor.clear();
        line.pictureRole = 0;
        line.backColor.clear();
        line.foreColor.clear();
    });
}

} // namespace GroupTitles
