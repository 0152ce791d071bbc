#include "document/MenuDocument.h"

#include "document/PluNumberIndex.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"

#include <gtest/gtest.h>
#include <random>

using SampleDocuments::addPlu;

TEST(MenuDocument, StartsEmptyWithThePrinterDefaults)
{
    const MenuDocument document;
    EXPECT_EQ(document.PluCount, 0);
    EXPECT_EQ(document.ModifierListCount, 0);
    EXPECT_EQ(document.AssignmentCount, 0);
    EXPECT_EQ(document.PagesVersion, u"0");
    EXPECT_EQ(document.PrintSettings.Value1, 47);
    EXPECT_EQ(document.PrintSettings.Value2, 165);
    EXPECT_EQ(document.PrintSettings.Value3, 59);
    EXPECT_EQ(document.PrintSettings.Value4, 1);
    EXPECT_EQ(document.PrintSettings.CurrencySymbol, u"€");
    EXPECT_EQ(document.PrintSettings.FontName, u"Arial");
    EXPECT_EQ(document.PrintSettings.ColorBack[0], u"33023");
    EXPECT_EQ(document.PrintSettings.ColorFore[1], u"16777215");
    EXPECT_EQ(document.PrintSettings.PageColorA[14], u"15724527");
    EXPECT_TRUE(document.FilePrefix.endsWith(u"/temp_orvik/temp"));
    EXPECT_TRUE(document.ProjectFolder.endsWith(u"/temp_orvik/"));
}

TEST(MenuDocument, TablesRaiseARangeFaultOutsideTheirBounds)
{
    MenuDocument document;
    EXPECT_NO_THROW(document.LinePlu[336] = 1);
    EXPECT_THROW(document.LinePlu[337], RangeFault);
    EXPECT_THROW(document.LinePlu[-1], RangeFault);
    EXPECT_THROW(document.Plus[10000], RangeFault);
    EXPECT_THROW(document.ModifierLists[101], RangeFault);
    EXPECT_THROW(document.Assignments[0].ListName[11], RangeFault);
    EXPECT_THROW(document.PrintSettings.PageColorA[15], RangeFault);
    EXPECT_NO_THROW(document.LanguageTable.at(11336, 5));
    EXPECT_THROW(document.LanguageTable.at(11337, 1), RangeFault);
    EXPECT_THROW(document.LanguageTable.at(0, 6), RangeFault);
}

TEST(FindPluIndex, GivesTheFirstMatchAndZeroForAnAbsentNumber)
{
    MenuDocument document;
    addPlu(document, QStringLiteral("500"), QStringLiteral("First"), QStringLiteral("1"));
    addPlu(document, QStringLiteral(" 77 "), QStringLiteral("Second"), QStringLiteral("2"));
    addPlu(document, QStringLiteral("77"), QStringLiteral("Duplicate"), QStringLiteral("3"));
    EXPECT_EQ(document.FindPluIndex(77), 1);
    EXPECT_EQ(document.FindPluIndex(500), 0);
    EXPECT_EQ(document.FindPluIndex(12345), 0);

    // The scan reaches the unused record right after the last product.
    document.Plus[3].Code = QStringLiteral("900");
    EXPECT_EQ(document.FindPluIndex(900), 3);
}

TEST(FindPluIndex, OnAFullCatalogueAnAbsentNumberRunsPastTheTable)
{
    MenuDocument document;
    for (int i = 0; i < Limits::PluCapacity; ++i) {
        addPlu(document, QString::number(i + 1), QStringLiteral("P"), QStringLiteral("1"));
    }
    EXPECT_EQ(document.FindPluIndex(10000), 9999);
    EXPECT_THROW(document.FindPluIndex(10001), RangeFault);
    EXPECT_THROW(PluNumberIndex(document).FindPluIndex(10001), RangeFault);
}

TEST(DeletePluNumber, MarksEveryRecordWithTheNumberAndKeepsTheCount)
{
    MenuDocument document;
    addPlu(document, QStringLiteral("5"), QStringLiteral("A"), QStringLiteral("1"));
    addPlu(document, QStringLiteral("6"), QStringLiteral("B"), QStringLiteral("1"));
    addPlu(document, QStringLiteral("5.0"), QStringLiteral("C"), QStringLiteral("1"));
    document.DeletePluNumber(5);
    EXPECT_EQ(document.Plus[0].Code, u"0");
    EXPECT_EQ(document.Plus[1].Code, u"6");
    EXPECT_EQ(document.Plus[2].Code, u"0");
    EXPECT_EQ(document.Plus[2].Description, u"C");
    EXPECT_EQ(document.PluCount, 3);
}

TEST(FindLinePlu, TakesTheLastMatchAndNeverTheFirstProduct)
{
    MenuDocument document;
    addPlu(document, QStringLiteral("5"), QStringLiteral("At index 0"), QStringLiteral("1"));
    addPlu(document, QStringLiteral("8"), QStringLiteral("Eight"), QStringLiteral("1"));
    addPlu(document, QStringLiteral("8"), QStringLiteral("Eight again"), QStringLiteral("2"));
    EXPECT_EQ(document.findLinePlu(8), 2);
    EXPECT_EQ(document.findLinePlu(5), -1);
    EXPECT_EQ(document.findLinePlu(9), -1);
}

// The hashed lookups used for whole files must answer exactly as the scans do.
TEST(PluNumberIndex, AgreesWithTheLinearScans)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> number(0, 60);
    for (int round = 0; round < 20; ++round) {
        MenuDocument document;
        const int count = round * 7;
        for (int i = 0; i < count; ++i) {
            const int n = number(random);
            addPlu(document, n % 10 == 0 ? QStringLiteral("x") : QString::number(n), QStringLiteral("P"),
                QString());
        }
        document.Plus[count].Code = QString::number(number(random));
        const PluNumberIndex index(document);
        for (int n = -1; n <= 61; ++n) {
            ASSERT_EQ(index.FindPluIndex(n), document.FindPluIndex(n))
                << "round " << round << " number " << n;
            ASSERT_EQ(index.findLinePlu(n), document.findLinePlu(n)) << "round " << round << " number " << n;
        }
    }
}
