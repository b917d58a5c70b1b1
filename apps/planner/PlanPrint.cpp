#include "PlanPrint.h"

#include "PlanChart.h"
#include "ResourceChart.h"
#include "foundation/qt/zuConvert.h"
#include "grid/qt/zuGrid.h"
#include "plan/PlannerText.h"

#include <QApplication>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>
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

int RowCount(PlanView &chart)
{
    if (chart.UseGridNotTree()) {
        return static_cast<int>(chart.Grid().GetTree()->VisibleNodes().size());
    }
    int rows = 0;
    for (TzuDataEntity_Tree *row = chart.Tree().GetNextVisible(nullptr); row != nullptr;
         row = chart.Tree().GetNextVisible(row)) {
        ++rows;
    }
    return rows;
}

} // namespace

PlanPrint::PlanPrint(Plan plan, const QString &fileName, ViewKind view)
    : m_fileName(fileName)
{
    if (view == ViewKind::Tasks) {
        auto chart = std::make_unique<PlanChart>(m_document);
        m_tasks = chart.get();
        m_chart = std::move(chart);
    } else {
        m_chart = std::make_unique<ResourceChart>(m_document);
    }
    m_chart->setPalette(QPalette(QColor(240, 240, 240), Qt::white));
    m_chart->resize(kChartSize);
    m_document.SetPlan(std::move(plan));
    // Parts find their places only when they are shown; nothing comes to a screen.
    m_chart->setAttribute(Qt::WA_DontShowOnScreen);
    m_chart->show();
    QApplication::sendPostedEvents();
    m_chart->FitPlan();
    WaitUntilLaidOut();
    m_printing = std::make_unique<TzuGanttPrinting>(*m_chart);
    m_printing->SetFineness(1); // what the chart draws itself knows no print scale
    m_printing->SetTitle(m_document.GetPlan().Name);
    m_printing->SetFileName(QFileInfo(fileName).fileName());
    if (m_tasks == nullptr) {
        m_columns = {{PlannerText::tr("Resource"), {}, 0, Qt::AlignLeft}};
    } else {
        const auto date = [this](TDateTime PlanSpan::*end) {
            return
                [this, end](const TzuDataEntity_Tree &node) { return DateOf(*m_tasks, node, end); };
        };
        m_columns = {{PlannerText::tr("Task"), {}, 0, Qt::AlignLeft},
                     {PlannerText::tr("Start"), date(&PlanSpan::Start), 0, Qt::AlignRight},
                     {PlannerText::tr("Finish"), date(&PlanSpan::Finish), 0, Qt::AlignRight}};
    }
    m_printing->Columns() = m_columns;
}

PlanPrint::PlanPrint(PlanChart &shown, const PlanDocument &document)
    : PlanPrint(AsShown(shown), document.FileName())
{
    m_tasks->SetBaselinesShown(shown.AreBaselinesShown());
    m_tasks->SetDeadlinesShown(shown.AreDeadlinesShown());
    if (shown.IsTableShown()) {
        m_tasks->ShowTableOf(shown);
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    m_tasks->SelectTasks(shown.SelectedTasks());
}

PlanPrint::PlanPrint(ResourceChart &shown, const PlanDocument &document)
    : PlanPrint(shown.GetPlan(), document.FileName(), ViewKind::Resources)
{
    static_cast<ResourceChart &>(*m_chart).SelectTasks(shown.SelectedTasks());
}

PlanPrint::~PlanPrint() = default;

/// Bars that overlap find their places in the background.
void PlanPrint::WaitUntilLaidOut()
{
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    while (!m_chart->IsSeparated()) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents
                                    | QEventLoop::ExcludeUserInputEvents);
    }
}

PrintFeatures PlanPrint::Features() const
{
    const auto day = [](TDateTime date) { return ToQDateTime(date).date(); };
    PrintFeatures features{.Days = std::pair(day(m_chart->Start()), day(m_chart->Stop())),
                           .Rows = RowCount(*m_chart),
                           .RowsText = PlannerText::tr("&Rows from, to:"),
                           .SelectionText = PlannerText::tr("&Selected rows only"),
                           .AxisText = PlannerText::tr("Time axis also at the &bottom"),
                           .Headings = m_tasks != nullptr,
                           .Columns = {}};
    if (m_chart->UseGridNotTree()) {
        for (const int column : ShownGridColumns()) {
            features.Columns.append(GridColumnTitle(column));
        }
        return features;
    }
    for (const TPrintColumn &column : m_columns) {
        features.Columns.append(column.Title);
    }
    return features;
}

void PlanPrint::ShowTable()
{
    if (m_tasks != nullptr) {
        m_tasks->SetTableShown(true);
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
}

/// By their real indexes.
std::vector<int> PlanPrint::ShownGridColumns() const
{
    const TAxisContentList &list = m_chart->Grid().RootCell().Columns();
    std::vector<int> columns;
    for (int index = list.FixedCount(); index < list.Count(); ++index) {
        if (list.SizeAt(index) > 0) {
            columns.push_back(index);
        }
    }
    return columns;
}

QString PlanPrint::GridColumnTitle(int column) const
{
    const TAxisContentItem *item = m_chart->Grid().RootCell().Columns().FindLoaded(column);
    const auto *shown =
        item != nullptr ? dynamic_cast<const TzuGrid_Column *>(item->Value()) : nullptr;
    return shown != nullptr ? ToQt(shown->HeaderText()) : QString();
}

void PlanPrint::SetRange(TDateTime from, TDateTime to)
{
    m_printing->SetRange(from, to);
    const int room = m_chart->GantArea().width();
    m_printing->SetTimeScale(room > 0 ? (to - from) / room : 0);
}

void PlanPrint::Apply(const PrintOptions &options)
{
    ApplyPrintOptions(options, *m_printing);
    m_printing->SetWholeRange();
    m_printing->SetTimeScale(0);
    if (options.Days) {
        SetRange(FromQt(options.Days->first.startOfDay()),
                 FromQt(options.Days->second.addDays(1).startOfDay()));
    }
    m_printing->SetAllRows();
    if (options.Rows) {
        m_printing->SetRows(options.Rows->first - 1, options.Rows->second - 1);
    }
    m_printing->SetSelectionOnly(options.SelectionOnly);
    m_printing->SetAxisAtBothEdges(options.AxisAtBothEdges);
    m_printing->SetRepeatHeadings(options.RepeatHeadings);
    m_printing->Columns() = m_columns;
    std::erase_if(m_printing->Columns(), [&](const TPrintColumn &column) {
        return options.HiddenColumns.contains(column.Title);
    });
    if (m_chart->UseGridNotTree()) {
        std::vector<int> columns = ShownGridColumns();
        std::erase_if(columns, [&](int column) {
            return options.HiddenColumns.contains(GridColumnTitle(column));
        });
        m_printing->SetGridColumns(std::move(columns));
    }
}

} // namespace korvane::planner
