// A load in a thread of its own.
#pragma once

#include "plan/PlanReader.h"

#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace korvane::planner {

/// One load and its thread. What the thread has to tell waits here until its owner takes it; the
/// owner is called, in that thread, when the first of it arrives. The destructor waits until the
/// thread has noticed that the load was given up.
template <typename Result>
class TLoadJob final : public IProgress
{
public:
    struct News
    {
        bool Progressed = false;
        qint64 Done = 0;
        qint64 Total = 0;
        std::shared_ptr<Result> Ended; ///< once the load has ended
    };
    using Read = std::function<Result(const QString &fileName, IProgress &progress)>;

    TLoadJob(const QString &fileName, Read read, std::function<void()> newsArrived)
        : m_fileName(fileName)
        , m_read(std::move(read))
        , m_newsArrived(std::move(newsArrived))
        , m_thread([this] { Run(); })
    {
    }

    const QString &FileName() const { return m_fileName; }
    void Cancel() { m_canceled = true; }
    bool IsOver() const { return m_over; }
    News TakeNews()
    {
        const std::scoped_lock lock(m_mutex);
        m_told = false;
        return std::exchange(m_news, {});
    }

    void Report(qint64 done, qint64 total) override
    {
        constexpr qint64 kSteps = 200;
        constexpr qint64 kBytes = 1 << 20; // between two reports when the total is not known
        const qint64 step = total > 0 ? done * kSteps / total : done / kBytes;
        if (std::exchange(m_step, step) != step) {
            Tell([=](News &news) {
                news.Progressed = true;
                news.Done = done;
                news.Total = total;
            });
        }
    }
    bool IsCanceled() const override { return m_canceled; }

private:
    void Run()
    {
        auto result = std::make_shared<Result>(m_read(m_fileName, *this));
        Tell([&](News &news) { news.Ended = std::move(result); });
        m_over = true;
    }
    template <typename Change>
    void Tell(const Change &change)
    {
        bool first = false;
        {
            const std::scoped_lock lock(m_mutex);
            change(m_news);
            first = !std::exchange(m_told, true);
        }
        if (first && !m_canceled) {
            m_newsArrived();
        }
    }

    const QString m_fileName;
    const Read m_read;
    const std::function<void()> m_newsArrived;
    std::atomic<bool> m_canceled = false;
    std::atomic<bool> m_over = false;
    qint64 m_step = -1; ///< the thread's own
    std::mutex m_mutex;
    News m_news;
    bool m_told = false;   ///< the owner is still to take the news
    std::jthread m_thread; ///< the last one: it ends before the rest goes
};

} // namespace korvane::planner
