// A few threads that work off what many objects ask for.
#pragma once

#include "foundation/zuExport.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace korvane {

/// A bounded pool of worker threads. Work runs in the order of the requests, several at a time.
/// Threads are started when there is work for them.
class KORVANE_CORE_API TWorkerPool
{
public:
    /// `threads` is at least 1.
    explicit TWorkerPool(unsigned threads);

    TWorkerPool(const TWorkerPool &) = delete;
    TWorkerPool &operator=(const TWorkerPool &) = delete;
    /// Drops what has not begun and waits for the rest.
    ~TWorkerPool();

    /// The pool of the process: one thread less than there are processors, 1 to 4.
    static TWorkerPool &Shared();

    /// Queues work. From any thread. The work must not throw.
    void Run(std::function<void()> work);

private:
    void WorkOff();

    const unsigned m_most;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_waiting;
    std::vector<std::thread> m_threads;
    unsigned m_idle = 0;
    bool m_closing = false;
};

} // namespace korvane
