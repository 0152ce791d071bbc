// The Import menu's handlers on 10,000 products, from the menu item to the rebuilt lists: the prompts
// are answered by script, New, the reading and the redraw are all measured.
#include "WorstCaseReporter.h"
#include "app/MainWindow.h"
#include "support/ScriptedPrompts.h"
#include "support/TestWorkingRoot.h"
#include "support/XlsWorkbooks.h"

#include <QAction>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr double BudgetMs = 1000;
// The catalogue's capacity: the CSV's heading line takes one record of it.
constexpr int Rows = 10'000;

struct Fixture
{
    TestWorkingRoot root;
    const QString csv = root.path() + QStringLiteral("/menu.csv");
    const QString xls = root.path() + QStringLiteral("/DATA.XLS");
    ScriptedPrompts prompts;
    MainWindow window { prompts };

    Fixture()
    {
        QByteArray lines("\"PLUCODE\",\"DESCRIPTION\",\"PRICE\"\r\n");
        QList<QJsonArray> rows;
        for (int i = 1; i <= Rows; ++i) {
            const QString description = QStringLiteral("Product number %1, with a long description").arg(i);
            if (i < Rows) {
                lines += QStringLiteral("\"%1\",\"%2\",\"%3.50\"\r\n")
                             .arg(i)
                             .arg(description)
                             .arg(i % 50)
                             .toLatin1();
            }
            rows.append({ i, description, i % 50 + 0.5 });
        }
        writeBytes(csv, lines);
        writeXlsWorkbook(xls,
            { xlsSheet(QStringLiteral("Sheet1"),
                { QStringLiteral("PLUCODE"), QStringLiteral("DESCRIPTION"), QStringLiteral("PRICE") },
                rows) });
        window.show();
    }

    void import(const char* action, const QString& path)
    {
        prompts.answers = QStringList { path };
        window.findChild<QAction*>(QLatin1StringView(action))->trigger();
        if (window.document().PluCount != Rows) {
            throw std::runtime_error("the import did not fill the catalogue");
        }
    }
};

std::unique_ptr<Fixture> theFixture;

void ImportCsvMenu(benchmark::State& state)
{
    for (auto _ : state) {
        theFixture->import("ImportCSV", theFixture->csv);
    }
}

void ImportXlsMenu(benchmark::State& state)
{
    for (auto _ : state) {
        theFixture->import("ImportFromXls", theFixture->xls);
    }
}

BENCHMARK(ImportCsvMenu)->Unit(benchmark::kMillisecond);
BENCHMARK(ImportXlsMenu)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return runWidgetBenchmarks(
        argc, argv, theFixture, "importing 10,000 products from the Import menu, lists included", BudgetMs);
}
