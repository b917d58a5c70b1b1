// Sorting of a grid's rows by text, beside a plain stable sort of keys that are ready.
#include "grid/zuGrid.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace korvane;

constexpr int kRows = 100'000;

std::string RandomText(std::mt19937 &random)
{
    std::string text;
    for (unsigned length = 4 + random() % 12; length > 0; --length) {
        text += static_cast<char>('a' + random() % 26);
    }
    return text;
}

struct TRows
{
    TBabGridCellForViewer Root;
    TzuGridCore Grid{Root, [] {}};

    TRows()
    {
        std::mt19937 random(1);
        Grid.Columns().Add();
        Grid.AddRows(kRows);
        for (int row = 0; row < kRows; ++row) {
            Grid.SetCellText(0, row, RandomText(random));
        }
        Grid.SetSortKeys({{Grid.Columns().GetColumn(0)}});
    }
    void Shuffle()
    {
        std::mt19937 random(2);
        auto items = Root.Rows().LoadedItems();
        items.erase(items.begin());
        std::shuffle(items.begin(), items.end(), random);
        Root.Rows().Reorder(items);
    }
};

TRows &Rows()
{
    static TRows rows;
    return rows;
}

void SortRows(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Rows().Shuffle();
        state.ResumeTiming();
        Rows().Grid.DoInternalResortOfContent();
    }
}

void StableSortOfReadyKeys(benchmark::State &state)
{
    Rows().Shuffle();
    std::vector<std::string> ready;
    for (int row = 1; row <= kRows; ++row) {
        ready.push_back(Rows().Grid.GetSortString(*Rows().Root.Rows().getAxisContentItem(row)));
    }
    for (auto _ : state) {
        state.PauseTiming();
        auto keys = ready;
        state.ResumeTiming();
        std::stable_sort(keys.begin(), keys.end());
        benchmark::DoNotOptimize(keys.data());
    }
}

BENCHMARK(SortRows)->Unit(benchmark::kMillisecond)->MinTime(1);
BENCHMARK(StableSortOfReadyKeys)->Unit(benchmark::kMillisecond)->MinTime(1);

} // namespace

BENCHMARK_MAIN();
