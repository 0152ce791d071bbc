#include "PluList.h"

#include "document/MenuDocument.h"
#include "document/NumberText.h"
#include "document/PluNumberIndex.h"
#include "ui/UserPrompts.h"

namespace {

PluListEntry entryOf(const PluRecord& plu, double number)
{
    return { plu.Description, NumberText::toInt32(number) };
}

} // namespace

namespace PluList {

QList<PluListEntry> definedPlus(const MenuDocument& document)
{
    return filteredPlus(document, QString());
}

QList<PluListEntry> placedPlus(const MenuDocument& document)
{
    QList<PluListEntry> entries;
    const PluNumberIndex plus(document);
    for (int slot = 0; slot < Limits::LineSlotCount; ++slot) {
        const std::int32_t number = document.LinePlu[slot];
        if (number == 0) {
            continue;
        }
        plus.forEachIndexOf(number, [&](int index) {
            entries.append(PluListEntry { document.Plus[index].Description, number });
        });
    }
    return entries;
}

QList<PluListEntry> filteredPlus(const MenuDocument& document, const QString& text)
{
    QList<PluListEntry> entries;
    for (int i = 0; i < document.PluCount; ++i) {
        const PluRecord& plu = document.Plus[i];
        const double number = pluNumber(plu);
        if (number > 0 && containsIgnoringCase(plu.Description, text)) {
            entries.append(entryOf(plu, number));
        }
    }
    return entries;
}

bool containsIgnoringCase(const QString& text, const QString& searchText)
{
    return searchText.isEmpty() || text.contains(searchText, Qt::CaseInsensitive);
}

bool addPlu(MenuDocument& document, UserPrompts& prompts, const QString& description)
{
    if (description.isEmpty()) {
        prompts.showMessage(QStringLiteral("Please fill Plu Description!"));
        return false;
    }
    const QString code = prompts.askText(QStringLiteral("Plu Number"));
    // A full catalogue faults here, after the first question and before anything is stored.
    PluRecord& plu = document.Plus[document.PluCount];
    plu.Code = code;
    plu.AuxText.clear();
    plu.AltCode = code;
    plu.Price = NumberText::withDecimalPoint(prompts.askText(QStringLiteral("Price")));
    plu.Description = description;
    ++document.PluCount;
    return true;
}

QString priceOfPlu(const MenuDocument& document, std::int32_t number)
{
    for (int i = 0; i <= document.PluCount; ++i) {
        if (pluNumber(document.Plus[i]) == number) {
            return document.Plus[i].Price;
        }
    }
    return QString();
}

} // namespace PluList
