// What the user does to a document's plan, as steps of its history.
#pragma once

#include "plan/PlanEditor.h"

#include <QObject>

#include <functional>

namespace korvane::planner {

class PlanDocument;

/// Every edit is one step of the history, with a text that names it; edits that change nothing are
/// none. An edit that is not possible changes nothing and is reported.
///
/// Moves with the keyboard that follow each other within a second are one step.
class PlanEdits : public QObject
{
    Q_OBJECT

public:
    enum class DateSource : std::uint8_t { Gesture, Keyboard };

    /// Document and watcher are observed; the watcher follows all changes.
    PlanEdits(PlanDocument &document, IPlanWatcher &watcher, QObject *parent = nullptr);

    const Plan &GetPlan() const;

    /// All links between two of the tasks; of a single task all that it has.
    std::vector<int> LinksAmong(const std::vector<int> &tasks) const;

    // Each returns whether the plan has changed.
    bool SetDates(const std::vector<TaskDates> &dates, DateSource source = DateSource::Gesture);
    bool Rename(int task, const QString &name);
    bool SetDetails(int task, const TaskDetails &details);
    /// Cells that are set between the two are one step, of the name that `text` gives for the
    /// number of cells. They nest.
    void BeginCells();
    void EndCells(PredecessorIndex &links, const std::function<QString(int count)> &text);
    /// Throws PlanEditRefusal instead of reporting. Only between BeginCells and EndCells, with the
    /// same index.
    void SetCell(const TaskCellText &cell, const TaskCells &cells, PredecessorIndex &links);
    /// Likewise only there: that many new tasks at the end of the plan. False when it has no room.
    bool AppendTasks(int count);
    /// A new task above the given one and on its level, or at the end of the plan for kNoIndex.
    bool Insert(int above);
    bool Delete(const std::vector<int> &tasks);
    bool Duplicate(const std::vector<int> &tasks, TDateTime days);
    /// Below `parent`, before its subtask `before`; kNoIndex stands for the top and for the end.
    bool MoveTo(const std::vector<int> &tasks, int parent, int before);
    bool Indent(const std::vector<int> &tasks);
    bool Outdent(const std::vector<int> &tasks);
    bool MoveUp(const std::vector<int> &tasks);
    bool MoveDown(const std::vector<int> &tasks);
    bool Link(int predecessor, int successor);
    bool LinkInOrder(const std::vector<int> &tasks);
    bool ChangeLink(int link, PlanLinkType type, PlanLag lag);
    bool RemoveLinks(const std::vector<int> &links);
    /// Removes LinksAmong the tasks.
    bool Unlink(const std::vector<int> &tasks);

    /// Milliseconds from any moment on; by default those of the system's steady clock.
    std::function<qint64()> Clock;

Q_SIGNALS:
    /// Why an edit was not possible, for the user.
    void refused(const QString &reason);
    /// What a change of the outline, an undo or a redo was about; for selection and view.
    void concerned(const std::vector<int> &tasks);

private:
    class Command;
    friend class Command;

    template <typename Function>
    bool Do(const QString &text, Function edit, std::optional<qint64> nudgeTime = {});
    template <typename Function>
    bool Rearrange(const QString &text, Function edit);
    QString NamesOf(const std::vector<int> &tasks) const;
    TaskDates NewTaskDates(int above) const;

    PlanDocument &m_document;
    IPlanWatcher &m_watcher;
    PlanChange m_cells;             ///< that have been set since BeginCells
    std::vector<int> m_derivedFrom; ///< tasks whose cells summary tasks may follow
    int m_cellCount = 0;
    int m_cellDepth = 0;
};

} // namespace korvane::planner
