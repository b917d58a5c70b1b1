#include "PrintCommand.h"

#include "foundation/qt/zuConvert.h"
#include "plan/PlanFile.h"

#include <QApplication>
#include <QFileInfo>
#include <QLocale>
#include <QPageSize>

#include <stdexcept>
#include <utility>

namespace korvane::planner {

namespace {

/// The chart is laid out at this width; the paper shrinks it.
constexpr QSize kChartSize(1400, 900);

QString DayText(TDateTime date)
{
    return QLocale().toString(ToQDateTime(date).date(), QLocale::ShortFormat);
}

/// Nothing for a task without dates.
QString DateOf(const PlanChart &chart, const TzuDataEntity_Tree &node, TDateTime PlanSpan::*end)
{
    const int task = PlanChart::TaskOfNode(node);
    if (task == kNoIndex) {
        return {};
    }
    const auto &dates = chart.GetPlan().Tasks.at(static_cast<std::size_t>(task)).Dates;
    return dates ? DayText((*dates).*end) : QString();
}

/// The chart's plan, collapsed where the chart is.
Plan AsShown(const PlanChart &chart)
{
    Plan plan = chart.GetPlan();
    for (std::size_t i = 0; i < plan.Tasks.size(); ++i) {
        const TzuDataEntity_Tree *node = chart.NodeOf(static_cast<int>(i));
        plan.Tasks[i].Collapsed = node != nullptr && !node->GetExpanded();
    }
    return plan;
}

} // namespace

PlanPrint::PlanPrint(PlanChart &shown, const PlanDocument &document)
    : PlanPrint(AsShown(shown), document.FileName())
{
    m_chart.SetBaselinesShown(shown.AreBaselinesShown());
    m_chart.SetDeadlinesShown(shown.AreDeadlinesShown());
    m_chart.SelectTasks(shown.SelectedTasks());
}

PlanPrint::PlanPrint(Plan plan, const QString &fileName)
    : m_fileName(fileName)
    , m_chart(m_document)
    , m_printing(m_chart)
{
    m_chart.setPalette(QPalette(QColor(240, 240, 240), Qt::white));
    m_chart.resize(kChartSize);
    m_document.SetPlan(std::move(plan));
    // Parts find their places only when they are shown; nothing comes to a screen.
    m_chart.setAttribute(Qt::WA_DontShowOnScreen);
    m_chart.show();
    QApplication::sendPostedEvents();
    m_chart.FitPlan();
    m_printing.SetFineness(1); // what the chart draws itself knows no print scale
    m_printing.SetTitle(m_chart.GetPlan().Name);
    m_printing.SetFileName(QFileInfo(fileName).fileName());
    const auto date = [this](TDateTime PlanSpan::*end) {
        return [this, end](const TzuDataEntity_Tree &node) { return DateOf(m_chart, node, end); };
    };
    m_printing.Columns() = {
        {QObject::tr("Task"), {}, 0, Qt::AlignLeft},
        {QObject::tr("Start"), date(&PlanSpan::Start), 0, Qt::AlignRight},
        {QObject::tr("Finish"), date(&PlanSpan::Finish), 0, Qt::AlignRight},
    };
}

ExitCode PrintPlan(const QString &fileName, const ReadOptions &options, const PrintRequest &request,
                   const RenderRequest &range)
{
    auto result = LoadOrPrintError(fileName, options);
    if (!result) {
        return ExitCode::UnusableFile;
    }
    PlanPrint print(std::move(result->Value), fileName);
    const PlanChart &chart = print.Chart();
    TzuGanttPrinting &printing = print.Printing();
    if (range.From || range.To) {
        printing.SetRange(range.From.value_or(chart.Start()), range.To.value_or(chart.Stop()));
    }
    QPageLayout &paper = printing.Paper().Layout();
    paper.setPageSize(QPageSize(QSizeF(request.Paper), QPageSize::Millimeter), paper.margins());
    paper.setOrientation(request.Landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    printing.Scaling() = {.Fit = TPrintFit::pfPages,
                          .PagesAcross = request.PagesAcross,
                          .PagesDown = request.PagesDown};
    try {
        printing.SavePdf(request.File);
    } catch (const std::runtime_error &error) {
        PrintError(ErrorLine(fileName, {0, ToQt(error.what())}));
        return ExitCode::UnusableFile;
    }
    return ExitCode::Ok;
}

} // namespace korvane::planner
