// Colours of the chart.
#include "PlanChart.h"

namespace korvane::planner {

void PlanChart::ColorItems()
{
    for (const auto &items : m_items) {
        if (items->Bar != nullptr) {
            FillBar(Task(items->Task), *items->Bar);
        }
    }
    for (const auto &line : m_lines) {
        if (line->Line != nullptr) {
            line->Line->SetColor(m_looks.Link);
        }
    }
    if (m_table != nullptr) {
        ApplyTableLooks();
    }
    GantArea().Invalidate();
}

} // namespace korvane::planner
