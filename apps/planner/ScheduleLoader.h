// Reads calendars and programmes without keeping the window waiting.
#pragma once

#include "LoadJob.h"
#include "SchedulePages.h"

#include <QObject>

#include <memory>

namespace korvane::planner {

/// Reads one file in a worker thread. The destructor gives the load up and waits until the worker
/// has noticed.
class ScheduleLoader : public QObject
{
    Q_OBJECT

public:
    explicit ScheduleLoader(QObject *parent = nullptr);
    ~ScheduleLoader() override;

    /// Once.
    void Start(const QString &fileName);

Q_SIGNALS:
    void progressed(qint64 done, qint64 total);
    /// The file is read or refused. A receiver may take the result and delete the loader later.
    void finished(const std::shared_ptr<korvane::planner::ScheduleResult> &result);
    /// From the worker to its loader.
    void newsArrived(QPrivateSignal);

private:
    void TakeNews();

    std::unique_ptr<TLoadJob<ScheduleResult>> m_job;
};

} // namespace korvane::planner
