// Page and row operations on the largest menu: every line bound, every language row filled, 10,000
// products for the redraw to look the rows up in.
#include "WorstCaseReporter.h"
#include "designer/PageOperations.h"
#include "designer/PageView.h"
#include "designer/RowDialog.h"
#include "document/MenuDocument.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr double BudgetMs = 5;

struct Fixture
{
    QTemporaryDir folder;
    std::unique_ptr<MenuDocument> pristine = SampleDocuments::largestMenu();
    std::unique_ptr<MenuDocument> document = std::make_unique<MenuDocument>(*pristine);
    ScriptedPrompts prompts;
    PageView view { *document, prompts };

    Fixture()
    {
        pristine->ProjectFolder = folder.path() + u'/';
        *document = *pristine;
        view.show();
    }
};

// Restoring the menu before each run takes far longer than the run itself; left to choose, the
// library would run the fast operations tens of thousands of times and take minutes.
constexpr benchmark::IterationCount RestoredRuns = 300;

// Made once the application exists, and gone before it goes.
std::unique_ptr<Fixture> theFixture;

// Every run starts from the full menu: an operation repeated on its own result would soon move empty
// lines only.
template<typename Operation>
void measure(benchmark::State& state, Operation&& operation)
{
    Fixture& fixture = *theFixture;
    for (auto _ : state) {
        state.PauseTiming();
        *fixture.document = *fixture.pristine;
        state.ResumeTiming();
        operation(fixture);
    }
}

// Page 1 and row 0 move the most lines.
void InsertPage(benchmark::State& state)
{
    measure(state, [](Fixture& f) { PageOperations::InsertPage(*f.document, 1); });
}

void DeletePage(benchmark::State& state)
{
    measure(state, [](Fixture& f) { PageOperations::DeletePage(*f.document, 1); });
}

void MoveRowUp(benchmark::State& state)
{
    measure(state, [](Fixture& f) { PageOperations::MoveRowUp(*f.document, 7, 0); });
}

void MoveRowDown(benchmark::State& state)
{
    measure(state, [](Fixture& f) { PageOperations::MoveRowDown(*f.document, 7, 0); });
}

// The same through the buttons, each with the redraw that ends it.
void InsertPageClick(benchmark::State& state)
{
    theFixture->view.setCurrentPage(1);
    measure(state, [](Fixture& f) { f.view.InsertPage_Click(); });
}

void DeletePageClick(benchmark::State& state)
{
    theFixture->view.setCurrentPage(1);
    measure(state, [](Fixture& f) { f.view.DeletePage_Click(); });
}

// The dialog acts on the selected row, which is row 0 until a Remove button is clicked.
void MoveUpClick(benchmark::State& state)
{
    Fixture& fixture = *theFixture;
    fixture.view.setCurrentPage(7);
    RowDialog dialog(*fixture.document, fixture.view, fixture.prompts);
    measure(state, [&](Fixture&) { dialog.Command2_Click(); });
}

void MoveDownClick(benchmark::State& state)
{
    Fixture& fixture = *theFixture;
    fixture.view.setCurrentPage(7);
    RowDialog dialog(*fixture.document, fixture.view, fixture.prompts);
    measure(state, [&](Fixture&) { dialog.Command3_Click(); });
}

BENCHMARK(InsertPage)->Unit(benchmark::kMillisecond)->Iterations(RestoredRuns);
BENCHMARK(DeletePage)->Unit(benchmark::kMillisecond)->Iterations(RestoredRuns);
BENCHMARK(MoveRowUp)->Unit(benchmark::kMillisecond)->Iterations(RestoredRuns);
BENCHMARK(MoveRowDown)->Unit(benchmark::kMillisecond)->Iterations(RestoredRuns);
BENCHMARK(InsertPageClick)->Unit(benchmark::kMillisecond)->Iterations(RestoredRuns);
BENCHMARK(DeletePageClick)->Unit(benchmark::kMillisecond)->Iterations(RestoredRuns);
BENCHMARK(MoveUpClick)->Unit(benchmark::kMillisecond)->Iterations(RestoredRuns);
BENCHMARK(MoveDownClick)->Unit(benchmark::kMillisecond)->Iterations(RestoredRuns);

} // namespace

int main(int argc, char** argv)
{
    return runWidgetBenchmarks(
        argc, argv, theFixture, "page and row operations of the largest menu, redraw included", BudgetMs);
}
