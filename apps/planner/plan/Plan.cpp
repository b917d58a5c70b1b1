#include "plan/Plan.h"

#include <algorithm>

namespace korvane::planner {

std::span<const PlanAssignment> Plan::AssignmentsOf(int task) const
{
    const auto range = std::ranges::equal_range(Assignments, task, {}, &PlanAssignment::Task);
    return {range.begin(), range.end()};
}

const WorkCalendar &Plan::ProjectCalendar() const
{
    static const WorkCalendar kOffice;
    return Calendar == kNoIndex ? kOffice : Calendars.at(static_cast<std::size_t>(Calendar)).Times;
}

std::optional<PlanSpan> Plan::Range() const
{
    std::optional<PlanSpan> range;
    for (const PlanTask &task : Tasks) {
        if (!task.Dates) {
            continue;
        }
        if (!range) {
            range = task.Dates;
        }
        range->Start = std::min(range->Start, task.Dates->Start);
        range->Finish = std::max(range->Finish, task.Dates->Finish);
    }
    return range;
}

} // namespace korvane::planner
