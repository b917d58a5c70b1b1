// Finds the stretches of split tasks in the work that a file spreads over time.
#pragma once

#include "plan/Plan.h"

namespace korvane::planner {

/// Whether a stretch of an assignment says that there is work in it, or expressly that there is
/// none. Days off say neither.
enum class WorkKind : std::uint8_t { Work, NoWork };

/// Collects what the assignments of all tasks say, in any order.
class PlanSplits
{
public:
    /// More are not kept; splits among them are not found.
    static constexpr std::size_t kMaxStretches = 4'000'000;

    /// `task`: any number that stands for one task, the same for all of its stretches.
    void Add(std::int64_t task, const PlanSpan &span, WorkKind kind);

    /// Calls `use(task, parts)` for every task whose work pauses in working time; the parts are
    /// ascending, begin and end in working time, and are two at least.
    template <typename Use>
    void ForEachSplit(const WorkCalendar &calendar, Use use);

private:
    struct Stretch
    {
        std::int64_t Task = 0;
        PlanSpan Span;
        WorkKind Kind = WorkKind::Work;
    };

    void Sort();
    static std::vector<PlanSpan> PartsOf(std::span<const Stretch> stretches,
                                         const WorkCalendar &calendar);

    std::vector<Stretch> m_stretches;
};

template <typename Use>
void PlanSplits::ForEachSplit(const WorkCalendar &calendar, Use use)
{
    Sort();
    for (std::size_t first = 0, last = 0; first < m_stretches.size(); first = last) {
        while (last < m_stretches.size() && m_stretches[last].Task == m_stretches[first].Task) {
            ++last;
        }
        std::vector<PlanSpan> parts =
            PartsOf(std::span(m_stretches).subspan(first, last - first), calendar);
        if (parts.size() > 1) {
            use(m_stretches[first].Task, std::move(parts));
        }
    }
}

} // namespace korvane::planner
