#include "PlanLoader.h"

#include "plan/PlanFile.h"

#include <QPointer>

#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

namespace korvane::planner {

namespace {

constexpr qint64 kReportSteps = 200;
constexpr qint64 kReportBytes = 1 << 20; ///< between two reports when the total is not known

PlanResult Read(const QString &fileName, const ReadOptions &options, IProgress &progress)
{
    try {
        return LoadPlan(fileName, PlanReaders::Builtin(options), progress);
    } catch (const std::exception &error) {
        return {PlanStatus::Refused, {}, {0, QString::fromUtf8(error.what())}};
    }
}

} // namespace

/// One load and its thread. What the thread has to tell waits here until the loader takes it; the
/// loader is called when the first of it arrives.
class PlanLoader::Job final : public IProgress
{
public:
    struct News
    {
        bool Progressed = false;
        qint64 Done = 0;
        qint64 Total = 0;
        std::shared_ptr<PlanResult> Result; ///< once the load has ended
    };

    Job(PlanLoader &loader, const QString &fileName)
        : m_loader(loader)
        , m_fileName(fileName)
        , m_options(loader.Options())
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
        const qint64 step = total > 0 ? done * kReportSteps / total : done / kReportBytes;
        if (step != m_step) {
            m_step = step;
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
        auto result = std::make_shared<PlanResult>(Read(m_fileName, m_options, *this));
        Tell([&](News &news) { news.Result = std::move(result); });
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
            Q_EMIT m_loader.newsArrived(QPrivateSignal());
        }
    }

    PlanLoader &m_loader;
    const QString m_fileName;
    const ReadOptions m_options;
    std::atomic<bool> m_canceled = false;
    std::atomic<bool> m_over = false;
    qint64 m_step = -1; ///< the thread's own
    std::mutex m_mutex;
    News m_news;
    bool m_told = false;   ///< the loader is still to take the news
    std::jthread m_thread; ///< the last one: it ends before the rest goes
};

PlanLoader::PlanLoader(QObject *parent)
    : QObject(parent)
{
    connect(this, &PlanLoader::newsArrived, this, &PlanLoader::TakeNews, Qt::QueuedConnection);
}

PlanLoader::~PlanLoader()
{
    Cancel();
    m_jobs.clear();
}

void PlanLoader::Start(const QString &fileName)
{
    Cancel();
    std::erase_if(m_jobs, [](const auto &job) { return job->IsOver(); });
    m_jobs.push_back(std::make_unique<Job>(*this, fileName));
    m_job = m_jobs.back().get();
}

void PlanLoader::Cancel()
{
    if (m_job != nullptr) {
        m_job->Cancel();
        m_job = nullptr;
    }
}

QString PlanLoader::FileName() const
{
    return m_job != nullptr ? m_job->FileName() : QString();
}

void PlanLoader::TakeNews()
{
    const Job *job = m_job;
    if (job == nullptr) {
        return;
    }
    const Job::News news = m_job->TakeNews();
    const QPointer<PlanLoader> alive(this);
    if (news.Progressed) {
        Q_EMIT progressed(news.Done, news.Total);
    }
    if (alive && m_job == job && news.Result != nullptr) {
        const QString fileName = m_job->FileName();
        m_job = nullptr;
        Q_EMIT finished(fileName, news.Result);
    }
}

} // namespace korvane::planner
