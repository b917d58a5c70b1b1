// Plans on paper.
#pragma once

#include "CommandLine.h"
#include "PlanDocument.h"
#include "PrintJob.h"
#include "printing/qt/zuGanttPrinting.h"

#include <memory>
#include <vector>

namespace korvane::planner {

class PlanChart;
class PlanView;
class ResourceChart;

/// The print of one of a plan's views, in colours for white paper whatever the theme on screen.
/// Beside the tasks stand their names, starts and finishes, beside the resources their names.
class PlanPrint : public PrintJob
{
public:
    PlanPrint(Plan plan, const QString &fileName, ViewKind view = ViewKind::Tasks);
    /// The document's plan as a chart shows it: with the rows that are expanded there, its
    /// selection and its marks.
    PlanPrint(PlanChart &shown, const PlanDocument &document);
    PlanPrint(ResourceChart &shown, const PlanDocument &document);
    ~PlanPrint() override;

    TzuGanttPrinting &Printing() override { return *m_printing; }
    QString FileName() const override { return m_fileName; }
    PrintFeatures Features() const override;
    void Apply(const PrintOptions &options) override;

    /// Prints the table of the tasks beside the chart, in place of the tree.
    void ShowTable();
    /// Prints a stretch of time, as wide as the whole plan is otherwise.
    void SetRange(TDateTime from, TDateTime to);
    PlanView &Chart() { return *m_chart; }

private:
    void WaitUntilLaidOut();
    std::vector<int> ShownGridColumns() const;
    QString GridColumnTitle(int column) const;

    QString m_fileName;
    PlanDocument m_document;
    std::unique_ptr<PlanView> m_chart; ///< never seen
    PlanChart *m_tasks = nullptr;      ///< is m_chart, or null
    std::unique_ptr<TzuGanttPrinting> m_printing;
    std::vector<TPrintColumn> m_columns; ///< all that there are
};

} // namespace korvane::planner
