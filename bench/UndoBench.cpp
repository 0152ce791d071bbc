// The undo history at the largest menu: what one step costs the handler that makes it, what undoing
// and redoing cost, and how much memory a hundred steps take.
#include "WorstCaseReporter.h"
#include "designer/PageOperations.h"
#include "document/Project.h"
#include "document/UndoHistory.h"
#include "support/SampleDocuments.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

constexpr double StepBudgetMs = 5;
constexpr int Steps = 100;

struct Fixture
{
    QTemporaryDir folder;
    std::unique_ptr<MenuDocument> document = SampleDocuments::largestMenu();
    UndoHistory history { *document, folder.path() };
};

// The step every keystroke in a product row makes.
void RecordTyping(benchmark::State& state)
{
    Fixture fixture;
    int typed = 0;
    for (auto _ : state) {
        fixture.document->Plus[5000].Description = QString::number(++typed);
        fixture.history.record(QStringLiteral("Typing"), &fixture);
    }
}

void RecordInsertPage(benchmark::State& state)
{
    Fixture fixture;
    for (auto _ : state) {
        state.PauseTiming();
        PageOperations::InsertPage(*fixture.document, 1);
        state.ResumeTiming();
        fixture.history.record(QStringLiteral("Insert Page"));
    }
}

// New empties every table: the largest step there is.
void RecordNew(benchmark::State& state)
{
    Fixture fixture;
    const MenuDocument full = *fixture.document;
    for (auto _ : state) {
        state.PauseTiming();
        *fixture.document = full;
        fixture.history.reset();
        Project::clearTables(*fixture.document);
        state.ResumeTiming();
        fixture.history.record(QStringLiteral("New"));
    }
}

void UndoAndRedoNew(benchmark::State& state)
{
    Fixture fixture;
    Project::clearTables(*fixture.document);
    fixture.history.record(QStringLiteral("New"));
    for (auto _ : state) {
        fixture.history.undo();
        fixture.history.redo();
    }
}

BENCHMARK(RecordTyping)->Unit(benchmark::kMillisecond);
BENCHMARK(RecordInsertPage)->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(RecordNew)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(UndoAndRedoNew)->Unit(benchmark::kMillisecond)->Iterations(50);

// What the heap holds now; 0 where the C library does not say.
double heapMegabytes()
{
#ifdef __GLIBC__
    return static_cast<double>(mallinfo2().uordblks) / (1 << 20);
#else
    return 0;
#endif
}

// A working session: pages inserted and deleted, rows retyped, modifier minimums changed, one New.
void reportHundredSteps()
{
    Fixture fixture;
    MenuDocument& document = *fixture.document;
    const double heapBefore = heapMegabytes();
    // A change that changes nothing (a page deleted after New) makes no step: go on until there are 100.
    for (int step = 0; fixture.history.stepCount() < Steps && step < 4 * Steps; ++step) {
        switch (step % 4) {
        case 0:
            PageOperations::InsertPage(document, 1 + step % 14);
            break;
        case 1:
            PageOperations::DeletePage(document, 1 + step % 14);
            break;
        case 2:
            document.Plus[step * 97].Description = QStringLiteral("Retyped %1").arg(step);
            break;
        default:
            document.Assignments[step % 100].Minimum[0] = step % 9;
        }
        if (step == Steps / 2) {
            Project::clearTables(document);
        }
        fixture.history.record(QStringLiteral("Step %1").arg(step));
    }
    const double counted = static_cast<double>(fixture.history.memoryUse()) / (1 << 20);
    const double heapGrowth = heapMegabytes() - heapBefore;
    const bool met = fixture.history.stepCount() == Steps && heapGrowth < 64;
    std::printf("\nBudget: %d steps of the largest menu, one of them New: %d kept, counted %.1f MB, the heap "
                "grew by %.1f MB (budget 64 MB): %s\n",
        Steps, fixture.history.stepCount(), counted, heapGrowth, met ? "met" : "MISSED");
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    WorstCaseReporter reporter("one undo step of the largest menu", StepBudgetMs);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    reportHundredSteps();
    return 0;
}
