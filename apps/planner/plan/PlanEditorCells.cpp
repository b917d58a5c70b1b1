// Values that are typed into the cells of a table.
#include "plan/PlanEditor.h"
#include "plan/PlannerText.h"
#include "plan/TaskCells.h"

#include <algorithm>
#include <cmath>

namespace korvane::planner {

namespace {

/// The first working instant at or after it.
TDateTime WorkingStart(const WorkCalendar &calendar, TDateTime instant)
{
    constexpr double kMinute = 1.0 / kMinutesPerDay;
    return calendar.FinishAfter(instant, 1) - kMinute;
}

} // namespace

/// What the task lasts stays: its working time, or where it has none or stands still in between its
/// length on the calendar.
void PlanEditor::ApplyStart(int index, TDateTime start)
{
    const PlanTask &task = m_plan.Tasks.at(index);
    const WorkCalendar &calendar = m_plan.ProjectCalendar();
    if (!task.Dates) {
        const TDateTime first = WorkingStart(calendar, start);
        return ApplyDate({index, {first, calendar.FinishAfter(first, calendar.DayMinutes())}});
    }
    const double minutes = calendar.MinutesBetween(task.Dates->Start, task.Dates->Finish);
    TDateTime finish = task.Dates->Finish + (start - task.Dates->Start);
    if (!task.HasChildren && task.Parts.empty() && !task.Milestone && minutes > 0) {
        finish = calendar.FinishAfter(start, minutes);
    }
    ApplyDate({index, {start, finish}});
}

void PlanEditor::ApplyFinish(int index, TDateTime finish)
{
    const PlanTask &task = m_plan.Tasks.at(index);
    const WorkCalendar &calendar = m_plan.ProjectCalendar();
    if (!task.Dates) {
        return ApplyDate({index, {calendar.StartBefore(finish, calendar.DayMinutes()), finish}});
    }
    const bool isShift = task.Milestone || task.Dates->Start == task.Dates->Finish;
    ApplyDate({index, {isShift ? finish : task.Dates->Start, finish}});
}

void PlanEditor::ApplyDuration(int index, double minutes, bool isElapsed)
{
    const PlanTask &task = m_plan.Tasks.at(index);
    const WorkCalendar &calendar = m_plan.ProjectCalendar();
    TDateTime start = task.Dates ? task.Dates->Start : 0;
    if (!task.Dates) {
        const auto range = m_plan.Range();
        start = WorkingStart(calendar, range ? range->Start : m_plan.Start.value_or(0));
    }
    if (task.HasChildren) {
        Refuse(PlannerText::tr("%1 is a summary task: its subtasks make its length.")
                   .arg(QuotedName(task)));
    }
    const TDateTime finish =
        isElapsed ? start + minutes / kMinutesPerDay : calendar.FinishAfter(start, minutes);
    ApplyDate({index, {start, minutes == 0 ? start : finish}});
}

/// Links that stay keep their place, so that what shows them does as well.
void PlanEditor::ApplyPredecessors(int task, const std::vector<PlanLink> &wanted,
                                   PredecessorIndex &links)
{
    std::vector<int> gone;
    std::vector<PlanLink> added = wanted;
    for (const int index : links.LinksTo(m_plan, task)) {
        const PlanLink &link = m_plan.Links[index];
        const auto found = std::ranges::find(added, link.Predecessor, &PlanLink::Predecessor);
        if (found == added.end()) {
            gone.push_back(index);
        } else {
            if (*found != link) {
                Do(LinkSwap{index, *found});
            }
            added.erase(found);
        }
    }
    for (const int index : gone) {
        links.Forget(index);
    }
    for (const PlanLink &link : added) {
        const QString reason = WhyNotLinked(m_plan, link.Predecessor, task, links);
        if (!reason.isEmpty()) {
            links.OutOfDate(); // what was done is taken back
            std::ranges::for_each(gone, [&links](int index) { links.Remember(index); });
            Refuse(reason);
        }
        InsertLinks({link});
    }
}

void PlanEditor::ApplyAssignments(int task, std::vector<PlanAssignment> wanted)
{
    if (!std::ranges::equal(m_plan.AssignmentsOf(task), wanted)) {
        Do(AssignmentSwap{task, std::move(wanted)});
    }
}

void PlanEditor::ApplyCell(const TaskCellText &cell, const TaskCells &cells,
                           PredecessorIndex &links)
{
    const int index = cell.Task;
    const WorkCalendar &calendar = m_plan.ProjectCalendar();
    const PlanTask &task = m_plan.Tasks.at(index);
    const auto former = [&] {
        return task.Dates ? *task.Dates : m_plan.Range().value_or(PlanSpan{});
    };
    switch (cell.Column) {
    case TaskColumn::Number:
        Refuse(PlannerText::tr("The numbers of tasks come from their order."));
    case TaskColumn::Name: {
        PlanTask value = task;
        value.Name = CheckedName(cell.Text);
        return Set(index, std::move(value));
    }
    case TaskColumn::Start:
        return ApplyStart(index, cells.ParseDate(cell.Text, former().Start));
    case TaskColumn::Finish:
        return ApplyFinish(index, cells.ParseDate(cell.Text, former().Finish));
    case TaskColumn::Duration: {
        const auto duration = cells.ParseDuration(cell.Text, calendar.DayMinutes());
        return ApplyDuration(index, duration.Minutes, duration.IsElapsed);
    }
    case TaskColumn::Predecessors:
        return ApplyPredecessors(index, cells.ParsePredecessors(m_plan, index, cell.Text), links);
    case TaskColumn::Resources:
        return ApplyAssignments(index, cells.ParseResources(m_plan, index, cell.Text));
    case TaskColumn::PercentComplete: {
        PlanTask value = task;
        value.PercentComplete = cells.ParsePercent(cell.Text);
        return Set(index, std::move(value));
    }
    }
}

PlanChange PlanEditor::SetCell(const TaskCellText &cell, const TaskCells &cells,
                               PredecessorIndex &links)
{
    return Edit([&] {
        m_change.TasksBefore = m_change.TasksAfter = {cell.Task};
        const QString shown = cells.Text(m_plan, cell.Task, cell.Column, links);
        // What is shown may be less exact than what is there.
        if (cell.Text.simplified() != shown.simplified()) {
            ApplyCell(cell, cells, links);
        }
    });
}

PlanChange PlanEditor::RemoveForgotten(PredecessorIndex &links)
{
    return Edit([&] {
        LinkRows gone{links.TakeForgotten(), {}, true};
        if (!gone.Indices.empty()) {
            Do(std::move(gone));
        }
    });
}

PlanChange PlanEditor::RefreshSummaries(std::span<const int> tasks)
{
    return Edit([&] {
        std::vector<int> parents;
        for (const int task : tasks) {
            parents.push_back(m_plan.Tasks.at(task).Parent);
        }
        Refresh(parents);
    });
}

} // namespace korvane::planner
