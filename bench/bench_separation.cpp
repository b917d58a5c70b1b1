// Separation of overlapping intervals, beside the plain double loop.
#include "data/zuTimeDistinctGeneric.h"
#include "support/PlainSeparation.h"

#include <benchmark/benchmark.h>
#include <random>

namespace {

using namespace korvane;

/// Each interval overlaps about three others.
TDistinctTimeHolderList Sparse(std::int64_t count)
{
    TDistinctTimeHolderList list;
    std::mt19937 random(1);
    std::uniform_real_distribution<double> start(0, static_cast<double>(count));
    for (std::int64_t i = 0; i < count; ++i) {
        const double from = start(random);
        list.Add(from, from + 1.5, {}, nullptr);
    }
    return list;
}

/// All contain one instant.
TDistinctTimeHolderList Crowded(std::int64_t count)
{
    TDistinctTimeHolderList list;
    std::mt19937 random(1);
    std::uniform_real_distribution<double> distance(1, 1000);
    for (std::int64_t i = 0; i < count; ++i) {
        list.Add(-distance(random), distance(random), {}, nullptr);
    }
    return list;
}

/// All have the same times.
TDistinctTimeHolderList Identical(std::int64_t count)
{
    TDistinctTimeHolderList list;
    for (std::int64_t i = 0; i < count; ++i) {
        list.Add(0, 1, {}, nullptr);
    }
    return list;
}

template <TDistinctTimeHolderList Make(std::int64_t), void Separate(TDistinctTimeHolderList &)>
void Run(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        TDistinctTimeHolderList list = Make(state.range(0));
        state.ResumeTiming();
        Separate(list);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Separation(TDistinctTimeHolderList &list)
{
    TTimeDistinctGeneric(list).ResolveConflicts();
}

template <TDistinctTimeHolderList Make(std::int64_t)>
void Resolve(benchmark::State &state)
{
    Run<Make, Separation>(state);
}

template <TDistinctTimeHolderList Make(std::int64_t)>
void DoubleLoop(benchmark::State &state)
{
    Run<Make, test::ResolvePlainly>(state);
}

BENCHMARK(Resolve<Sparse>)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Resolve<Identical>)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Resolve<Crowded>)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(DoubleLoop<Crowded>)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(DoubleLoop<Sparse>)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
