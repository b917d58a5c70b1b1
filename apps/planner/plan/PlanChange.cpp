#include "plan/PlanChange.h"

#include "plan/PlanOutline.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace korvane::planner {

namespace {

/// Takes the items at the indices out and returns them.
template <typename Item>
std::vector<Item> TakeOut(std::vector<Item> &items, std::span<const int> indices)
{
    std::vector<Item> taken;
    taken.reserve(indices.size());
    if (indices.empty()) {
        return taken;
    }
    std::size_t to = indices.front();
    for (std::size_t from = to; from < items.size(); ++from) {
        if (taken.size() < indices.size() && from == std::size_t(indices[taken.size()])) {
            taken.push_back(std::move(items[from]));
        } else {
            items[to++] = std::move(items[from]);
        }
    }
    items.resize(to);
    return taken;
}

/// Puts items in so that they come to stand at the indices.
template <typename Item>
void PutIn(std::vector<Item> &items, std::span<const int> indices, std::vector<Item> &added)
{
    std::size_t from = items.size();
    items.resize(items.size() + added.size());
    std::size_t to = items.size();
    // From the back, until all are in their place.
    for (std::size_t left = added.size(); left > 0;) {
        --to;
        if (to == std::size_t(indices[left - 1])) {
            items[to] = std::move(added[--left]);
        } else {
            items[to] = std::move(items[--from]);
        }
    }
    added.clear();
}

/// Calls `use` with every index of a task from the task `first` on, links and assignments included.
template <typename Use>
void ForEachTaskIndex(Plan &plan, int first, Use use)
{
    for (std::size_t task = first; task < plan.Tasks.size(); ++task) {
        use(plan.Tasks[task].Parent);
    }
    for (PlanLink &link : plan.Links) {
        use(link.Predecessor);
        use(link.Successor);
    }
    const auto from = std::ranges::lower_bound(plan.Assignments, first, {}, &PlanAssignment::Task);
    for (auto assignment = from; assignment != plan.Assignments.end(); ++assignment) {
        use(assignment->Task);
    }
}

void FlipStep(Plan &plan, TaskSwap &step, IPlanWatcher &watcher)
{
    std::swap(plan.Tasks.at(step.Task), step.Other);
    watcher.TaskChanged(step.Task);
}

void FlipStep(Plan &plan, LinkSwap &step, IPlanWatcher &watcher)
{
    std::swap(plan.Links.at(step.Link), step.Other);
    watcher.LinkChanged(step.Link);
}

void TakeOutRows(Plan &plan, TaskRows &step)
{
    const std::span<const int> indices = step.Indices;
    const auto isTaken = [&](const PlanAssignment &assignment) {
        return std::ranges::binary_search(indices, assignment.Task);
    };
    std::ranges::copy_if(plan.Assignments, std::back_inserter(step.KeptAssignments), isTaken);
    std::erase_if(plan.Assignments, isTaken);
    step.Kept = TakeOut(plan.Tasks, indices);
    ForEachTaskIndex(plan, indices.front(),
                     [&](int &task) { task = IndexAfterRemoval(indices, task); });
}

void PutInRows(Plan &plan, TaskRows &step)
{
    const std::span<const int> indices = step.Indices;
    // The tasks that stand at or behind the first index now.
    ForEachTaskIndex(plan, indices.front(),
                     [&](int &task) { task = IndexAfterInsertion(indices, task); });
    PutIn(plan.Tasks, indices, step.Kept);
    const auto middle = static_cast<std::ptrdiff_t>(plan.Assignments.size());
    plan.Assignments.insert(plan.Assignments.end(), step.KeptAssignments.begin(),
                            step.KeptAssignments.end());
    std::ranges::inplace_merge(plan.Assignments, plan.Assignments.begin() + middle, {},
                               &PlanAssignment::Task);
    step.KeptAssignments.clear();
}

void FlipStep(Plan &plan, TaskRows &step, IPlanWatcher &watcher)
{
    if (step.Indices.empty()) {
        return;
    }
    step.IsInPlan = !step.IsInPlan;
    if (step.IsInPlan) {
        PutInRows(plan, step);
        watcher.TasksInserted(step.Indices);
    } else {
        TakeOutRows(plan, step);
        watcher.TasksRemoved(step.Indices);
    }
}

void FlipStep(Plan &plan, LinkRows &step, IPlanWatcher &watcher)
{
    step.IsInPlan = !step.IsInPlan;
    if (step.IsInPlan) {
        PutIn(plan.Links, step.Indices, step.Kept);
        watcher.LinksInserted(step.Indices);
    } else {
        step.Kept = TakeOut(plan.Links, step.Indices);
        watcher.LinksRemoved(step.Indices);
    }
}

/// Exchanges the neighbouring ranges [first, middle) and [middle, last) of tasks.
void Rotate(Plan &plan, int first, int middle, int last)
{
    const auto assignmentsFrom = [&](int task) {
        return std::ranges::lower_bound(plan.Assignments, task, {}, &PlanAssignment::Task);
    };
    std::rotate(assignmentsFrom(first), assignmentsFrom(middle), assignmentsFrom(last));
    std::rotate(plan.Tasks.begin() + first, plan.Tasks.begin() + middle, plan.Tasks.begin() + last);
    ForEachTaskIndex(plan, first, [=](int &task) {
        task = IndexAfterMove(first, middle - first, first + last - middle, task);
    });
}

void FlipStep(Plan &plan, SubtreeMove &step, IPlanWatcher &watcher)
{
    const int count = SubtreeEnd(plan, step.From) - step.From;
    const int oldParent = plan.Tasks.at(step.From).Parent;
    const int first = std::min(step.From, step.To);
    const int last = std::max(step.From, step.To) + count;
    Rotate(plan, first, step.From < step.To ? step.From + count : step.From, last);
    PlanTask &task = plan.Tasks.at(step.To);
    const int newLevel = step.Parent == kNoIndex ? 1 : plan.Tasks.at(step.Parent).Level + 1;
    const int rise = newLevel - task.Level;
    task.Parent = step.Parent;
    for (int i = step.To; i < step.To + count; ++i) {
        plan.Tasks[i].Level = static_cast<std::int16_t>(plan.Tasks[i].Level + rise);
    }
    watcher.SubtreeMoved(step.From, count, step.To);
    // The way back: the old parent stands before the task, so that leaving does not move it.
    std::swap(step.From, step.To);
    step.Parent = oldParent;
}

void FlipStep(Plan &plan, AssignmentSwap &step, IPlanWatcher &watcher)
{
    const auto [first, last] =
        std::ranges::equal_range(plan.Assignments, step.Task, {}, &PlanAssignment::Task);
    std::vector<PlanAssignment> former(first, last);
    const auto place = plan.Assignments.erase(first, last);
    plan.Assignments.insert(place, step.Other.begin(), step.Other.end());
    step.Other = std::move(former);
    watcher.TaskChanged(step.Task);
}

} // namespace

