// Worker threads and what they hand back to the main thread.
#include "foundation/zuSynchronize.h"
#include "foundation/zuWorkerPool.h"
#include "support/WaitUntil.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace korvane {
namespace {

TEST(WorkerPool, RunsEverythingOnABoundedNumberOfThreads)
{
    std::atomic<int> running = 0;
    std::atomic<int> most = 0;
    std::atomic<int> done = 0;
    TWorkerPool pool(3);
    for (int i = 0; i < 500; ++i) {
        pool.Run([&] {
            const int now = ++running;
            int seen = most;
            while (seen < now && !most.compare_exchange_weak(seen, now)) {
            }
            std::this_thread::yield();
            --running;
            ++done;
        });
    }
    EXPECT_TRUE(test::WaitUntil([&] { return done == 500; }));
    EXPECT_LE(most, 3);
}

TEST(WorkerPool, ItsEndAwaitsWhatRuns)
{
    std::promise<void> begun;
    std::atomic<bool> ended = false;
    {
        TWorkerPool pool(1);
        pool.Run([&] {
            begun.set_value();
            for (int i = 0; i < 1000; ++i) {
                std::this_thread::yield();
            }
            ended = true;
        });
        begun.get_future().wait();
    }
    EXPECT_TRUE(ended);
}

TEST(Synchronize, CallsRunInOrderAndAFailedOneLeavesTheOthers)
{
    int wakes = 0;
    std::vector<int> ran;
    SetSynchronizeTransport([&wakes] { ++wakes; });
    TSynchronize::Post([&ran] {
        ran.push_back(1);
        TSynchronize::Post([&ran] { ran.push_back(4); });
    });
    TSynchronize::Post([] { throw std::runtime_error("failed"); });
    TSynchronize::Post([&ran] { ran.push_back(3); });
    EXPECT_EQ(wakes, 1);
    EXPECT_THROW(TSynchronize::RunPosted(), std::runtime_error);
    EXPECT_EQ(wakes, 2);
    TSynchronize::RunPosted();
    EXPECT_EQ(ran, (std::vector<int>{1, 3, 4}));
    SetSynchronizeTransport(nullptr);
}

} // namespace
} // namespace korvane
