#include "plan/PlanRemarks.h"

#include "plan/PlannerText.h"

#include <utility>

namespace korvane::planner {

void PlanRemarks::Add(qint64 line, QString text)
{
    if (m_items.size() < kLimit) {
        m_items.push_back({line, std::move(text)});
    } else {
        ++m_omitted;
    }
}

std::vector<QString> PlanRemarks::Lines() const
{
    std::vector<QString> lines;
    lines.reserve(m_items.size() + 1);
    for (const PlanRemark &remark : m_items) {
        lines.push_back(remark.Line > 0
                            ? PlannerText::tr("Line %1: %2").arg(remark.Line).arg(remark.Text)
                            : remark.Text);
    }
    if (m_omitted > 0) {
        lines.push_back(PlannerText::tr("... and %n more", nullptr, static_cast<int>(m_omitted)));
    }
    return lines;
}

} // namespace korvane::planner
