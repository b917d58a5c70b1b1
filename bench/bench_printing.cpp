// What printing costs: per page, whatever the length of the document.
#include "gantt/qt/zuGant.h"
#include "printing/qt/zuGanttPrinting.h"

#include <QApplication>
#include <QPageSize>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <memory>
#include <string>
#include <sys/resource.h>

namespace {

using namespace korvane;

constexpr int kRowsPerPage = 20;
constexpr TDateTime kFrom = 46000;

double PeakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// Twenty rows for each page, with a bar and a link each.
std::unique_ptr<TzuGant> ChartOf(int rows)
{
    auto chart = std::make_unique<TzuGant>();
    chart->resize(800, 400);
    chart->BeginUpdate();
    TzuDataEntity_Spanbar *before = nullptr;
    for (int i = 0; i < rows; ++i) {
        TzuDataEntity_Spanbar *bar =
            chart->AddSpanbar(chart->AddRootDataEntityTree("Row " + std::to_string(i)), 0);
        bar->SetStartDateTime(kFrom + i % 60);
        bar->SetStopDateTime(kFrom + i % 60 + 9);
        bar->Texts().AddText("Bar " + std::to_string(i), 4, 2, 1);
        if (before != nullptr) {
            TzuDataEntity_Link &link = chart->AddLink();
            link.SetFirst(before);
            link.SetSecond(bar);
        }
        before = bar;
    }
    chart->EndUpdate();
    chart->SetStart(kFrom);
    chart->SetStop(kFrom + 70);
    chart->show();
    QApplication::processEvents();
    return chart;
}

void SavesPdf(benchmark::State &state)
{
    const auto pages = static_cast<int>(state.range(0));
    const auto chart = ChartOf(pages * kRowsPerPage);
    const QTemporaryDir folder;
    TzuGanttPrinting printing(*chart);
    // Paper as high as the rows of a page.
    constexpr double kPointsPerPixel = 0.75;
    const int height = kRowsPerPage * chart->Tree().RowHeight() + chart->GetScalerHeight();
    const QSizeF paper = QSizeF(1200, height) * kPointsPerPixel;
    printing.Paper().Layout() =
        QPageLayout(QPageSize(paper, QPageSize::Point, {}, QPageSize::ExactMatch),
                    QPageLayout::Portrait, QMarginsF(), QPageLayout::Point);
    printing.Paper().Header() = {};
    printing.Paper().Footer() = {};
    const double before = PeakMegabytes();
    for (auto _ : state) {
        printing.SavePdf(folder.filePath(QStringLiteral("plan.pdf")));
    }
    state.counters["pages"] = printing.PageCount();
    state.counters["ms_per_page"] = benchmark::Counter(printing.PageCount() / 1000.0,
                                                       benchmark::Counter::kIsIterationInvariantRate
                                                           | benchmark::Counter::kInvert);
    state.counters["more_MB"] = PeakMegabytes() - before;
}
BENCHMARK(SavesPdf)->Arg(50)->Arg(500)->Unit(benchmark::kMillisecond);

void LaysOut(benchmark::State &state)
{
    const auto chart = ChartOf(static_cast<int>(state.range(0)));
    TzuGanttPrinting printing(*chart);
    for (auto _ : state) {
        printing.LayOut();
    }
    state.counters["pages"] = printing.PageCount();
}
BENCHMARK(LaysOut)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
