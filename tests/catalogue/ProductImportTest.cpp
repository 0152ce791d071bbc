#include "catalogue/ProductImport.h"

#include "catalogue/ImportError.h"
#include "document/MenuDocument.h"
#include "document/Project.h"
#include "support/DocumentDiff.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"
#include "support/TestWorkingRoot.h"
#include "support/XlsWorkbooks.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

PluRecord plu(const QString& code, const QString& auxText, const QString& altCode, const QString& price,
    const QString& description)
{
    return PluRecord { code, auxText, altCode, price, description };
}

class ProductImportTest : public ::testing::Test
{
protected:
    // What the document must hold after an import of these records: the menu cleared as New clears
    // it, with the records from index 0 on.
    std::unique_ptr<MenuDocument> clearedWith(const QList<PluRecord>& records) const
    {
        auto expected = std::make_unique<MenuDocument>(*before);
        Project::clearTables(*expected);
        for (int i = 0; i < records.size(); ++i) {
            expected->Plus[i] = records[i];
        }
        expected->PluCount = static_cast<std::int32_t>(records.size());
        return expected;
    }

    QString file(const QString& name) const { return root.path() + u'/' + name; }
    QString exchangeFile() const { return file(u"pludata.txt"_s); }

    // Runs an import that must fail, and checks that it named the file and the problem and left the
    // document and the exchange file as they were.
    template<typename Import>
    void expectRefused(Import&& run, const QString& path, const QString& problem)
    {
        try {
            run();
            ADD_FAILURE() << "no error for " << problem.toStdString();
        } catch (const ImportError& error) {
            EXPECT_TRUE(error.message().startsWith(u"Cannot import \""_s + path + u"\": "))
                << error.message().toStdString();
            EXPECT_TRUE(error.message().contains(problem)) << error.message().toStdString();
        }
        EXPECT_EQ(clears, 0);
        EXPECT_EQ(firstDifference(*before, *document), QString());
        EXPECT_EQ(readBytes(exchangeFile()), QByteArray("earlier\r\n"));
    }

    TestWorkingRoot root;
    const std::unique_ptr<MenuDocument> before = SampleDocuments::richMenu();
    const std::unique_ptr<MenuDocument> document = std::make_unique<MenuDocument>(*before);
    int clears = 0;
    ProductImport import { *document, [this] {
                              ++clears;
                              Project::clear(*document);
                          } };
};

} // namespace

TEST_F(ProductImportTest, CsvTakesTheQuotedTextsOfEveryLineAndEmptiesTheRestOfTheMenu)
{
    writeBytes(file(u"menu.csv"_s),
        "\"PLUCODE\",\"DESCRIPTION\",\"PRICE\"\r\n"
        "\"1001\",\"  Caf\xe9, large  \",\" 2.50 \"\r\n"
        "\n"
        "\" 7\";\"Tea\";\"1,20\"\r"
        "\"8\" \"Water, still\"\n"
        "no quotes at all");

    ASSERT_TRUE(import.fromCsv(file(u"menu.csv"_s)));

    EXPECT_EQ(clears, 1);
    // The fields the CSV does not hold keep what New left in them.
    auto expected = clearedWith({});
    const QList<QStringList> read = {
        { u"PLUCODE"_s, u"DESCRIPTION"_s, u"PRICE"_s },
        { u"1001"_s, u"Café, large"_s, u"2.50"_s },
        { QString(), QString(), QString() },
        { u" 7"_s, u"Tea"_s, u"1.20"_s }, // a decimal comma would split the catalogue line
        { u"8"_s, u"Water, still"_s, QString() },
        { QString(), QString(), QString() },
    };
    for (int i = 0; i < read.size(); ++i) {
        expected->Plus[i].Code = read[i][0];
        expected->Plus[i].Description = read[i][1];
        expected->Plus[i].Price = read[i][2];
    }
    expected->PluCount = static_cast<std::int32_t>(read.size());
    EXPECT_EQ(firstDifference(*expected, *document), QString());
}

