#include "PlanLoader.h"

#include "plan/PlanFile.h"

#include <QMetaObject>

#include <atomic>
#include <exception>

namespace korvane::planner {

namespace {

/// Loads that were given up may take a moment to notice; they must not hold up the next one.
constexpr int kMostWorkers = 16;
constexpr qint64 kReportSteps = 200;
constexpr qint64 kReportBytes = 1 << 20; ///< between two reports when the total is not known

PlanResult Read(const QString &fileName, IProgress &progress)
{
    try {
        return LoadPlan(fileName, PlanReaders::Builtin(), progress);
    } catch (const std::exception &error) {
        return {PlanStatus::Refused, {}, {0, QString::fromUtf8(error.what())}};
    }
}

} // namespace

class PlanLoader::Job final : public IProgress
{
public:
    Job(PlanLoader &loader, QString fileName, int serial)
        : m_loader(loader)
        , m_fileName(std::move(fileName))
        , m_serial(serial)
    {
    }

    const QString &FileName() const { return m_fileName; }
    int Serial() const { return m_serial; }
    void Cancel() { m_canceled = true; }

    void Report(qint64 done, qint64 total) override
    {
        const qint64 step = total > 0 ? done * kReportSteps / total : done / kReportBytes;
        if (step != m_step) {
            m_step = step;
            Post([&loader = m_loader, serial = m_serial, done, total] {
                if (loader.IsCurrent(serial)) {
                    Q_EMIT loader.progressed(done, total);
                }
            });
        }
    }
    bool IsCanceled() const override { return m_canceled; }

    void Run()
    {
        auto result = std::make_shared<PlanResult>(Read(m_fileName, *this));
        if (!m_canceled) {
            Post([&loader = m_loader, serial = m_serial, result = std::move(result)] {
                loader.Deliver(serial, result);
            });
        }
    }

private:
    /// The loader outlives its workers, and takes with it what is still queued when it goes.
    template <typename Function>
    void Post(Function function)
    {
        QMetaObject::invokeMethod(&m_loader, std::move(function), Qt::QueuedConnection);
    }

    PlanLoader &m_loader;
    QString m_fileName;
    int m_serial;
    std::atomic<bool> m_canceled = false;
    qint64 m_step = -1;
};

PlanLoader::PlanLoader(QObject *parent)
    : QObject(parent)
{
    m_workers.setMaxThreadCount(kMostWorkers);
}

PlanLoader::~PlanLoader()
{
    Cancel();
    m_workers.waitForDone();
}

void PlanLoader::Start(const QString &fileName)
{
    Cancel();
    m_job = std::make_shared<Job>(*this, fileName, ++m_lastSerial);
    m_workers.start([job = m_job] { job->Run(); });
}

void PlanLoader::Cancel()
{
    if (m_job != nullptr) {
        m_job->Cancel();
        m_job.reset();
    }
}

QString PlanLoader::FileName() const
{
    return m_job != nullptr ? m_job->FileName() : QString();
}

bool PlanLoader::IsCurrent(int serial) const
{
    return m_job != nullptr && m_job->Serial() == serial;
}

void PlanLoader::Deliver(int serial, const std::shared_ptr<PlanResult> &result)
{
    if (IsCurrent(serial)) {
        const QString fileName = m_job->FileName();
        m_job.reset();
        Q_EMIT finished(fileName, result);
    }
}

} // namespace korvane::planner
