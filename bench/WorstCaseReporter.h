#pragma once

#include <QApplication>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

// Prints the results as usual, then whether the slowest of them stayed within an absolute budget.
class WorstCaseReporter : public benchmark::ConsoleReporter
{
public:
    WorstCaseReporter(std::string what, double budgetMs)
        : m_what(std::move(what))
        , m_budgetMs(budgetMs)
    { }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            m_worstMs = std::max(m_worstMs, run.GetAdjustedRealTime());
        }
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        std::printf("\nBudget: %s, slowest %.2f ms (budget under %.0f ms): %s\n", m_what.c_str(), m_worstMs,
            m_budgetMs, m_worstMs < m_budgetMs ? "met" : "MISSED");
    }

private:
    std::string m_what;
    double m_budgetMs;
    double m_worstMs = 0;
};

// Runs the registered benchmarks in an offscreen application (the views need one, not a screen),
// with the fixture made once the application exists and gone before it goes, and reports the
// slowest run against the budget.
template<typename Fixture>
int runWidgetBenchmarks(
    int argc, char** argv, std::unique_ptr<Fixture>& fixture, std::string what, double budgetMs)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    fixture = std::make_unique<Fixture>();
    benchmark::Initialize(&argc, argv);
    WorstCaseReporter reporter(std::move(what), budgetMs);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    fixture.reset();
    return 0;
}