TEST_F(ProductImportTest, LastSentProductsAreEveryLineOfTheExchangeFileEmptyOnesIncluded)
{
    writeBytes(exchangeFile(),
        "0, 1001,0, 1001,2.5 ,  Soup, of the day \r\n"
        "\r\n"
        "st1,5,aux,6, 3,Bread\n"
        "\r\n");

    ASSERT_TRUE(import.fromLastSent());

    EXPECT_EQ(clears, 1);
    EXPECT_EQ(firstDifference(*clearedWith({
                                  plu(u" 1001"_s, u"0"_s, u" 1001"_s, u"2.5"_s, u"Soup, of the day"_s),
                                  PluRecord {},
                                  plu(u"5"_s, u"aux"_s, u"6"_s, u"3"_s, u"Bread"_s),
                                  PluRecord {},
                              }),
                  *document),
        QString());
}

TEST_F(ProductImportTest, TextSourcesThatCannotBeOpenedChangeNothing)
{
    EXPECT_FALSE(import.fromLastSent());
    EXPECT_FALSE(import.fromCsv(file(u"missing.csv"_s)));
    EXPECT_EQ(clears, 0);
    EXPECT_EQ(firstDifference(*before, *document), QString());
}

TEST_F(ProductImportTest, SpreadsheetBecomesTheExchangeFileAndTheCatalogue)
{
    // "Sheet1" is taken even when it is not the first sheet; empty rows are passed over.
    writeXlsWorkbook(file(u"DATA.XLS"_s),
        { xlsSheet(u"Notes"_s, { u"nothing"_s }, {}),
            xlsSheet(u"Sheet1"_s, { u"PRICE"_s, u"PLUCODE"_s, u"DESCRIPTION"_s },
                { { 2.5, 1001, u"  Caf\u00e9, large "_s }, {}, { u"3.10"_s, u"1002"_s, u"Tea"_s },
                    { QJsonValue(), 1003, u"Water"_s } }) });

    ASSERT_TRUE(import.fromPluSheet(file(u"DATA.XLS"_s)));

    EXPECT_EQ(readBytes(exchangeFile()),
        QByteArray("0, 1001,0, 1001,2.5,Caf\xe9, large\r\n"
                   "0, 1002,0, 1002,3.10,Tea\r\n"
                   "0, 1003,0, 1003,,Water\r\n"));
    EXPECT_EQ(firstDifference(*clearedWith({
                                  plu(u" 1001"_s, u"0"_s, u" 1001"_s, u"2.5"_s, u"Café, large"_s),
                                  plu(u" 1002"_s, u"0"_s, u" 1002"_s, u"3.10"_s, u"Tea"_s),
                                  plu(u" 1003"_s, u"0"_s, u" 1003"_s, {}, u"Water"_s),
                              }),
                  *document),
        QString());

    // Without a "Sheet1" the first sheet is read.
    writeXlsWorkbook(file(u"other.xls"_s),
        { xlsSheet(u"Prices"_s, { u"PLUCODE"_s, u"DESCRIPTION"_s, u"PRICE"_s }, { { 9, u"Juice"_s, 1 } }),
            xlsSheet(
                u"Second"_s, { u"PLUCODE"_s, u"DESCRIPTION"_s, u"PRICE"_s }, { { 8, u"Wrong"_s, 1 } }) });
    ASSERT_TRUE(import.fromPluSheet(file(u"other.xls"_s)));
    EXPECT_EQ(document->PluCount, 1);
    EXPECT_EQ(document->Plus[0], plu(u" 9"_s, u"0"_s, u" 9"_s, u"1"_s, u"Juice"_s));
}

TEST_F(ProductImportTest, BackOfficeFamiliesAndProductsWithADecimalCommaPrice)
{
    writeXlsWorkbook(file(u"FAMI.XLS"_s),
        { xlsSheet(u"Sheet1"_s, { u"NUMERO,N,3,0"_s, u"NOME,C,25"_s, u"COMANDO,N,4,0"_s },
            { { 12, u"Drinks"_s, 0 }, { 13, u"Desserts"_s, 3 } }) });
    // The product sheet's name may differ in case from the one the back office writes.
    writeXlsWorkbook(file(u"plu.xls"_s),
        { xlsSheet(u"Sheet1"_s, { u"NUMERO,N,6,0"_s, u"PLU,C,20"_s, u"VENDA,N,12,2"_s },
            { { 100001, u"Cola"_s, u"2,50"_s }, { 100002, u"Cake"_s, 3.75 } }) });

    ASSERT_TRUE(import.fromBackOffice(file(u"FAMI.XLS"_s)));

    EXPECT_EQ(readBytes(exchangeFile()),
        QByteArray("12,0, 0, y, x, Drinks\r\n"
                   "13,0, 3, y, x, Desserts\r\n"
                   "0, 100001,0, 100001, 2.50, Cola\r\n"
                   "0, 100002,0, 100002, 3.75, Cake\r\n"));
    EXPECT_EQ(firstDifference(*clearedWith({
                                  plu(u"0"_s, u" 0"_s, u" y"_s, u"x"_s, u"Drinks"_s),
                                  plu(u"0"_s, u" 3"_s, u" y"_s, u"x"_s, u"Desserts"_s),
                                  plu(u" 100001"_s, u"0"_s, u" 100001"_s, u"2.50"_s, u"Cola"_s),
                                  plu(u" 100002"_s, u"0"_s, u" 100002"_s, u"3.75"_s, u"Cake"_s),
                              }),
                  *document),
        QString());
}

