// Plans on paper, and planner --print, which needs no window.
#pragma once

#include "CommandLine.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "PrintJob.h"
#include "printing/qt/zuGanttPrinting.h"

namespace korvane::planner {

/// The print of a plan: names, starts and finishes beside the chart, in colours for white paper
/// whatever the theme on screen.
class PlanPrint : public PrintJob
{
public:
    PlanPrint(Plan plan, const QString &fileName);
    /// The document's plan as a chart shows it: with the rows that are expanded there, its
    /// selection and its marks.
    PlanPrint(PlanChart &shown, const PlanDocument &document);

    TzuGanttPrinting &Printing() override { return m_printing; }
    QString FileName() const override { return m_fileName; }
    PlanChart &Chart() { return m_chart; }

private:
    QString m_fileName;
    PlanDocument m_document;
    PlanChart m_chart; ///< never seen
    TzuGanttPrinting m_printing;
};

/// Needs a QApplication, on any platform. Prints one line on standard error when it fails.
ExitCode PrintPlan(const QString &fileName, const ReadOptions &options, const PrintRequest &request,
                   const RenderRequest &range);

} // namespace korvane::planner
