#include "PlanLoader.h"

#include "plan/PlanFile.h"

#include <QPointer>

#include <exception>

namespace korvane::planner {

namespace {

PlanResult Read(const QString &fileName, const ReadOptions &options, IProgress &progress)
{
    try {
        return LoadPlan(fileName, PlanReaders::Builtin(options), progress);
    } catch (const std::exception &error) {
        return {PlanStatus::Refused, {}, {0, QString::fromUtf8(error.what())}};
    }
}

} // namespace

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
    m_jobs.push_back(std::make_unique<Job>(
        fileName,
        [options = m_options](const QString &name, IProgress &progress) {
            return Read(name, options, progress);
        },
        [this] { Q_EMIT newsArrived(QPrivateSignal()); }));
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
    if (alive && m_job == job && news.Ended != nullptr) {
        const QString fileName = m_job->FileName();
        m_job = nullptr;
        Q_EMIT finished(fileName, news.Ended);
    }
}

} // namespace korvane::planner
