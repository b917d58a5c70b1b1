#include "foundation/zuWorkerPool.h"

#include <algorithm>
#include <utility>

namespace korvane {

TWorkerPool::TWorkerPool(unsigned threads)
    : m_most(std::max(threads, 1U))
{
}

TWorkerPool::~TWorkerPool()
{
    std::deque<std::function<void()>> dropped;
    {
        const std::lock_guard lock(m_mutex);
        m_closing = true;
        dropped.swap(m_waiting);
    }
    m_changed.notify_all();
    for (std::thread &thread : m_threads) {
        thread.join();
    }
}

TWorkerPool &TWorkerPool::Shared()
{
    static TWorkerPool pool(std::clamp(std::thread::hardware_concurrency(), 2U, 5U) - 1);
    return pool;
}

void TWorkerPool::Run(std::function<void()> work)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_closing) {
            return;
        }
        m_waiting.push_back(std::move(work));
        if (m_waiting.size() > m_idle && m_threads.size() < m_most) {
            m_threads.emplace_back([this] { WorkOff(); });
        }
    }
    m_changed.notify_one();
}

void TWorkerPool::WorkOff()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        ++m_idle;
        m_changed.wait(lock, [this] { return m_closing || !m_waiting.empty(); });
        --m_idle;
        if (m_waiting.empty()) {
            return;
        }
        const std::function<void()> work = std::move(m_waiting.front());
        m_waiting.pop_front();
        lock.unlock();
        work();
        lock.lock();
    }
}

} // namespace korvane
