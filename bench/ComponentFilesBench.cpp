// Writing and loading the largest menu against the plain file work of the same bytes, in one run.
#include "document/ComponentFiles.h"
#include "document/MenuDocument.h"
#include "support/SampleDocuments.h"

#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QThreadPool>

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <memory>
#include <string>

namespace {

struct Fixture
{
    QTemporaryDir folder;
    std::unique_ptr<MenuDocument> document = SampleDocuments::largestMenu();
    QByteArray allBytes;

    Fixture()
    {
        document->FilePrefix = folder.path() + QStringLiteral("/largest");
        for (const ComponentFiles::File& file : ComponentFiles::render(*document)) {
            allBytes += file.bytes;
        }
        ComponentFiles::save(*document);
    }
};

Fixture& fixture()
{
    static Fixture instance;
    return instance;
}

// How long a save keeps its caller: the files it replaced are let go on a worker thread, which each run
// lets finish first, as the seconds between two saves of a user would.
void SaveAllComponentFiles(benchmark::State& state)
{
    const MenuDocument& document = *fixture().document;
    for (auto _ : state) {
        state.PauseTiming();
        QThreadPool::globalInstance()->waitForDone();
        state.ResumeTiming();
        benchmark::DoNotOptimize(ComponentFiles::save(document));
    }
    state.SetBytesProcessed(state.iterations() * fixture().allBytes.size());
}

// The part of the save that makes the bytes, without writing them.
void RenderAllComponentFiles(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(ComponentFiles::render(*fixture().document));
    }
    state.SetBytesProcessed(state.iterations() * fixture().allBytes.size());
}

// The same bytes in one file, replaced as safely as the component files are.
void WriteSameBytesInOneSafeWrite(benchmark::State& state)
{
    const QString path = fixture().folder.path() + QStringLiteral("/one-file.txt");
    for (auto _ : state) {
        QSaveFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(fixture().allBytes);
        benchmark::DoNotOptimize(file.commit());
    }
    state.SetBytesProcessed(state.iterations() * fixture().allBytes.size());
}

// The same bytes in one plain buffered write, left to the system to put on disk.
void WriteSameBytesInOnePlainWrite(benchmark::State& state)
{
    const QString path = fixture().folder.path() + QStringLiteral("/one-file.txt");
    for (auto _ : state) {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        benchmark::DoNotOptimize(file.write(fixture().allBytes));
    }
    state.SetBytesProcessed(state.iterations() * fixture().allBytes.size());
}

void LoadAllComponentFiles(benchmark::State& state)
{
    MenuDocument document;
    document.FilePrefix = fixture().document->FilePrefix;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ComponentFiles::load(document));
    }
    if (document.PluCount != Limits::PluCapacity
        || document.ModifierListCount != Limits::ModifierListCapacity) {
        state.SkipWithError("the largest menu did not load whole");
    }
    state.SetBytesProcessed(state.iterations() * fixture().allBytes.size());
}

// Reads the same files and cuts them into lines, without making anything of the lines.
void ReadSameBytesAndSplitLines(benchmark::State& state)
{
    const QString prefix = fixture().document->FilePrefix;
    QStringList paths;
    for (const ComponentFiles::File& file : ComponentFiles::render(*fixture().document)) {
        paths.append(prefix + file.suffix);
    }
    for (auto _ : state) {
        qsizetype lineCount = 0;
        for (const QString& path : paths) {
            QFile file(path);
            file.open(QIODevice::ReadOnly);
            const QByteArray bytes = file.readAll();
            const QList<QByteArray> lines = bytes.split('\n');
            lineCount += lines.size();
        }
        benchmark::DoNotOptimize(lineCount);
    }
    state.SetBytesProcessed(state.iterations() * fixture().allBytes.size());
}

BENCHMARK(SaveAllComponentFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(RenderAllComponentFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteSameBytesInOneSafeWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteSameBytesInOnePlainWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadAllComponentFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadSameBytesAndSplitLines)->Unit(benchmark::kMillisecond);

// Prints the results as usual, then each budget with the ratio it was held to.
class BudgetReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            m_milliseconds[run.benchmark_name()] = run.GetAdjustedRealTime();
        }
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        std::printf("\nBudgets (largest menu, %.1f MB of component files):\n",
            static_cast<double>(fixture().allBytes.size()) / 1e6);
        ratio("write all files", "SaveAllComponentFiles", "WriteSameBytesInOneSafeWrite", 3);
        ratio("write all files", "SaveAllComponentFiles", "WriteSameBytesInOnePlainWrite", 3);
        ratio("load all files", "LoadAllComponentFiles", "ReadSameBytesAndSplitLines", 3);
    }

private:
    void ratio(const char* what, const std::string& measured, const std::string& baseline, double budget)
    {
        if (!m_milliseconds.contains(measured) || !m_milliseconds.contains(baseline)) {
            return; // left out by a filter
        }
        const double value = m_milliseconds[measured] / m_milliseconds[baseline];
        std::printf("  %-16s %8.2f ms = %5.2f x %-30s (budget under %.0f x): %s\n", what,
            m_milliseconds[measured], value, baseline.c_str(), budget, value < budget ? "met" : "MISSED");
    }

    std::map<std::string, double> m_milliseconds;
};

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    BudgetReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
