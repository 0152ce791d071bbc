#include "designer/RowEditing.h"

#include "document/MenuDocument.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"

#include <gtest/gtest.h>

using namespace RowEditing;
using SampleDocuments::addPlu;

TEST(RowEditing, NextFreeNumberIsOneAboveTheHighestCode)
{
    MenuDocument document;
    EXPECT_EQ(NextFreePluNumber(document), 1);
    addPlu(document, QStringLiteral("12"), QStringLiteral("A"), {});
    addPlu(document, QStringLiteral("abc"), QStringLiteral("B"), {});
    addPlu(document, QStringLiteral(" 40.5"), QStringLiteral("C"), {});
    addPlu(document, QStringLiteral("7"), QStringLiteral("D"), {});
    EXPECT_EQ(NextFreePluNumber(document), 41);
}

TEST(RowEditing, FindsTheFirstExactDescription)
{
    MenuDocument document;
    addPlu(document, QStringLiteral("1"), QStringLiteral("Chá"), {});
    addPlu(document, QStringLiteral("2"), QStringLiteral("Café"), {});
    addPlu(document, QStringLiteral("3"), QStringLiteral("Café"), {});
    EXPECT_EQ(FindPluByDescription(document, QStringLiteral("Café")), 1);
    EXPECT_EQ(FindPluByDescription(document, QStringLiteral("café")), -1);
    EXPECT_EQ(FindPluByDescription(document, QStringLiteral("Café ")), -1);
    EXPECT_EQ(FindPluByDescription(document, QString()), -1);
}

TEST(RowEditing, CommitBindsCreatesRenamesOrWritesTheTitle)
{
    MenuDocument document;
    addPlu(document, QStringLiteral("5"), QStringLiteral("First"), QStringLiteral("1.00"));
    addPlu(document, QStringLiteral("9"), QStringLiteral("Soup"), QStringLiteral("3.20"));

    // An existing description binds its product.
    CommittedRow row = commitRow(document, 0, QStringLiteral("Soup"), QString());
    EXPECT_EQ(row.tag, u"1");
    EXPECT_EQ(row.price, u"3.20");
    EXPECT_EQ(document.LinePlu[0], 9);
    EXPECT_EQ(document.PluCount, 2);

    // A new one is created with the next free number; so is the product at position 0, again.
    document.Plus[2].AuxText = QStringLiteral("left over");
    row = commitRow(document, 1, QStringLiteral("Salad"), QStringLiteral(" "));
    EXPECT_EQ(row.tag, u"2");
    EXPECT_EQ(document.Plus[2],
        (PluRecord { QStringLiteral("10"), {}, QStringLiteral("10"), {}, QStringLiteral("Salad") }));
    EXPECT_EQ(document.LinePlu[1], 10);
    row = commitRow(document, 2, QStringLiteral("First"), QString());
    EXPECT_EQ(row.tag, u"3");
    EXPECT_EQ(document.Plus[3].Code, u"11");
    EXPECT_EQ(document.PluCount, 4);

    // Text over a product renames it; the row keeps its tag and price box.
    row = commitRow(document, 1, QStringLiteral("Green salad"), QStringLiteral("2"));
    EXPECT_EQ(row.tag, u"2");
    EXPECT_FALSE(row.priceChanged);
    EXPECT_EQ(document.Plus[2].Description, u"Green salad");

    // On a title the text is the line's own; the catalogue is not touched.
    document.LineLayouts[30].kind = TitleLine;
    row = commitRow(document, 30, QStringLiteral("Soup"), QString());
    EXPECT_EQ(document.LineLayouts[30].text, u"Soup");
    EXPECT_EQ(document.LinePlu[30], 0);
    EXPECT_EQ(document.PluCount, 4);
    EXPECT_TRUE(isBlankTag(row.tag));
}
