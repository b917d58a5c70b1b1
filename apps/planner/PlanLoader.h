// Reads plans without keeping the window waiting.
#pragma once

#include "plan/PlanReader.h"

#include <QObject>
#include <QThreadPool>

#include <memory>

namespace korvane::planner {

/// Reads one plan at a time in a worker thread. Starting another load, or cancelling, gives up the
/// one that runs: nothing more is heard of it. The destructor waits until the workers have given
/// up.
class PlanLoader : public QObject
{
    Q_OBJECT

public:
    explicit PlanLoader(QObject *parent = nullptr);
    ~PlanLoader() override;

    void Start(const QString &fileName);
    void Cancel();
    bool IsLoading() const { return m_job != nullptr; }
    /// Of the load that runs.
    QString FileName() const;

Q_SIGNALS:
    /// Bytes of the file read so far and in all; `total` is 0 when that is not known.
    void progressed(qint64 done, qint64 total);
    /// The load has ended by itself: the plan is loaded or refused. A receiver may take the plan
    /// out of the result, and may start another load.
    void finished(const QString &fileName,
                  const std::shared_ptr<korvane::planner::PlanResult> &result);

private:
    class Job;

    bool IsCurrent(int serial) const;
    void Deliver(int serial, const std::shared_ptr<PlanResult> &result);

    std::shared_ptr<Job> m_job; ///< the load that runs
    int m_lastSerial = 0;
    QThreadPool m_workers;
};

} // namespace korvane::planner
