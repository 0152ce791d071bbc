#include "document/ComponentFiles.h"
#include "document/MenuDocument.h"
#include "support/CliRun.h"
#include "support/PdfPages.h"
#include "support/QtPrinters.h"
#include "support/SampleDocuments.h"
#include "support/TestWorkingRoot.h"

#include <QColor>
#include <QImage>

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

class PrintCliTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto document = SampleDocuments::printedMenu();
        document->FilePrefix = prefix;
        ASSERT_TRUE(ComponentFiles::save(*document).isEmpty());
    }

    CliRun print(const QStringList& options) const
    {
        return runCli(
            QStringList { QStringLiteral("print"), prefix, QStringLiteral("--pdf"), pdf } + options);
    }

    // The lines of a printed page that hold a text, in the order they stand.
    static QStringList printedLines(const QString& pageText)
    {
        QStringList lines;
        for (const QString& line : pageText.split(u'\n')) {
            if (!line.trimmed().isEmpty()) {
                lines.append(line.simplified());
            }
        }
        return lines;
    }

    // The middle of a row of the side's column, which ends 165 mm down, each row 6.88 mm high.
    static double rowMiddle(int row) { return 165 - (24 - row - 0.5) * 6.88; }

    static constexpr int Resolution = 30;

    TestWorkingRoot root;
    const QString prefix = root.path() + QStringLiteral("/menu");
    const QString pdf = root.path() + QStringLiteral("/menu.pdf");
};

} // namespace

TEST_F(PrintCliTest, PrintsTheRowsInTheChosenLanguageWithTheirPrices)
{
    const CliRun run = print({ QStringLiteral("--all"), QStringLiteral("--language"), QStringLiteral("2") });
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.err, QString()); // no sheet prompt for all pages
    ASSERT_EQ(PdfPages::pageCount(pdf), 26); // pages 1 to 13, a sheet for each side

    // A product without a text in the language prints its own description.
    const QStringList front = { QStringLiteral("Starters"), QStringLiteral("Soup of the day 3.50 €"),
        QStringLiteral("Pão caseiro 1.20 €"), QStringLiteral("VAT included"), QStringLiteral("Cod 12.75 €") };
    EXPECT_EQ(printedLines(PdfPages::text(pdf, 1)), front);
    EXPECT_EQ(printedLines(PdfPages::text(pdf, 2)),
        QStringList({ QStringLiteral("Desserts"), QStringLiteral("Vinhos") }));
    EXPECT_EQ(printedLines(PdfPages::text(pdf, 25)), QStringList { QStringLiteral("Cheese 6.00 €") });
    for (int page = 1; page <= 26; ++page) {
        EXPECT_FALSE(PdfPages::text(pdf, page).contains(QStringLiteral("Secret dish"))) << page;
    }
}

TEST_F(PrintCliTest, PageFourteenPrintsOnlyAsTheCurrentPage)
{
    const CliRun run = print({ QStringLiteral("--current"), QStringLiteral("14") });
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    ASSERT_EQ(PdfPages::pageCount(pdf), 2);
    EXPECT_EQ(printedLines(PdfPages::text(pdf, 1)), QStringList { QStringLiteral("Prato secreto 9.00 €") });
}

TEST_F(PrintCliTest, TheBackShowsTheGroupColourOverItsRowsOnTheSideColour)
{
    const CliRun run = print({ QStringLiteral("--back") });
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.err, QStringLiteral("quorvel-cli: Please insert pages type 'PAGE B' on the printer\n"));
    ASSERT_EQ(PdfPages::pageCount(pdf), 13);

    // A point near the column's right end.
    const QImage page = PdfPages::image(pdf, 1, Resolution);
    ASSERT_FALSE(page.isNull());
    const QColor blue(0, 0, 255);
    const QColor yellow(255, 255, 0);
    for (int row : { 8, 9, 10, 11 }) {
        EXPECT_EQ(PdfPages::colorAt(page, Resolution, 160, rowMiddle(row)), blue) << row;
    }
    for (int row : { 2, 7, 12, 20 }) {
        EXPECT_EQ(PdfPages::colorAt(page, Resolution, 160, rowMiddle(row)), yellow) << row;
    }
    EXPECT_EQ(PdfPages::colorAt(page, Resolution, 160, 200), QColor(Qt::white)); // below the column
}

TEST_F(PrintCliTest, PicturesStoredByTheirNameAreFoundBesideTheFilesAndAMissingOneIsNamedOnce)
{
    auto document = SampleDocuments::printedMenu();
    document->FilePrefix = prefix;
    document->LineLayouts[lineSlot(1, 8)].picturePath = QStringLiteral("group.png");
    document->PrintSettings.PageValueB[1] = QStringLiteral("side.png");
    document->PrintSettings.PageValueB[2] = QStringLiteral("gone.png");
    document->PrintSettings.PageValueB[3] = QStringLiteral("gone.png");
    ASSERT_TRUE(ComponentFiles::save(*document).isEmpty());
    const auto savePicture = [&](const char* name, const QColor& color) {
        QImage picture(8, 8, QImage::Format_RGB32);
        picture.fill(color);
        ASSERT_TRUE(picture.save(root.path() + u'/' + QLatin1String(name)));
    };
    savePicture("group.png", Qt::green);
    savePicture("side.png", Qt::magenta);

    // The command runs in another folder than the project's.
    const CliRun run = print({ QStringLiteral("--back") });
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.err,
        QStringLiteral(
            "quorvel-cli: Please insert pages type 'PAGE B' on the printer\n"
            "quorvel-cli: print: cannot find the picture 'gone.png'; the sheets are printed without it\n"));
    // Pictures go into the PDF file compressed, a shade off here and there.
    const auto shows = [page = PdfPages::image(pdf, 1, Resolution)](double x, double y, QColor expected) {
        const QColor found = PdfPages::colorAt(page, Resolution, x, y);
        return std::abs(found.red() - expected.red()) + std::abs(found.green() - expected.green())
            + std::abs(found.blue() - expected.blue())
            < 12;
    };
    EXPECT_TRUE(shows(160, rowMiddle(2), Qt::magenta)); // the side's picture
    EXPECT_TRUE(shows(160, rowMiddle(8), Qt::blue)); // the group's colour
    EXPECT_TRUE(shows(document->PrintSettings.Value3, rowMiddle(8), Qt::green)); // the group's picture
}

TEST_F(PrintCliTest, BadChoicesEndWithStatusOne)
{
    const QList<QStringList> badCalls = {
        { QStringLiteral("--current"), QStringLiteral("15") },
        { QStringLiteral("--current"), QStringLiteral("0") },
        { QStringLiteral("--language"), QStringLiteral("6") },
        { QStringLiteral("--all"), QStringLiteral("--front") },
    };
    for (const QStringList& options : badCalls) {
        const CliRun run = print(options);
        EXPECT_EQ(run.exitCode, 1) << options.join(u' ').toStdString();
        EXPECT_EQ(run.err.count(u'\n'), 1) << run.err.toStdString();
    }
    const CliRun withoutFile = runCli({ QStringLiteral("print"), prefix });
    EXPECT_EQ(withoutFile.exitCode, 1);
    EXPECT_TRUE(withoutFile.err.contains(QStringLiteral("--pdf"))) << withoutFile.err.toStdString();
    EXPECT_FALSE(QFile::exists(pdf));
}
