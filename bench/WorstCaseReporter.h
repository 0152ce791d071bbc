#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
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
