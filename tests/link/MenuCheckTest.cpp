#include "link/MenuCheck.h"

#include "document/MenuDocument.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using SampleDocuments::addPlu;

namespace {

void place(MenuDocument& document, int page, int row, std::int32_t plu)
{
    document.LinePlu[lineSlot(page, row)] = plu;
    document.LineLayouts[lineSlot(page, row)].kind = ProductLine;
}

QStringList linesOf(const MenuDocument& document)
{
    QStringList lines;
    for (const MenuCheck::Problem& problem : MenuCheck::check(document)) {
        lines.append(MenuCheck::line(problem));
    }
    return lines;
}

} // namespace

TEST(MenuCheck, FindsEachKindWhereTheUserLooksForIt)
{
    MenuDocument d;
    d.LanguageTable.setDefaultLanguageNames();
    addPlu(d, u"101"_s, u"Sopa"_s, u"3.00"_s);
    addPlu(d, u"102"_s, u" "_s, u"2.00"_s);
    addPlu(d, u"103"_s, u"Bolo"_s, u""_s);
    addPlu(d, u"104"_s, u"Tosta"_s, u"4,50"_s);
    addPlu(d, u"12000"_s, u"Bolo de chocolate"_s, u"3.00"_s);
    addPlu(d, u"101"_s, u"Sopa do dia"_s, u"2.00"_s);
    addPlu(d, u"106"_s, u"Tosta"_s, u"4.00"_s);
    addPlu(d, u"107"_s, u"Café"_s, u"1.00"_s);
    addPlu(d, u"0"_s, u"Apagado"_s, u"x"_s);
    place(d, 1, 0, 101);
    place(d, 1, 1, 102);
    place(d, 1, 2, 103);
    place(d, 1, 3, 104);
    place(d, 1, 4, 105);
    place(d, 3, 0, 107);
    d.LanguageTable.at(107, 2) = QString(95, u'c');
    d.LanguageTable.at(107, 3) = u"Caffè ☕"_s;

    ModifierDefinition& extras = d.ModifierLists[d.ModifierListCount++];
    extras.Name = u"Extras"_s;
    extras.EntryPlu[extras.EntryCount++] = 103;
    ModifierAssignment& soup = d.Assignments[d.AssignmentCount++];
    soup.Key = u"Sopa"_s;
    soup.ListName[0] = u"Extras"_s;
    soup.Minimum[0] = 2;
    soup.Maximum[0] = 1;
    d.ModifierLists[d.ModifierListCount++].Name = u"Vazia"_s;
    soup.ListName[1] = u"Vazia"_s;
    soup.Mandatory[1] = 1;
    soup.Maximum[1] = 1;
    soup.ListCount = 2;
    ModifierAssignment& ghost = d.Assignments[d.AssignmentCount++];
    ghost.Key = u"Fantasma"_s;
    ghost.ListName[0] = u"Nada"_s;
    ghost.ListCount = 1;

    const QStringList expected = {
        u"no-description\t1\tfront\t2\t102\tPLU 102 has no description"_s,
        u"no-price\t1\tfront\t3\t103\tPLU 103 (Bolo) has no price"_s,
        u"bad-price\t1\tfront\t4\t104\tPLU 104 (Tosta): the price \"4,50\" is not a number"_s,
        u"missing-product\t1\tfront\t5\t105\tThe row is bound to PLU 105, which the catalogue does not hold"_s,
        u"text-cut\t3\tfront\t1\t107\tPLU 107 (Café): the English text does not fit in the 90 characters a "
        "terminal shows"_s,
        u"text-cut\t3\tfront\t1\t107\tPLU 107 (Café): the Italiano text does not fit in the 90 characters a "
        "terminal shows"_s,
        u"not-encodable\t3\tfront\t1\t107\tPLU 107 (Café): the Italiano text \"Caffè ☕\" holds characters "
        u"the "
        "terminals show as \"?\""_s,
        u"empty-page\t2\t-\t-\t-\tPage 2 is empty between pages in use: the terminals show an empty folder"_s,
        u"code-range\t-\t-\t-\t12000\tPLU 12000 of Bolo de chocolate: a PLU number is 1 to 9999; Send stops "
        "at it"_s,
        u"duplicate-code\t1\tfront\t1\t101\tPLU 101 is held by 2 products: Sopa, Sopa do dia"_s,
        u"duplicate-description\t-\t-\t-\t104\t\"Tosta\" describes 2 products (PLU 104, 106): their "
        u"modifiers "
        "cannot be told apart"_s,
        u"modifier-limits\t-\t-\t-\t-\t\"Sopa\" with the list \"Extras\": Minimum 2 is above Maximum 1"_s,
        u"modifier-limits\t-\t-\t-\t-\t\"Sopa\" with the list \"Vazia\": Maximum 1 is above its 0 options"_s,
        u"modifier-limits\t-\t-\t-\t-\t\"Sopa\" with the list \"Vazia\": Mandatory, but the list has no options"_s,
        u"modifier-limits\t-\t-\t-\t-\tModifier lists are attached to \"Fantasma\", which no product is called"_s,
        u"modifier-limits\t-\t-\t-\t-\t\"Fantasma\" with the list \"Nada\": no such list"_s,
    };
    EXPECT_EQ(linesOf(d), expected);

    // Old firmware sends the first language alone, uncut; a menu without faults has nothing to show.
    d.OldFirmware = true;
    EXPECT_EQ(linesOf(d).filter(u"text-cut"_s), QStringList());
    EXPECT_EQ(linesOf(*SampleDocuments::printedMenu()), QStringList());
}
