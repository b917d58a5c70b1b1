// What deferred calls and date texts cost. Ten thousand owners at most queue their calls; the time
// per call must not depend on how many are pending.
#include "foundation/zuDateUtils.h"
#include "foundation/zuDoLater.h"
#include "foundation/zuFormat.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <vector>

namespace {

using namespace korvane;

constexpr std::size_t kOwners = 10'000;

struct TOwner
{
    void Run(TObject * /*parameter*/) { ++Runs; }
    TDoLaterCall Call() { return TDoLaterCall::Bind<&TOwner::Run>(this); }

    std::uint64_t Runs = 0;
};

/// Owners and parameters that make up `count` different requests, taken turn by turn.
class TRequests
{
public:
    explicit TRequests(std::size_t count)
        : m_count(count)
        , m_owners(std::min(count, kOwners))
        , m_parameters((count + m_owners.size() - 1) / m_owners.size())
    {
    }

    void QueueAll()
    {
        for (std::size_t i = 0; i < m_count; ++i) {
            TDoLater::DoLater(m_owners[i % m_owners.size()].Call(),
                              &m_parameters[i / m_owners.size()]);
        }
    }
    void WithdrawAll()
    {
        for (TOwner &owner : m_owners) {
            TDoLater::NeverMind(owner.Call());
        }
    }

private:
    std::size_t m_count;
    std::vector<TOwner> m_owners;
    std::vector<TObject> m_parameters;
};

void CountItems(benchmark::State &state)
{
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void QueueAndDrain(benchmark::State &state)
{
    TRequests requests(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        requests.QueueAll();
        TDoLater::DoAllNow();
    }
    CountItems(state);
}

void QueueAndWithdrawPerOwner(benchmark::State &state)
{
    TRequests requests(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        requests.QueueAll();
        requests.WithdrawAll();
    }
    CountItems(state);
}

/// Every request is already pending.
void SuppressDuplicates(benchmark::State &state)
{
    TRequests requests(static_cast<std::size_t>(state.range(0)));
    requests.QueueAll();
    for (auto _ : state) {
        requests.QueueAll();
    }
    requests.WithdrawAll();
    CountItems(state);
}

BENCHMARK(QueueAndDrain)->RangeMultiplier(10)->Range(10'000, 1'000'000);
BENCHMARK(QueueAndWithdrawPerOwner)->RangeMultiplier(10)->Range(10'000, 1'000'000);
BENCHMARK(SuppressDuplicates)->RangeMultiplier(10)->Range(10'000, 1'000'000);

void FormatLabel(benchmark::State &state, const char *format)
{
    const TDateTime start = EncodeDate(2024, 1, 1);
    double hours = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(FormatDateTime(format, start + hours / 24));
        hours += 1;
    }
}

BENCHMARK_CAPTURE(FormatLabel, minutes, "hh:mm");
BENCHMARK_CAPTURE(FormatLabel, names, "dddd d mmmm yyyy");

} // namespace

BENCHMARK_MAIN();
