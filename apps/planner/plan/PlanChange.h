// Reversible changes of a plan.
#pragma once

#include "plan/Plan.h"

#include <span>
#include <variant>
#include <vector>

namespace korvane::planner {

/// Follows a plan through its changes, one step at a time. Indices and the plan are those after the
/// step, unless told otherwise. While a change runs, what is derived may lag behind: the dates of
/// summary tasks and HasChildren are put right by later steps.
class IPlanWatcher
{
public:
    virtual ~IPlanWatcher() = default;

    /// Anything but its place in the outline; its assignments, too.
    virtual void TaskChanged(int task) = 0;
    /// Ascending.
    virtual void TasksInserted(std::span<const int> tasks) = 0;
    /// Ascending, as the tasks were counted before. Their links have been removed already.
    virtual void TasksRemoved(std::span<const int> tasks) = 0;
    /// A task and its `count` - 1 descendants stood at `from` and stand at `to` now; its parent and
    /// all levels may be others.
    virtual void SubtreeMoved(int from, int count, int to) = 0;
    virtual void LinkChanged(int link) = 0;
    /// Ascending.
    virtual void LinksInserted(std::span<const int> links) = 0;
    /// Ascending, as the links were counted before.
    virtual void LinksRemoved(std::span<const int> links) = 0;
};

/// Another value of a task; its place in the outline stays.
struct TaskSwap
{
    int Task = 0;
    PlanTask Other;
};

/// Another value of a link.
struct LinkSwap
{
    int Link = 0;
    PlanLink Other;
};

/// Tasks with all their descendants and their assignments; no link leads to any of them. While they
/// are out of the plan they are kept here, with the parents that they have in it.
struct TaskRows
{
    std::vector<int> Indices; ///< ascending, in the plan that has the tasks
    std::vector<PlanTask> Kept;
    std::vector<PlanAssignment> KeptAssignments;
    bool IsInPlan = false;
};

/// Links that come and go.
struct LinkRows
{
    std::vector<int> Indices; ///< ascending, in the plan that has the links
    std::vector<PlanLink> Kept;
    bool IsInPlan = false;
};

/// A task with its descendants goes to another place.
struct SubtreeMove
{
    int From = 0;
    int To = 0;            ///< index of the task afterwards
    int Parent = kNoIndex; ///< as counted afterwards
};

/// Other assignments of a task.
struct AssignmentSwap
{
    int Task = 0;
    std::vector<PlanAssignment> Other;
};

using PlanStep = std::variant<TaskSwap, LinkSwap, TaskRows, LinkRows, SubtreeMove, AssignmentSwap>;

/// Where an item stands after others have come (`inserted`: where they stand then), gone
/// (`removed`: where they stood; it is none of them), or after SubtreeMoved. Indices ascend.
int IndexAfterInsertion(std::span<const int> inserted, int index);
int IndexAfterRemoval(std::span<const int> removed, int index);
int IndexAfterMove(int from, int count, int to, int index);

/// Takes the step, and turns it into the one that leads back exactly.
void Flip(Plan &plan, PlanStep &step, IPlanWatcher &watcher);

/// The steps of one edit, which begin and end with a plan whose derived values are right. They can
/// be taken back and taken again, alternately, as long as nothing else has changed the plan in
/// between.
class PlanChange
{
public:
    bool IsEmpty() const { return m_steps.empty(); }
    /// Takes the step and remembers it.
    void Do(Plan &plan, PlanStep step, IPlanWatcher &watcher);
    void Undo(Plan &plan, IPlanWatcher &watcher);
    void Redo(Plan &plan, IPlanWatcher &watcher);
    /// Joins a change that was made right after this one. Of values that both set only the first
    /// and the last are kept, so that a long row of joined changes stays small. False, and nothing
    /// happens, unless both only set values of tasks.
    bool Join(const PlanChange &next);
    /// Adds the steps of a change that was made right after this one.
    void Append(PlanChange next);

    /// What the edit is about, to be selected and shown: as counted while it is done and while it
    /// is taken back.
    std::vector<int> TasksAfter;
    std::vector<int> TasksBefore;

private:
    bool OnlySetsTasks() const;

    std::vector<PlanStep> m_steps;
};

} // namespace korvane::planner
