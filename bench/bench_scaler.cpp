// Cost of the time axis: marks at every zoom, and the mapping of dates to pixels.
#include "foundation/zuDateUtils.h"
#include "scaler/zuScaleWalk.h"
#include "scaler/zuScaler.h"

#include <array>
#include <benchmark/benchmark.h>
#include <string>
#include <utility>
#include <vector>

namespace korvane {
namespace {

struct TBenchHost final : IDateScalerHost
{
    TSize ClientSize() const override { return {1400, 45}; }
    TDateTime Now() const override { return 36892; }
    void Refresh() override {}
    void PostChange() override {}
    bool GetIsPrinting() const override { return false; }
    double GetScalex() const override { return 1; }
    double GetScaley() const override { return 1; }
    void PrintResizeFont() override {}
};

struct TBenchAxis
{
    TBenchHost Host;
    TDateScalerCore Scaler{Host};

    explicit TBenchAxis(TDateTime span)
    {
        Scaler.BeginUpdate();
        Scaler.SetHorizontal(true);
        Scaler.SetStart(span > 100 * kYear ? 0 : 36892.25);
        Scaler.SetStop(Scaler.GetStart() + span);
        Scaler.EndUpdate();
    }

    /// Ten passes, of which every other one hides its window; the axis begins within such a one.
    void AddPasses()
    {
        for (int i = 0; i < TDateScalerCore::kPassCount; ++i) {
            Scaler.GetPassList(i) = {.Active = true,
                                     .FromTime = i / 10.0 + 0.001,
                                     .ToTime = i / 10.0 + 0.096,
                                     .Hide = i % 2 == 0,
                                     .Color = clSilver};
        }
        Scaler.CalcDrawMode();
    }
};

TDateScalePass NightPass()
{
    return {.Active = true, .FromTime = 0.75, .ToTime = 0.25, .Hide = true};
}

void BM_CalcDrawMode(benchmark::State &state, TDateTime span, bool passes)
{
    TBenchAxis axis(span);
    if (passes) {
        axis.AddPasses();
    }
    for (auto _ : state) {
        axis.Scaler.CalcDrawMode();
    }
    state.SetLabel(std::string(axis.Scaler.MinorStepName()) + ", "
                   + std::to_string(axis.Scaler.PrimaryMarks().size()) + " marks, hidden days "
                   + std::to_string(axis.Scaler.HiddenSpan()));
}

void BM_DateToPixel(benchmark::State &state, bool passes)
{
    TBenchAxis axis(kDay);
    if (passes) {
        axis.AddPasses();
    }
    std::vector<TDateTime> dates;
    for (int i = 0; i < 1024; ++i) {
        dates.push_back(axis.Scaler.GetStart() + i * 389 % 1024 / 600.0);
    }
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(axis.Scaler.DateToPixel(dates[next++ % 1024]));
    }
}

/// From six in the evening over a hidden night, second by second.
void BM_NightPlain(benchmark::State &state)
{
    const std::array night{NightPass()};
    for (auto _ : state) {
        TDateTime t = 36892.75;
        int hidden = 0;
        while (PassInfoAt(night, kScale1Sec, MillisecondOfDay(t)).Hide) {
            t += kScale1Sec;
            ++hidden;
        }
        benchmark::DoNotOptimize(hidden);
    }
}

void BM_NightSkipped(benchmark::State &state)
{
    const std::array night{NightPass()};
    for (auto _ : state) {
        const TDayPattern pattern(night, kScale1Sec);
        TScaleWalk walk(kScale1Sec, 36892.75, 2, pattern);
        benchmark::DoNotOptimize(walk.SkipHidden());
    }
}

void RegisterAll()
{
    const std::pair<const char *, TDateTime> zooms[] = {
        {"10ms", kScale10Hun},
        {"1s", kScale1Sec},
        {"1min", kMinute},
        {"1h", kHour},
        {"1day", kDay},
        {"4days", 4},
        {"1month", kMonth},
        {"1year", kYear},
        {"10years", 10 * kYear},
        {"100years", 100 * kYear},
        {"2100years", LatestStop()},
    };
    for (const auto &[name, span] : zooms) {
        for (const bool passes : {false, true}) {
            const std::string title =
                std::string("CalcDrawMode/") + name + (passes ? "/10 passes" : "");
            benchmark::RegisterBenchmark(title.c_str(), BM_CalcDrawMode, span, passes);
        }
    }
    benchmark::RegisterBenchmark("HiddenNightInSeconds/plain walk", BM_NightPlain);
    benchmark::RegisterBenchmark("HiddenNightInSeconds/skipped", BM_NightSkipped);
    benchmark::RegisterBenchmark("DateToPixel/linear", BM_DateToPixel, false);
    benchmark::RegisterBenchmark("DateToPixel/10 passes", BM_DateToPixel, true);
}

} // namespace
} // namespace korvane

int main(int argc, char **argv)
{
    korvane::RegisterAll();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
