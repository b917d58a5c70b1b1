// Baselines and deadlines.
#include "PlanChart.h"

#include <array>

namespace korvane::planner {

namespace {

constexpr int kBaselineHeight = 4;
constexpr int kBaselineMargin = 2; ///< below it, with the row's line
constexpr int kArrowHeight = 11;
constexpr int kArrowHalfWidth = 6;

} // namespace

void PlanChart::SetBaselinesShown(bool shown)
{
    if (shown != m_baselinesShown) {
        m_baselinesShown = shown;
        ApplyLooks(); // rows and bars give way
    }
}

void PlanChart::SetDeadlinesShown(bool shown)
{
    m_deadlinesShown = shown;
    GantArea().Invalidate();
}

int PlanChart::RowHeightFor(int textHeight) const
{
    return PlanView::RowHeightFor(textHeight) + BaselineRoom();
}

int PlanChart::BaselineRoom() const
{
    return m_baselinesShown ? kBaselineHeight + 1 : 0;
}

template <typename Function>
void PlanChart::ForTasksOnScreen(const Function &function)
{
    for (const TGantRow *row : GantRows().RowsOnScreen()) {
        if (const TzuDataEntity_Tree *node = row->TreeNode()) {
            function(Task(TaskOf(*node)), row->GetRect());
        }
    }
}

/// Thin bars below those of the tasks; of what is an instant a small diamond.
void PlanChart::PaintBaselines(const TRect &area, TCanvas &canvas)
{
    if (!m_baselinesShown) {
        return;
    }
    canvas.SetPen({m_looks.Baseline, 1, TPenStyle::psSolid});
    canvas.SetBrushColor(m_looks.Baseline);
    ForTasksOnScreen([&](const PlanTask &task, const TRect &row) {
        if (!task.Baseline || task.Baseline->Finish < Start() || task.Baseline->Start > Stop()) {
            return;
        }
        const int bottom = row.Bottom - kBaselineMargin;
        const int top = bottom - kBaselineHeight;
        const int left = DateScaler().DateToPixel(task.Baseline->Start);
        const int right = DateScaler().DateToPixel(task.Baseline->Finish);
        if (task.Baseline->Start < task.Baseline->Finish) {
            canvas.FillRect(TRect{left, top, std::max(right, left + 1), bottom}.Intersected(area));
        } else {
            const int middle = top + kBaselineHeight / 2;
            canvas.SetAntialiasing(true);
            canvas.Polygon(std::array{TPoint{left - 3, middle}, TPoint{left, middle - 3},
                                      TPoint{left + 3, middle}, TPoint{left, middle + 3}});
            canvas.SetAntialiasing(false);
        }
    });
}

int PlanChart::DeadlineBeside(int task, const TRect &bar) const
{
    constexpr int kNear = 40;
    const auto &deadline = Task(task).Deadline;
    if (!m_deadlinesShown || !deadline || *deadline < Start() || *deadline > Stop()) {
        return bar.Right;
    }
    const int end = DateScaler().DateToPixel(*deadline) + kArrowHalfWidth;
    return end > bar.Right && end < bar.Right + kNear ? end : bar.Right;
}

/// Arrows that point down, in the colour of a warning where the task finishes later.
void PlanChart::PaintDeadlines(TCanvas &canvas)
{
    if (!m_deadlinesShown) {
        return;
    }
    canvas.SetPen({m_looks.Back, 1, TPenStyle::psSolid}); // keeps clear of what is below
    canvas.SetAntialiasing(true);
    ForTasksOnScreen([&](const PlanTask &task, const TRect &row) {
        if (!task.Deadline || *task.Deadline < Start() || *task.Deadline > Stop()) {
            return;
        }
        const bool isMissed = task.Dates && task.Dates->Finish > *task.Deadline;
        const int x = DateScaler().DateToPixel(*task.Deadline);
        const int top = (row.Top + row.Bottom - BaselineRoom() - kArrowHeight) / 2;
        const int neck = top + kArrowHeight / 2;
        canvas.SetBrushColor(isMissed ? m_looks.MissedDeadline : m_looks.Deadline);
        canvas.Polygon(std::array{TPoint{x - 2, top}, TPoint{x + 2, top}, TPoint{x + 2, neck},
                                  TPoint{x + kArrowHalfWidth, neck}, TPoint{x, top + kArrowHeight},
                                  TPoint{x - kArrowHalfWidth, neck}, TPoint{x - 2, neck}});
    });
    canvas.SetAntialiasing(false);
}

} // namespace korvane::planner
