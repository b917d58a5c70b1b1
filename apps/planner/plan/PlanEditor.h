// What a user can do to a plan.
#pragma once

#include "plan/PlanChange.h"
#include "plan/TaskCells.h"

#include <exception>
#include <utility>

namespace korvane::planner {

/// An edit is not possible. Nothing has changed then.
class PlanEditRefusal final : public std::exception
{
public:
    explicit PlanEditRefusal(QString reason)
        : m_reason(std::move(reason))
    {
    }

    /// A sentence for the user.
    const QString &Reason() const { return m_reason; }
    const char *what() const noexcept override { return "edit refused"; }

private:
    QString m_reason;
};

struct TaskDates
{
    int Task = 0;
    PlanSpan Dates;
};

/// What a form about one task shows.
struct TaskDetails
{
    QString Name;
    QString Notes;
    std::optional<PlanSpan> Dates;
    float PercentComplete = 0;
};

/// What was typed into a cell.
struct TaskCellText
{
    int Task = 0;
    TaskColumn Column = TaskColumn::Name;
    QString Text;
};

/// Edits a plan, each edit with a change that takes it back. A change is empty when the edit makes
/// no difference. Edits throw PlanEditRefusal.
///
/// Summary tasks take their dates from their subtasks whenever one of these changes; to move a
/// summary task moves everything below it. Milestones have no length. What stays of a split task
/// when its ends are moved keeps its place. No edit moves the successors of a task.
class PlanEditor
{
public:
    PlanEditor(Plan &plan, IPlanWatcher &watcher)
        : m_plan(plan)
        , m_watcher(watcher)
    {
    }

    // Values. Of tasks below others of the same edit nothing is done: these take them with them.
    PlanChange SetDates(std::span<const TaskDates> dates);
    /// Tasks without dates are left out.
    PlanChange Shift(std::span<const int> tasks, TDateTime days);
    PlanChange Rename(int task, const QString &name);
    PlanChange SetDetails(int task, const TaskDetails &details);
    /// A start moves its task, which keeps its working time; a finish and a duration leave the
    /// start where it is. A text that is shown already changes nothing. What summary tasks derive
    /// from the task is left for RefreshSummaries, and links that go are left for RemoveForgotten,
    /// so that it is worked out once for many cells.
    PlanChange SetCell(const TaskCellText &cell, const TaskCells &cells, PredecessorIndex &links);
    /// Removes the links that the index has forgotten.
    PlanChange RemoveForgotten(PredecessorIndex &links);
    PlanChange RefreshSummaries(std::span<const int> tasks);

    // The outline. Tasks below others of the same edit go with them.
    /// A task of the given name and dates below `parent` (kNoIndex: at the top), before its
    /// subtask `before` (kNoIndex: as the last one).
    PlanChange Insert(int parent, int before, const QString &name, std::optional<PlanSpan> dates);
    /// That many tasks at the end and at the top, all alike.
    PlanChange Append(int count, const QString &name, const PlanSpan &dates);
    PlanChange Delete(std::span<const int> tasks);
    /// Copies stand behind their originals and so many days later, with copies of their subtasks
    /// and of the links and assignments among them.
    PlanChange Duplicate(std::span<const int> tasks, TDateTime days);
    /// In their order, below `parent` and before its subtask `before`, as for Insert.
    PlanChange MoveTo(std::span<const int> tasks, int parent, int before);
    /// Makes each the last subtask of the task before it.
    PlanChange Indent(std::span<const int> tasks);
    /// Places each behind its summary task.
    PlanChange Outdent(std::span<const int> tasks);
    /// Exchanges each with its neighbour of the same level.
    PlanChange MoveUp(std::span<const int> tasks);
    PlanChange MoveDown(std::span<const int> tasks);

    // Links.
    PlanChange AddLink(const PlanLink &link);
    /// Links each task with the next one, finish to start, where they are not linked yet.
    PlanChange LinkInOrder(std::span<const int> tasks);
    PlanChange ChangeLink(int link, PlanLinkType type, PlanLag lag);
    PlanChange RemoveLinks(std::span<const int> links);
    /// Why the tasks cannot be linked; empty when they can.
    static QString WhyNotLinked(const Plan &plan, int predecessor, int successor);
    /// The same at the cost of the tasks between them.
    static QString WhyNotLinked(const Plan &plan, int predecessor, int successor,
                                PredecessorIndex &links);

private:
    /// Tells where tasks stand after one was moved.
    struct TaskMove
    {
        int From = 0;
        int Count = 0;
        int To = 0;

        int operator()(int task) const
        {
            return task == kNoIndex ? kNoIndex : IndexAfterMove(From, Count, To, task);
        }
    };

    /// Runs the steps, and takes them back when they throw.
    template <typename Steps>
    PlanChange Edit(Steps steps);
    [[noreturn]] static void Refuse(const QString &reason);
    static QString CheckedName(const QString &name);
    static void ShiftTask(PlanTask &task, TDateTime days);
    void Do(PlanStep step);
    void Set(int task, PlanTask value);
    void ApplyDates(std::span<const TaskDates> dates);
    void ApplyDate(const TaskDates &wanted);
    void ApplyShift(int task, TDateTime days);
    void ApplyStart(int index, TDateTime start);
    void ApplyFinish(int index, TDateTime finish);
    void ApplyDuration(int index, double minutes, bool isElapsed);
    void ApplyPredecessors(int task, const std::vector<PlanLink> &wanted, PredecessorIndex &links);
    void ApplyAssignments(int task, std::vector<PlanAssignment> wanted);
    void ApplyCell(const TaskCellText &cell, const TaskCells &cells, PredecessorIndex &links);
    /// Copies of the tasks with all below them; tells where the copy of each task is to stand.
    TaskRows Copies(std::span<const int> tops, TDateTime days, std::vector<int> &copyOf) const;
    TaskMove ApplyMove(int task, int parent, int before);
    void CheckMove(int task, int parent) const;
    void CheckRoom(std::size_t count) const;
    void MoveEach(std::span<const int> tasks);
    void InsertLinks(std::vector<PlanLink> links);
    /// Puts right what the tasks and their ancestors derive from their subtasks.
    void Refresh(std::span<const int> tasks);
    PlanTask Refreshed(int index) const;

    Plan &m_plan;
    IPlanWatcher &m_watcher;
    PlanChange m_change; ///< of the edit that runs
};

template <typename Steps>
PlanChange PlanEditor::Edit(Steps steps)
{
    m_change = {};
    try {
        steps();
    } catch (...) {
        m_change.Undo(m_plan, m_watcher);
        throw;
    }
    return std::exchange(m_change, {});
}

/// The name in single quotes, or what stands for it, short enough for a menu or a message.
QString QuotedName(const PlanTask &task);

/// The largest UID of a task, plus one.
std::int64_t NextTaskUid(const Plan &plan);

} // namespace korvane::planner