TEST_F(ProductImportTest, SpreadsheetProblemsNameTheFileAndLeaveEverythingAsItWas)
{
    writeBytes(exchangeFile(), "earlier\r\n");
    const QString junk = file(u"junk.xls"_s);
    writeBytes(junk, "PLUCODE,DESCRIPTION,PRICE\r\n1,Soup,2\r\n");
    expectRefused(
        [&] { import.fromPluSheet(junk); }, junk, u"not a readable Excel 97-2003 (.xls) workbook"_s);
    const QString missing = file(u"missing.xls"_s);
    expectRefused([&] { import.fromPluSheet(missing); }, missing, u"does not exist"_s);

    const QString noPrice = file(u"noprice.xls"_s);
    writeXlsWorkbook(noPrice,
        { xlsSheet(u"Sheet1"_s, { u"PLUCODE"_s, u"DESCRIPTION"_s, u"Price"_s }, { { 1, u"Soup"_s, 2 } }) });
    expectRefused([&] { import.fromPluSheet(noPrice); }, noPrice,
        u"the worksheet \"Sheet1\" has no column \"PRICE\""_s);

    const QString badPrice = file(u"badprice.xls"_s);
    writeXlsWorkbook(badPrice,
        { xlsSheet(u"Sheet1"_s, { u"PLUCODE"_s, u"DESCRIPTION"_s, u"PRICE"_s },
            { { 1, u"Soup"_s, 2 }, { 2, u"Bread"_s, u"2,5O"_s } }) });
    expectRefused(
        [&] { import.fromPluSheet(badPrice); }, badPrice, u"the price \"2.5O\" in row 3 is not a number"_s);

    QList<QJsonArray> tooMany;
    for (int i = 1; i <= Limits::PluCapacity + 1; ++i) {
        tooMany.append({ i, u"Item"_s, 1 });
    }
    const QString large = file(u"large.xls"_s);
    writeXlsWorkbook(
        large, { xlsSheet(u"Sheet1"_s, { u"PLUCODE"_s, u"DESCRIPTION"_s, u"PRICE"_s }, tooMany) });
    expectRefused([&] { import.fromPluSheet(large); }, large,
        u"it holds 10001 products and the catalogue takes at most 10000"_s);

    // The back office pair: the family sheet alone, then a product sheet with a price that no decimal
    // comma can mend.
    const QString family = file(u"FAMI.XLS"_s);
    const QString products = file(u"PLU.XLS"_s);
    writeXlsWorkbook(family,
        { xlsSheet(u"Sheet1"_s, { u"NUMERO,N,3,0"_s, u"NOME,C,25"_s, u"COMANDO,N,4,0"_s },
            { { 1, u"Drinks"_s, 0 } }) });
    expectRefused([&] { import.fromBackOffice(family); }, products, u"does not exist"_s);
    writeXlsWorkbook(products,
        { xlsSheet(u"Sheet1"_s, { u"NUMERO,N,6,0"_s, u"PLU,C,20"_s, u"VENDA,N,12,2"_s },
            { { 5, u"Cola"_s, u"1.234,50"_s } }) });
    expectRefused([&] { import.fromBackOffice(family); }, products,
        u"the price \"1.234.50\" in row 2 is not a number"_s);
    writeXlsWorkbook(
        family, { xlsSheet(u"Sheet1"_s, { u"NUMERO"_s, u"NOME,C,25"_s, u"COMANDO,N,4,0"_s }, {}) });
    expectRefused([&] { import.fromBackOffice(family); }, family, u"has no column \"NUMERO,N,3,0\""_s);
}
