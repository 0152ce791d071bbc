// The whole menu of the largest document sent into the simulator library: every product on a line,
// 101 lists of 101 options, 101 products with 11 lists each, every language row filled.
#include "WorstCaseReporter.h"
#include "document/ComponentFiles.h"
#include "document/MenuDocument.h"
#include "link/DravlinkLibrary.h"
#include "link/MenuTransmission.h"
#include "support/SampleDocuments.h"
#include "support/SimulatedLink.h"

#include <QFile>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr double BudgetMs = 100;

struct Fixture
{
    SimulatedLink simulator;
    std::unique_ptr<MenuDocument> document = SampleDocuments::largestMenu();
    DravlinkLibrary link;

    Fixture()
    {
        document->FilePrefix = simulator.filePath(QStringLiteral("largest"));
        ComponentFiles::save(*document);
    }
};

std::unique_ptr<Fixture> theFixture;

// The session made from the document, without the library.
void BuildTransmission(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(MenuTransmission(*theFixture->document, {}));
    }
}

// Made and played into the simulator, which records every call in its transcript. Each run records
// into a fresh transcript, so the files do not grow from run to run.
void SendIntoSimulator(benchmark::State& state)
{
    int run = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QString transcript
            = theFixture->simulator.filePath(QStringLiteral("transcript-%1").arg(run++ % 2));
        QFile::remove(transcript);
        qputenv("DRAVLINK_SIM_TRANSCRIPT", transcript.toLocal8Bit());
        state.ResumeTiming();
        const MenuTransmission transmission(*theFixture->document, {});
        benchmark::DoNotOptimize(transmission.send(theFixture->link, 1));
    }
}

BENCHMARK(BuildTransmission)->Unit(benchmark::kMillisecond);
BENCHMARK(SendIntoSimulator)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return runWidgetBenchmarks(
        argc, argv, theFixture, "the whole transmission of the largest menu into the simulator", BudgetMs);
}
