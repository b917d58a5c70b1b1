// What pointing and selecting in a Gantt chart cost, from ten thousand items to a million, with as
// many links: ten items on a row, each linked to the next but twelve.
#include "support/FakeGantHost.h"

#include <benchmark/benchmark.h>
#include <memory>

namespace {

using namespace korvane;
using namespace korvane::test;

constexpr int kItemsPerRow = 10;

struct TLinkedChart : TestChart
{
    std::vector<TzuDataEntity_Spanbar *> Items;

    explicit TLinkedChart(int items)
    {
        for (int row = 0; row < items / kItemsPerRow; ++row) {
            TGantRow *line = AddRow();
            for (int i = 0; i < kItemsPerRow; ++i) {
                Items.push_back(AddItem(line, 45 * i + row % 7, 45 * i + row % 7 + 20));
            }
        }
        for (std::size_t i = 0; i + 13 < Items.size(); ++i) {
            Link(Items[i], Items[i + 13]);
        }
        View.SetTopRow(static_cast<int>(Items.size()) / kItemsPerRow / 2);
        Paint();
    }
};

TLinkedChart &ChartOf(const benchmark::State &state)
{
    static std::unique_ptr<TLinkedChart> chart;
    const auto items = static_cast<std::size_t>(state.range(0));
    if (chart == nullptr || chart->Items.size() != items) {
        chart.reset();
        chart = std::make_unique<TLinkedChart>(static_cast<int>(items));
    }
    return *chart;
}

/// A move of the mouse over links, without the repaint.
void PointAtLinks(benchmark::State &state)
{
    TLinkedChart &chart = ChartOf(state);
    int x = 0;
    for (auto _ : state) {
        x = (x + 7) % 450;
        chart.Gant->PointAt(x, 60 + x % 40);
    }
}

void Click(benchmark::State &state)
{
    TLinkedChart &chart = ChartOf(state);
    chart.Gant->ClearSelection();
    std::size_t i = 0;
    for (auto _ : state) {
        i = (i + 7919) % chart.Items.size();
        chart.Gant->UpdateMultiSelect(chart.Items[i], {}, TSelectStep::Press);
        chart.Gant->UpdateMultiSelect(chart.Items[i], {}, TSelectStep::Release);
    }
}

/// One more or fewer in the rectangle.
void GrowRectangle(benchmark::State &state)
{
    TLinkedChart &chart = ChartOf(state);
    chart.Gant->ClearSelection();
    chart.Gant->BeginSelectInRect();
    int step = 0;
    for (auto _ : state) {
        chart.Gant->SelectInRect({0, 0, 200 + 45 * (++step & 1), 170}, TSelectHow::Replace);
    }
    chart.Gant->EndSelectInRect();
}

void ArrowDown(benchmark::State &state)
{
    TLinkedChart &chart = ChartOf(state);
    chart.Gant->SelectOnly(*chart.Items[chart.Items.size() / 2]);
    chart.Gant->SetActiveDataEntity(chart.Items[chart.Items.size() / 2]);
    int step = 0;
    for (auto _ : state) {
        chart.Gant->GantAreaKeyDown((++step & 1) != 0 ? TGantKey::Down : TGantKey::Up, {});
    }
}

void SelectAllAndNone(benchmark::State &state)
{
    TLinkedChart &chart = ChartOf(state);
    for (auto _ : state) {
        chart.Gant->SelectAll();
        benchmark::DoNotOptimize(chart.Gant->SelectedItems());
        chart.Gant->ClearSelection();
    }
}

} // namespace

int main(int argc, char **argv)
{
    // By size, so that each chart is built once.
    for (const int size : {10'000, 100'000, 1'000'000}) {
        const std::pair<const char *, void (*)(benchmark::State &)> steps[] = {
            {"PointAtLinks", PointAtLinks},         {"Click", Click},
            {"GrowRectangle", GrowRectangle},       {"ArrowDown", ArrowDown},
            {"SelectAllAndNone", SelectAllAndNone},
        };
        for (const auto &[name, step] : steps) {
            benchmark::RegisterBenchmark(name, step)->Arg(size)->Unit(benchmark::kMicrosecond);
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
