// Waiting for worker threads without sleeping.
#pragma once

#include "foundation/zuSynchronize.h"

#include <chrono>
#include <thread>

namespace korvane::test {

/// Runs what workers hand back until the condition holds; gives up after a minute, when it never
/// will. Returns whether it holds.
template <typename Condition>
bool WaitUntil(const Condition &condition)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        TSynchronize::RunPosted();
        std::this_thread::yield();
    }
    return true;
}

} // namespace korvane::test
