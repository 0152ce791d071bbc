#include "catalogue/PluList.h"

#include "document/Fault.h"
#include "document/MenuDocument.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>
#include <random>

using SampleDocuments::addPlu;

inline void PrintTo(const PluListEntry& entry, std::ostream* out)
{
    *out << '{' << entry.description.toStdString() << ", " << entry.number << '}';
}

namespace {

QList<PluListEntry> entries(std::initializer_list<std::pair<const char16_t*, int>> list)
{
    QList<PluListEntry> result;
    for (const auto& [description, number] : list) {
        result.append(PluListEntry { QString::fromUtf16(description), number });
    }
    return result;
}

// The rule the "Only Defined plus" list follows, as a plain double loop.
QList<PluListEntry> placedPlusByDefinition(const MenuDocument& document)
{
    QList<PluListEntry> result;
    for (int slot = 0; slot < Limits::LineSlotCount; ++slot) {
        for (int i = 0; i < document.PluCount; ++i) {
            if (document.LinePlu[slot] != 0 && document.LinePlu[slot] == pluNumber(document.Plus[i])) {
                result.append(PluListEntry { document.Plus[i].Description, document.LinePlu[slot] });
            }
        }
    }
    return result;
}

// Products whose codes are every kind the catalogue meets: plain, padded, deleted, negative, text.
MenuDocument mixedCatalogue()
{
    MenuDocument document;
    addPlu(document, QStringLiteral("1001"), QStringLiteral("Espresso"), QStringLiteral("2.50"));
    addPlu(document, QStringLiteral("0"), QStringLiteral("Espresso duplo apagado"), QStringLiteral("3"));
    addPlu(document, QStringLiteral(" 3001"), QStringLiteral("Bife à portuguesa"), QStringLiteral("14.75"));
    addPlu(document, QStringLiteral("abc"), QStringLiteral("Sem número"), QStringLiteral("1"));
    addPlu(document, QStringLiteral("-5"), QStringLiteral("Negativo"), QStringLiteral("1"));
    addPlu(document, QStringLiteral("12abc"), QStringLiteral("ÁGUA com gás"), QStringLiteral("1.20"));
    addPlu(document, QStringLiteral("2.5"), QStringLiteral("Meio dois"), QStringLiteral("1"));
    addPlu(document, QStringLiteral(""), QStringLiteral("Vazio"), QStringLiteral("1"));
    addPlu(document, QStringLiteral("1001"), QStringLiteral("espresso repetido"), QStringLiteral("2.60"));
    // Past the count: never listed, whatever it holds.
    document.Plus[document.PluCount]
        = PluRecord { QStringLiteral("77"), {}, {}, QStringLiteral("9"), QStringLiteral("Espresso fora") };
    return document;
}

} // namespace

TEST(PluList, DefinedPlusListsNumbersAboveZeroInCatalogueOrder)
{
    const MenuDocument document = mixedCatalogue();
    EXPECT_EQ(PluList::definedPlus(document),
        entries({ { u"Espresso", 1001 }, { u"Bife à portuguesa", 3001 }, { u"ÁGUA com gás", 12 },
            { u"Meio dois", 2 }, { u"espresso repetido", 1001 } }));
    EXPECT_TRUE(PluList::definedPlus(MenuDocument()).isEmpty());

    MenuDocument tooLarge;
    addPlu(tooLarge, QStringLiteral("1"), QStringLiteral("Pão"), QStringLiteral("1"));
    addPlu(tooLarge, QStringLiteral("3000000000"), QStringLiteral("Grande"), QStringLiteral("1"));
    EXPECT_THROW(PluList::definedPlus(tooLarge), OverflowFault);
    EXPECT_EQ(PluList::filteredPlus(tooLarge, QStringLiteral("pão")), entries({ { u"Pão", 1 } }));
}

TEST(PluList, PlacedPlusFollowsTheLinesOncePerLine)
{
    MenuDocument document = mixedCatalogue();
    document.LinePlu[lineSlot(2, 5)] = 1001;
    document.LinePlu[lineSlot(1, 0)] = 3001;
    document.LinePlu[lineSlot(1, 7)] = 1001;
    document.LinePlu[lineSlot(14, 23)] = 12;
    document.LinePlu[Limits::LineSlotCount - 1] = 3001; // the spare slot counts too
    document.LinePlu[lineSlot(3, 0)] = 4444; // bound to a number the catalogue lacks
    document.LinePlu[lineSlot(3, 1)] = 77; // only past the count
    document.LinePlu[lineSlot(3, 2)] = -5;

    EXPECT_EQ(PluList::placedPlus(document),
        entries({ { u"Bife à portuguesa", 3001 }, { u"Espresso", 1001 }, { u"espresso repetido", 1001 },
            { u"Espresso", 1001 }, { u"espresso repetido", 1001 }, { u"Negativo", -5 },
            { u"ÁGUA com gás", 12 }, { u"Bife à portuguesa", 3001 } }));
    EXPECT_TRUE(PluList::placedPlus(mixedCatalogue()).isEmpty());
}

