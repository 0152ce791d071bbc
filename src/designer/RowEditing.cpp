#include "RowEditing.h"

#include "document/Blanks.h"
#include "document/MenuDocument.h"
#include "document/NumberText.h"

#include <algorithm>
#include <cmath>

namespace RowEditing {

int FindPluByDescription(const MenuDocument& document, const QString& text)
{
    if (text.isEmpty()) {
        return -1;
    }
    for (int i = 0; i < document.PluCount; ++i) {
        if (document.Plus[i].Description == text) {
            return i;
        }
    }
    return -1;
}

std::int32_t NextFreePluNumber(const MenuDocument& document)
{
    // The scan over every code that the catalogue list also makes: the next number above the highest.
    double highest = 0;
    for (int i = 0; i < document.PluCount; ++i) {
        highest = std::max(highest, pluNumber(document.Plus[i]));
    }
    return NumberText::toInt32(std::floor(highest) + 1);
}

bool isBlankTag(const QString& tag)
{
    return isBlank(tag);
}

int positionOfTag(const QString& tag)
{
    return NumberText::int32Value(tag);
}

CommittedRow commitRow(MenuDocument& document, int slot, const QString& text, const QString& tag)
{
    CommittedRow row { tag, {}, false };
    LineLayout& line = document.LineLayouts[slot];
    if (isBlankTag(tag) && !text.isEmpty() && line.kind < TitleLine) {
        const int found = FindPluByDescription(document, text);
        if (found < 1) {
            const int position = document.PluCount;
            const std::int32_t number = NextFreePluNumber(document);
            PluRecord& plu = document.Plus[position];
            plu.AuxText.clear();
            plu.Code = QString::number(number);
            plu.Description = text;
            plu.AltCode = plu.Code;
            document.LinePlu[slot] = number;
            row = { QString::number(position), plu.Price, true };
            document.PluCount = position + 1;
        } else {
            document.LinePlu[slot] = NumberText::int32Value(document.Plus[found].Code);
            row = { QString::number(found), document.Plus[found].Price, true };
        }
    } else if (!isBlankTag(tag)) {
        document.Plus[positionOfTag(tag)].Description = text;
    }
    if (line.kind >= TitleLine) {
        line.text = text;
    }
    return row;
}

} // namespace RowEditing
