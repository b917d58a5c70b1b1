// Saves plans without keeping the window waiting.
#pragma once

#include "plan/Plan.h"
#include "plan/PlanSource.h"

#include <QObject>

#include <memory>
#include <optional>

namespace korvane::planner {

/// Saves one plan at a time in a worker thread, as SavePlan does. The destructor waits until the
/// plan is saved, so that none is lost with the window.
class BackgroundSaver : public QObject
{
    Q_OBJECT

public:
    explicit BackgroundSaver(QObject *parent = nullptr);
    ~BackgroundSaver() override;

    /// Nothing may be being saved.
    void Start(Plan plan, std::shared_ptr<const PlanSource> source, const QString &fileName);
    bool IsSaving() const { return m_job != nullptr; }
    /// Until what is being saved has been, and `finished` has been emitted.
    void Wait();

Q_SIGNALS:
    void progressed(qint64 done, qint64 total);
    /// With the reason when the plan could not be saved. A receiver may save the next one.
    void finished(const QString &fileName, const std::optional<QString> &error);
    // From the worker to its saver.
    void jobProgressed(qint64 done, qint64 total, QPrivateSignal);
    void jobEnded(QPrivateSignal);

private:
    class Job;

    void Finish();

    std::unique_ptr<Job> m_job;
};

} // namespace korvane::planner
