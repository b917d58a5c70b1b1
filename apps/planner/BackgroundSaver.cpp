#include "BackgroundSaver.h"

#include "plan/PlanReader.h"
#include "plan/PlanSaver.h"

#include <atomic>
#include <exception>
#include <thread>
#include <utility>

namespace korvane::planner {

namespace {

constexpr qint64 kReportSteps = 100;

} // namespace

/// One save and its thread.
class BackgroundSaver::Job final : public IProgress
{
public:
    Job(BackgroundSaver &saver, Plan plan, std::shared_ptr<const PlanSource> source,
        QString fileName)
        : m_saver(saver)
        , m_plan(std::move(plan))
        , m_source(std::move(source))
        , m_fileName(std::move(fileName))
        , m_thread([this] { Run(); })
    {
    }

    const QString &FileName() const { return m_fileName; }
    bool IsOver() const { return m_over; }
    void Wait() { m_thread.join(); }
    /// Once it is over.
    const std::optional<QString> &Error() const { return m_error; }

    void Report(qint64 done, qint64 total) override
    {
        const qint64 step = total > 0 ? done * kReportSteps / total : 0;
        if (step != m_step) {
            m_step = step;
            Q_EMIT m_saver.jobProgressed(done, total, QPrivateSignal());
        }
    }
    bool IsCanceled() const override { return false; }

private:
    void Run()
    {
        try {
            m_error = SavePlan(m_plan, m_source.get(), m_fileName, *this);
        } catch (const std::exception &error) {
            m_error = QString::fromUtf8(error.what());
        }
        m_over = true;
        Q_EMIT m_saver.jobEnded(QPrivateSignal());
    }

    BackgroundSaver &m_saver;
    const Plan m_plan;
    const std::shared_ptr<const PlanSource> m_source;
    const QString m_fileName;
    std::optional<QString> m_error;
    qint64 m_step = -1; ///< the thread's own
    std::atomic<bool> m_over = false;
    std::jthread m_thread; ///< the last one: it ends before the rest goes
};

BackgroundSaver::BackgroundSaver(QObject *parent)
    : QObject(parent)
{
    connect(this, &BackgroundSaver::jobEnded, this, &BackgroundSaver::Finish, Qt::QueuedConnection);
    connect(this, &BackgroundSaver::jobProgressed, this, &BackgroundSaver::progressed,
            Qt::QueuedConnection);
}

BackgroundSaver::~BackgroundSaver()
{
    m_job.reset();
}

void BackgroundSaver::Start(Plan plan, std::shared_ptr<const PlanSource> source,
                            const QString &fileName)
{
    m_job = std::make_unique<Job>(*this, std::move(plan), std::move(source), fileName);
}

void BackgroundSaver::Wait()
{
    if (m_job != nullptr) {
        m_job->Wait();
        Finish();
    }
}

/// Also for a job that has been waited for, whose news come when the next one may be running.
void BackgroundSaver::Finish()
{
    if (m_job != nullptr && m_job->IsOver()) {
        const std::unique_ptr<Job> job = std::move(m_job);
        Q_EMIT finished(job->FileName(), job->Error());
    }
}

} // namespace korvane::planner
