#include "foundation/zuSynchronize.h"

#include <deque>
#include <mutex>
#include <utility>

namespace korvane {

namespace {

struct PostedCalls
{
    std::mutex Mutex;
    std::deque<std::function<void()>> Calls;
    std::function<void()> Wake;
};

/// Never destroyed: a worker may post while the process ends.
PostedCalls &Posted()
{
    static auto &queue = *new PostedCalls;
    return queue;
}

std::function<void()> TakeFirst()
{
    PostedCalls &queue = Posted();
    const std::lock_guard lock(queue.Mutex);
    if (queue.Calls.empty()) {
        return {};
    }
    std::function<void()> first = std::move(queue.Calls.front());
    queue.Calls.pop_front();
    return first;
}

/// The transport, if there is something to be announced.
std::function<void()> WakeForTheRest()
{
    PostedCalls &queue = Posted();
    const std::lock_guard lock(queue.Mutex);
    return queue.Calls.empty() ? nullptr : queue.Wake;
}

} // namespace

void TSynchronize::Post(std::function<void()> call)
{
    PostedCalls &queue = Posted();
    std::function<void()> wake;
    {
        const std::lock_guard lock(queue.Mutex);
        queue.Calls.push_back(std::move(call));
        if (queue.Calls.size() == 1) {
            wake = queue.Wake;
        }
    }
    if (wake) {
        wake();
    }
}

void TSynchronize::RunPosted()
{
    while (const std::function<void()> call = TakeFirst()) {
        try {
            call();
        } catch (...) {
            if (const std::function<void()> wake = WakeForTheRest()) {
                wake();
            }
            throw;
        }
    }
}

void SetSynchronizeTransport(std::function<void()> wake)
{
    {
        PostedCalls &queue = Posted();
        const std::lock_guard lock(queue.Mutex);
        queue.Wake = std::move(wake);
    }
    if (const std::function<void()> announce = WakeForTheRest()) {
        announce();
    }
}

} // namespace korvane
