#include "plan/PlanSplits.h"

#include <algorithm>
#include <tuple>

namespace korvane::planner {

namespace {

/// From the first to the last working instant of the span.
PlanSpan WithinWorkingTime(const PlanSpan &span, const WorkCalendar &calendar)
{
    const TDateTime start = calendar.StartBefore(calendar.FinishAfter(span.Start, 1), 1);
    const TDateTime finish = calendar.FinishAfter(calendar.StartBefore(span.Finish, 1), 1);
    return start < finish ? PlanSpan{start, finish} : span;
}

} // namespace

void PlanSplits::Add(std::int64_t task, const PlanSpan &span, WorkKind kind)
{
    if (!m_stretches.empty()) {
        // The days of one assignment follow each other closely.
        Stretch &last = m_stretches.back();
        if (last.Task == task && last.Kind == kind && last.Span.Finish == span.Start) {
            last.Span.Finish = span.Finish;
            return;
        }
    }
    if (m_stretches.size() < kMaxStretches) {
        m_stretches.push_back({task, span, kind});
    }
}

void PlanSplits::Sort()
{
    std::ranges::sort(m_stretches, {}, [](const Stretch &stretch) {
        return std::tuple(stretch.Task, stretch.Span.Start, stretch.Span.Finish);
    });
}

/// Work of all assignments together; a gap in it counts where an assignment says "no work" during
/// working time.
std::vector<PlanSpan> PlanSplits::PartsOf(std::span<const Stretch> stretches,
                                          const WorkCalendar &calendar)
{
    std::vector<PlanSpan> parts;
    double pausedMinutes = 0;
    TDateTime pausedUntil = 0;
    for (const Stretch &stretch : stretches) {
        const PlanSpan &span = stretch.Span;
        if (stretch.Kind == WorkKind::NoWork) {
            const TDateTime from = std::max(
                {span.Start, pausedUntil, parts.empty() ? span.Start : parts.back().Finish});
            if (from < span.Finish) {
                pausedMinutes += calendar.MinutesBetween(from, span.Finish);
                pausedUntil = span.Finish;
            }
            continue;
        }
        const bool isPaused =
            pausedMinutes >= 1 && !parts.empty() && parts.back().Finish < span.Start;
        if (isPaused || parts.empty()) {
            parts.push_back(span);
        } else {
            parts.back().Finish = std::max(parts.back().Finish, span.Finish);
        }
        pausedMinutes = 0;
        pausedUntil = 0;
    }
    for (PlanSpan &part : parts) {
        part = WithinWorkingTime(part, calendar);
    }
    return parts;
}

} // namespace korvane::planner
