// Plans on paper, and planner --print, which needs no window.
#pragma once

#include "CommandLine.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "printing/qt/zuGanttPrinting.h"

namespace korvane::planner {

/// The print of a plan: names, starts and finishes beside the chart, in colours for white paper
/// whatever the theme on screen.
class PlanPrint
{
public:
    /// `fileName` is what the footer calls the plan.
    PlanPrint(Plan plan, const QString &fileName);

    TzuGanttPrinting &Printing() { return m_printing; }
    PlanChart &Chart() { return m_chart; }

private:
    PlanDocument m_document;
    PlanChart m_chart; ///< never seen
    TzuGanttPrinting m_printing;
};

/// Needs a QApplication, on any platform. Prints one line on standard error when it fails.
ExitCode PrintPlan(const QString &fileName, const ReadOptions &options, const PrintRequest &request,
                   const RenderRequest &range);

} // namespace korvane::planner
