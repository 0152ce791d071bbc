// Redrawing a page of the largest menu: every row bound, 10,000 products to look them up in.
#include "WorstCaseReporter.h"
#include "designer/PageView.h"
#include "document/MenuDocument.h"
#include "support/SampleDocuments.h"
#include "support/ScriptedPrompts.h"

#include <QImage>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr double BudgetMs = 8;

struct Fixture
{
    QTemporaryDir folder;
    std::unique_ptr<MenuDocument> document = SampleDocuments::largestMenu();
    ScriptedPrompts prompts;
    PageView view { *document, prompts };

    Fixture()
    {
        document->ProjectFolder = folder.path() + u'/';
        view.show();
    }

    // Both sides and a group on each page carry a picture of the size a page side is meant to have.
    void addPictures()
    {
        QImage picture(465, 516, QImage::Format_RGB32);
        picture.fill(QColor(180, 200, 230));
        picture.save(document->ProjectFolder + QStringLiteral("side.jpg"), "JPG");
        picture.save(document->ProjectFolder + QStringLiteral("group.jpg"), "JPG");
        for (int page = 1; page <= Limits::PageCount; ++page) {
            document->PrintSettings.PageValueA[page] = QStringLiteral("side.jpg");
            document->PrintSettings.PageValueB[page] = QStringLiteral("side.jpg");
            LineLayout& group = document->LineLayouts[lineSlot(page, 2)];
            group.pictureRole = GroupStart;
            group.picturePath = QStringLiteral("group.jpg");
            for (int row = 3; row < 8; ++row) {
                document->LineLayouts[lineSlot(page, row)].pictureRole = CoveredByPicture;
            }
        }
    }
};

// Made once the application exists, and gone before it goes.
std::unique_ptr<Fixture> theFixture;

Fixture& fixture()
{
    return *theFixture;
}

// The same page again, as after an edit that changed one row.
void UpdatePageSamePage(benchmark::State& state)
{
    PageView& view = fixture().view;
    view.setCurrentPage(7);
    for (auto _ : state) {
        view.Update_Page();
    }
}

// Paging back and forth: every row changes its text, price and colours on every redraw.
void alternatePages(benchmark::State& state)
{
    PageView& view = fixture().view;
    int page = 6;
    for (auto _ : state) {
        page = page == 6 ? 7 : 6;
        view.setCurrentPage(page);
        view.Update_Page();
    }
}

void UpdatePageAlternatingPages(benchmark::State& state)
{
    alternatePages(state);
}

void UpdatePageWithPictures(benchmark::State& state)
{
    fixture().addPictures();
    alternatePages(state);
}

BENCHMARK(UpdatePageSamePage)->Unit(benchmark::kMillisecond);
BENCHMARK(UpdatePageAlternatingPages)->Unit(benchmark::kMillisecond);
BENCHMARK(UpdatePageWithPictures)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return runWidgetBenchmarks(argc, argv, theFixture, "Update_Page of the largest menu", BudgetMs);
}
