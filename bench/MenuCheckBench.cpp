// The menu check of the largest document: every product on a line, every language row filled.
#include "WorstCaseReporter.h"
#include "document/MenuDocument.h"
#include "link/MenuCheck.h"
#include "support/SampleDocuments.h"

#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr double BudgetMs = 20;

const MenuDocument& largestMenu()
{
    static const std::unique_ptr<MenuDocument> document = SampleDocuments::largestMenu();
    return *document;
}

void CheckLargestMenu(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(MenuCheck::check(largestMenu()));
    }
}

BENCHMARK(CheckLargestMenu)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    largestMenu();
    benchmark::Initialize(&argc, argv);
    WorstCaseReporter reporter("the menu check of the largest menu", BudgetMs);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
