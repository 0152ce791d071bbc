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

// A working session: pages inserted and deleted, rows retyped, modifier minimums changed, one New.
void reportHundredSteps()
{
    Fixture fixture;
    MenuDocument& document = *fixture.document;
    for (int step = 0; step < Steps; ++step) {
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
    const double megabytes = static_cast<double>(fixture.history.memoryUse()) / (1 << 20);
    std::printf("\nBudget: %d steps at the largest menu kept %d, holding %.1f MB (budget 64 MB): %s\n", Steps,
        fixture.history.stepCount(), megabytes, fixture.history.stepCount() == Steps ? "met" : "MISSED");
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
