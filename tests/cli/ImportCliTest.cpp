#include "support/CliRun.h"
#include "support/QtPrinters.h"
#include "support/TestWorkingRoot.h"
#include "support/XlsWorkbooks.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ImportCliTest : public ::testing::Test
{
protected:
    QString file(const QString& name) const { return root.path() + u'/' + name; }
    QByteArray written(const QString& suffix) const { return readBytes(out + suffix); }

    TestWorkingRoot root;
    const QString out = file(u"out"_s);
};

} // namespace

TEST_F(ImportCliTest, EachKindFillsAnEmptyMenuAndWritesEveryComponentFile)
{
    writeBytes(file(u"menu.csv"_s), "\"1\",\"Soup, hot\",\"2.5\"\n\"2\",\"Bread\",\"1\"\n");
    CliRun run = runCli({ u"import"_s, u"csv"_s, file(u"menu.csv"_s), out });
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.err, QString());
    EXPECT_EQ(written(u"_pludata.txt"_s), QByteArray("st1,1,,,2.5,Soup, hot\r\nst1,2,,,1,Bread\r\n"));
    EXPECT_EQ(written(u"_PagesVersion.txt"_s), QByteArray("1\r\n"));
    EXPECT_EQ(written(u"_modifiers.txt"_s), QByteArray());
    // Five empty language names lead the language file, as after New.
    EXPECT_TRUE(written(u"_Languages.txt"_s).startsWith("\r\n\r\n\r\n\r\n\r\n"));
    EXPECT_TRUE(QFileInfo::exists(out + u"_Page_Price_14.txt"_s));

    writeXlsWorkbook(file(u"FAMI.XLS"_s),
        { xlsSheet(u"Sheet1"_s, { u"COMANDO,N,4,0"_s, u"NUMERO,N,3,0"_s, u"NOME,C,25"_s },
            { { 0, 1, u"Drinks"_s } }) });
    writeXlsWorkbook(file(u"PLU.XLS"_s),
        { xlsSheet(u"Sheet1"_s, { u"NUMERO,N,6,0"_s, u"PLU,C,20"_s, u"VENDA,N,12,2"_s },
            { { 42, u"Cola"_s, u"2,50"_s } }) });
    run = runCli({ u"import"_s, u"fenwar"_s, file(u"FAMI.XLS"_s), out });
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QByteArray fenwar("st1,0, 0, y,x,Drinks\r\nst1, 42,0, 42,2.50,Cola\r\n");
    EXPECT_EQ(written(u"_pludata.txt"_s), fenwar);

    // The spreadsheet left its lines in the exchange file, which "last" reads whatever FILE says.
    run = runCli({ u"import"_s, u"last"_s, u"ignored"_s, file(u"again"_s) });
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(readBytes(file(u"again_pludata.txt"_s)), fenwar);

    writeXlsWorkbook(file(u"DATA.XLS"_s),
        { xlsSheet(
            u"Sheet1"_s, { u"PLUCODE"_s, u"DESCRIPTION"_s, u"PRICE"_s }, { { 7, u" Tea "_s, 1.5 } }) });
    run = runCli({ u"import"_s, u"xls"_s, file(u"DATA.XLS"_s), out });
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(written(u"_pludata.txt"_s), QByteArray("st1, 7,0, 7,1.5,Tea\r\n"));
}

TEST_F(ImportCliTest, FailuresEndWithOneLineOnStandardErrorAndWriteNothing)
{
    writeXlsWorkbook(file(u"DATA.XLS"_s),
        { xlsSheet(
            u"Sheet1"_s, { u"PLUCODE"_s, u"DESCRIPTION"_s, u"PRICE"_s }, { { 7, u"Tea"_s, u"cheap"_s } }) });
    const QList<std::pair<QStringList, QString>> failures = {
        { { u"import"_s, u"csv"_s, file(u"missing.csv"_s), out }, u"cannot open"_s },
        { { u"import"_s, u"last"_s, u"-"_s, out }, u"cannot open '%1'"_s.arg(file(u"pludata.txt"_s)) },
        { { u"import"_s, u"xls"_s, file(u"DATA.XLS"_s), out },
            u"the price \"cheap\" in row 2 is not a number"_s },
        { { u"import"_s, u"fenwar"_s, file(u"FAMI.XLS"_s), out }, u"FAMI.XLS\": the file does not exist"_s },
        { { u"import"_s, u"ods"_s, file(u"DATA.XLS"_s), out }, u"unknown kind 'ods'"_s },
        { { u"import"_s, u"csv"_s, out }, u"expected KIND FILE OUT_PREFIX"_s },
    };
    for (const auto& [arguments, problem] : failures) {
        const CliRun run = runCli(arguments);
        EXPECT_EQ(run.exitCode, 1) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(run.err.startsWith(u"quorvel-cli: ")) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(problem)) << run.err.toStdString();
        EXPECT_EQ(run.err.count(u'\n'), 1) << run.err.toStdString();
    }
    EXPECT_FALSE(QFileInfo::exists(out + u"_pludata.txt"_s));
    EXPECT_FALSE(QFileInfo::exists(file(u"pludata.txt"_s)));
}