TEST(PluList, PlacedPlusMatchesTheLineByLineRuleOnACrowdedCatalogue)
{
    std::mt19937 random(20240611);
    std::uniform_int_distribution<int> number(-3, 60);
    MenuDocument document;
    for (int i = 0; i < 3000; ++i) {
        const int n = number(random);
        // Numbers written in several ways, so that equal values come from different texts.
        const QString code = i % 3 == 0 ? QStringLiteral(" %1").arg(n)
            : i % 3 == 1                ? QStringLiteral("%1.0x").arg(n)
                                        : QString::number(n);
        addPlu(document, code, QStringLiteral("Product %1").arg(i), QString());
    }
    for (int slot = 0; slot < Limits::LineSlotCount; ++slot) {
        document.LinePlu[slot] = slot % 4 == 0 ? 0 : number(random) * 2;
    }
    const QList<PluListEntry> expected = placedPlusByDefinition(document);
    ASSERT_GT(expected.size(), 1000);
    EXPECT_EQ(PluList::placedPlus(document), expected);
}

TEST(PluList, FilterAndFindMatchTheDescriptionIgnoringCase)
{
    const MenuDocument document = mixedCatalogue();
    EXPECT_EQ(PluList::filteredPlus(document, QStringLiteral("espRESSO")),
        entries({ { u"Espresso", 1001 }, { u"espresso repetido", 1001 } }));
    EXPECT_EQ(PluList::filteredPlus(document, QStringLiteral("água")), entries({ { u"ÁGUA com gás", 12 } }));
    EXPECT_TRUE(PluList::filteredPlus(document, QStringLiteral("nada disto")).isEmpty());
    EXPECT_EQ(PluList::filteredPlus(document, QString()), PluList::definedPlus(document));
    EXPECT_TRUE(PluList::containsIgnoringCase(QStringLiteral("Água mineral"), QStringLiteral("MINERAL")));
    EXPECT_TRUE(PluList::containsIgnoringCase(QStringLiteral("Água"), QString()));
    EXPECT_FALSE(PluList::containsIgnoringCase(QStringLiteral("Água"), QStringLiteral("agua")));
}

TEST(PluList, AddingAsksNumberThenPriceAndKeepsCancelledAnswers)
{
    MenuDocument document;
    addPlu(document, QStringLiteral("1001"), QStringLiteral("Espresso"), QStringLiteral("2.50"));
    ScriptedPrompts prompts;
    prompts.answers = QStringList { QStringLiteral("4001"), QStringLiteral("1,80") };
    EXPECT_FALSE(PluList::addPlu(document, prompts, QString()));
    EXPECT_EQ(prompts.asked, QStringList { QStringLiteral("message: Please fill Plu Description!") });

    // A decimal comma is stored as the point the catalogue file needs.
    EXPECT_TRUE(PluList::addPlu(document, prompts, QStringLiteral("Torrada, com manteiga")));
    EXPECT_EQ(document.Plus[1],
        (PluRecord { QStringLiteral("4001"), {}, QStringLiteral("4001"), QStringLiteral("1.80"),
            QStringLiteral("Torrada, com manteiga") }));
    // Both boxes cancelled: the product is added without a number, so never listed.
    EXPECT_TRUE(PluList::addPlu(document, prompts, QStringLiteral("Bolo")));
    EXPECT_EQ(document.Plus[2], (PluRecord { {}, {}, {}, {}, QStringLiteral("Bolo") }));
    EXPECT_EQ(PluList::definedPlus(document).size(), 2);
    EXPECT_EQ(prompts.asked.mid(1),
        QStringList({ QStringLiteral("text: Plu Number"), QStringLiteral("text: Price"),
            QStringLiteral("text: Plu Number"), QStringLiteral("text: Price") }));

    // A full catalogue faults when the number is stored: after its box, before the price's.
    document.PluCount = Limits::PluCapacity;
    prompts.asked.clear();
    EXPECT_THROW(PluList::addPlu(document, prompts, QStringLiteral("Mais um")), RangeFault);
    EXPECT_EQ(prompts.asked, QStringList { QStringLiteral("text: Plu Number") });
    EXPECT_EQ(document.PluCount, Limits::PluCapacity);
}

TEST(PluList, ThePriceIsTheFirstProductsWithTheNumber)
{
    MenuDocument document;
    addPlu(document, QStringLiteral("2001"), QStringLiteral("Água mineral"), QStringLiteral("1.20"));
    addPlu(document, QStringLiteral("2001"), QStringLiteral("Água com gás"), QStringLiteral("1.50"));
    EXPECT_EQ(PluList::priceOfPlu(document, 2001), u"1.20");
    document.DeletePluNumber(2001);
    EXPECT_EQ(PluList::priceOfPlu(document, 2001), QString());
}
