// The plan that is worked on, with its file and the history of its changes.
#pragma once

#include "plan/Plan.h"

#include <QObject>
#include <QUndoStack>

#include <memory>
#include <utility>

namespace korvane::planner {

class PlanSource;

/// Owns the plan; everything that shows it observes the document. Another plan is put in its place
/// by SetPlan; this one changes by commands in the history only.
class PlanDocument : public QObject
{
    Q_OBJECT

public:
    explicit PlanDocument(QObject *parent = nullptr);
    ~PlanDocument() override;

    const Plan &GetPlan() const { return m_plan; }
    /// Whether a plan has been set.
    bool HasPlan() const { return m_hasPlan; }
    /// Another plan, unmodified and with an empty history. `source` is what it was read from; null
    /// when nothing of that is needed to write it.
    void SetPlan(Plan plan, const QString &fileName = {},
                 std::shared_ptr<const PlanSource> source = {});

    /// Where the plan lies; empty when it lies in no file.
    const QString &FileName() const { return m_fileName; }
    const std::shared_ptr<const PlanSource> &Source() const { return m_source; }
    /// Tells states of the plan apart: another number after every change.
    int Revision() const { return m_revision; }
    /// The plan as it was at a revision lies in that file. Changes since then are still to be
    /// saved.
    void SetSaved(const QString &fileName, int revision);
    /// The plan differs from its file, although there is nothing to undo.
    void SetModified() { m_history.resetClean(); }

    QUndoStack &History() { return m_history; }
    bool IsModified() const { return !m_history.isClean(); }
    /// Calls `change(plan)` and announces it. For the commands of the history, nobody else: what
    /// they do has to be undone by them. The plan's rules hold again afterwards, and new tasks have
    /// UIDs of their own.
    template <typename Function>
    void Edit(Function change)
    {
        change(m_plan);
        ++m_revision;
        Q_EMIT changed();
    }

Q_SIGNALS:
    /// Another plan is here; references into the former one hold until all receivers are done.
    void replaced();
    /// A command has changed the plan; indices and references into it may have changed as well.
    void changed();
    void fileNameChanged(const QString &fileName);
    /// The plan differs from what lies in its file, or no longer does.
    void modifiedChanged(bool modified);

private:
    Plan m_plan;
    bool m_hasPlan = false;
    QString m_fileName;
    std::shared_ptr<const PlanSource> m_source;
    QUndoStack m_history;
    int m_revision = 0;
};

} // namespace korvane::planner
