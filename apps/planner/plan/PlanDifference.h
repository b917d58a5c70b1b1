// How a plan differs from the one that was read from a file.
#pragma once

#include "plan/Plan.h"

#include <span>
#include <vector>

namespace korvane::planner {

/// Tells which items of two plans are the same: those with equal UIDs, where a UID is repeated in
/// equal order. Both plans are observed and have to live as long.
class PlanDifference
{
public:
    /// `before` is empty for a plan that was not read from a file of the format to be written.
    PlanDifference(const Plan &before, const Plan &now);

    const Plan &Before() const { return m_before; }
    const Plan &Now() const { return m_now; }
    const PlanTask &Task(int task) const { return m_now.Tasks.at(static_cast<std::size_t>(task)); }
    /// Null for a task that is new.
    const PlanTask *Former(int task) const;

    /// Index of the same item in the other plan, or kNoIndex.
    int TaskBefore(int task) const { return m_taskBefore.at(static_cast<std::size_t>(task)); }
    int TaskNow(int former) const { return m_taskNow.at(static_cast<std::size_t>(former)); }
    int ResourceBefore(int item) const
    {
        return m_resourceBefore.at(static_cast<std::size_t>(item));
    }
    int ResourceNow(int former) const { return m_resourceNow.at(static_cast<std::size_t>(former)); }

    /// UIDs to be written. They are the items' own ones, except where these are of no use to refer
    /// to the item: none, 0, or another one's.
    std::int64_t TaskUid(int task) const { return m_taskUids.at(static_cast<std::size_t>(task)); }
    std::int64_t ResourceUid(int resource) const
    {
        return m_resourceUids.at(static_cast<std::size_t>(resource));
    }
    /// Whether all tasks are the former ones, in the same order and at the same levels.
    bool IsOutlineSame() const { return m_isOutlineSame; }
    /// Whether the task is new, or its dates or parts are others than before.
    bool AreDatesChanged(int task) const;

    /// Indices of the links that lead to the task, in the plan's order.
    std::span<const int> LinksNow(int successor) const;
    std::span<const int> LinksBefore(int successor) const;

private:
    void NumberTasks();
    void NumberResources();

    const Plan &m_before;
    const Plan &m_now;
    std::vector<int> m_taskBefore;
    std::vector<int> m_taskNow;
    std::vector<int> m_resourceBefore;
    std::vector<int> m_resourceNow;
    std::vector<std::int64_t> m_taskUids;
    std::vector<std::int64_t> m_resourceUids;
    std::vector<int> m_linksNow;
    std::vector<int> m_linksBefore;
    bool m_isOutlineSame = true;
};

} // namespace korvane::planner
