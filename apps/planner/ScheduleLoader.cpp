#include "ScheduleLoader.h"

namespace korvane::planner {

ScheduleLoader::ScheduleLoader(QObject *parent)
    : QObject(parent)
{
    connect(this, &ScheduleLoader::newsArrived, this, &ScheduleLoader::TakeNews,
            Qt::QueuedConnection);
}

ScheduleLoader::~ScheduleLoader()
{
    if (m_job != nullptr) {
        m_job->Cancel();
    }
}

void ScheduleLoader::Start(const QString &fileName)
{
    m_job = std::make_unique<TLoadJob<ScheduleResult>>(
        fileName, ReadSchedule, [this] { Q_EMIT newsArrived(QPrivateSignal()); });
}

void ScheduleLoader::TakeNews()
{
    const auto news = m_job->TakeNews();
    if (news.Progressed) {
        Q_EMIT progressed(news.Done, news.Total);
    }
    if (news.Ended != nullptr) {
        Q_EMIT finished(news.Ended);
    }
}

} // namespace korvane::planner