int IndexAfterInsertion(std::span<const int> inserted, int index)
{
    // How many come to stand before it: those with no more than `index` old ones before them.
    std::size_t low = 0;
    std::size_t high = inserted.size();
    while (low < high) {
        const std::size_t middle = (low + high) / 2;
        if (inserted[middle] - static_cast<int>(middle) <= index) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return index + static_cast<int>(low);
}

int IndexAfterRemoval(std::span<const int> removed, int index)
{
    return index - static_cast<int>(std::ranges::lower_bound(removed, index) - removed.begin());
}

int IndexAfterMove(int from, int count, int to, int index)
{
    if (index >= from && index < from + count) {
        return index - from + to;
    }
    if (from < to && index >= from + count && index < to + count) {
        return index - count;
    }
    return index >= to && index < from ? index + count : index;
}

void Flip(Plan &plan, PlanStep &step, IPlanWatcher &watcher)
{
    std::visit([&](auto &each) { FlipStep(plan, each, watcher); }, step);
}

void PlanChange::Do(Plan &plan, PlanStep step, IPlanWatcher &watcher)
{
    m_steps.push_back(std::move(step));
    Flip(plan, m_steps.back(), watcher);
}

void PlanChange::Undo(Plan &plan, IPlanWatcher &watcher)
{
    for (std::size_t i = m_steps.size(); i-- > 0;) {
        Flip(plan, m_steps[i], watcher);
    }
    // Of joined changes a later one may be about tasks that an earlier one has added at the end.
    std::erase_if(TasksBefore, [&plan](int task) { return task >= std::ssize(plan.Tasks); });
}

void PlanChange::Redo(Plan &plan, IPlanWatcher &watcher)
{
    for (PlanStep &step : m_steps) {
        Flip(plan, step, watcher);
    }
}

void PlanChange::Append(PlanChange next)
{
    std::ranges::move(next.m_steps, std::back_inserter(m_steps));
    for (auto tasks : {&PlanChange::TasksAfter, &PlanChange::TasksBefore}) {
        std::vector<int> &all = this->*tasks;
        all.insert(all.end(), (next.*tasks).begin(), (next.*tasks).end());
    }
}

bool PlanChange::OnlySetsTasks() const
{
    return std::ranges::all_of(
        m_steps, [](const PlanStep &step) { return std::holds_alternative<TaskSwap>(step); });
}

bool PlanChange::Join(const PlanChange &next)
{
    if (!OnlySetsTasks() || !next.OnlySetsTasks()) {
        return false;
    }
    const auto taskOf = [](const PlanStep &step) { return std::get<TaskSwap>(step).Task; };
    QSet<int> known;
    for (const PlanStep &step : m_steps) {
        known.insert(taskOf(step));
    }
    // A step holds the value before it, so that the first one of a task leads back furthest.
    for (const PlanStep &step : next.m_steps) {
        if (!known.contains(taskOf(step))) {
            known.insert(taskOf(step));
            m_steps.push_back(step);
        }
    }
    return true;
}

} // namespace korvane::planner
