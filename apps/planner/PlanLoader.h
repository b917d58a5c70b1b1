// Reads plans without keeping the window waiting.
#pragma once

#include "LoadJob.h"
#include "plan/PlanReader.h"

#include <QObject>

#include <memory>
#include <vector>

namespace korvane::planner {

/// Reads one plan at a time in a worker thread. Starting another load, or cancelling, gives up the
/// one that runs: nothing more is heard of it, and the next one does not wait for it. The
/// destructor waits until the workers have given up.
class PlanLoader : public QObject
{
    Q_OBJECT

public:
    explicit PlanLoader(QObject *parent = nullptr);
    ~PlanLoader() override;

    /// For the loads to come.
    void SetOptions(const ReadOptions &options) { m_options = options; }
    const ReadOptions &Options() const { return m_options; }
    void Start(const QString &fileName);
    void Cancel();
    bool IsLoading() const { return m_job != nullptr; }
    /// Of the load that runs.
    QString FileName() const;

Q_SIGNALS:
    /// Bytes of the file read so far and in all; `total` is 0 when that is not known. What has not
    /// been told yet when the next bytes are read is left out.
    void progressed(qint64 done, qint64 total);
    /// The load has ended by itself: the plan is loaded or refused. A receiver may take the plan
    /// out of the result, and may start another load.
    void finished(const QString &fileName,
                  const std::shared_ptr<korvane::planner::PlanResult> &result);
    /// From a worker to its loader.
    void newsArrived(QPrivateSignal);

private:
    using Job = TLoadJob<PlanResult>;

    void TakeNews();

    ReadOptions m_options;
    Job *m_job = nullptr;                     ///< the load that runs
    std::vector<std::unique_ptr<Job>> m_jobs; ///< also those given up that have not noticed yet
};

} // namespace korvane::planner
