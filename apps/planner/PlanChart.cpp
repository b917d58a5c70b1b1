#include "PlanChart.h"

#include "PlanTable.h"
#include "PlanTree.h"
#include "TaskToolTip.h"
#include "foundation/qt/zuConvert.h"
#include "grid/qt/zuGrid.h"

#include <QHelpEvent>
#include <QToolTip>

namespace korvane::planner {

PlanChart::PlanChart(PlanDocument &document, QWidget *parent)
    : PlanView(document, parent)
{
    SetDefaultLinkStyle(TLinkStyle::tlsUserDraw);
    SetLinkShow(TLinkShow::lsAlways);
    OnUserDrawTime = [this](auto *, TzuDataEntity_Spanbar *bar, TCanvas &canvas,
                            const TRect &rect) { PaintTask(*bar, canvas, rect); };
    OnUserDrawLinks = [this](auto *, TzuDataEntity_Link *link, TCanvas &canvas, TPoint, TPoint) {
        PaintLink(*link, canvas);
    };
    OnLinkRoute = [this](auto *, TzuDataEntity_Link *link, TPoint, TPoint,
                         std::vector<TPoint> &points) {
        const LinkRoute route = RouteOf(*link);
        points.assign(route.Line().begin(), route.Line().end());
    };
    ApplyLooks();
    ConnectGestures();
    ConnectTree();
}

void PlanChart::ShowPlan()
{
    BeginUpdate();
    GetLinks().Clear();
    if (m_table != nullptr) {
        Grid().GetTree()->Clear();
    }
    Tree().Clear();
    m_items.clear();
    m_lines.clear();
    m_expansions.clear();
    m_outsideLabels.clear();
    Fill();
    m_treeWidth = 0;
    if (!IsTableShown()) {
        FitTree();
    }
    FitPlan();
    EndUpdate();
}

void PlanChart::Fill()
{
    const Plan &plan = GetPlan();
    m_items.resize(plan.Tasks.size());
    for (auto &items : m_items) {
        items = std::make_unique<TaskItems>();
    }
    NumberTasks(0);
    for (std::size_t task = 0; task < m_items.size(); ++task) {
        AddNode(static_cast<int>(task));
    }
    if (m_table != nullptr) {
        FillTable();
    }
    m_lines.resize(plan.Links.size());
    for (auto &line : m_lines) {
        line = std::make_unique<LinkItems>();
    }
    NumberLinks(0);
    for (std::size_t link = 0; link < m_lines.size(); ++link) {
        AddLine(static_cast<int>(link));
    }
}

int PlanChart::TaskAt(QPoint areaPoint) const
{
    const TzuDataEntity_Spanbar *item = GetDataEntityFromXY(areaPoint.x(), areaPoint.y());
    return item != nullptr ? TaskOf(*item) : kNoIndex;
}

void PlanChart::HandleToolTip(QHelpEvent &event)
{
    const int task = TaskAt(event.pos());
    if (task == kNoIndex) {
        const TzuDataEntity_Link *line = GetLinkFromXY(event.pos().x(), event.pos().y());
        const QString text = line != nullptr ? LinkToolTip(GetPlan(), LinkOf(*line)) : QString();
        QToolTip::showText(event.globalPos(), text, &GantArea(), QRect(event.pos(), QSize(3, 3)));
        return;
    }
    const TzuDataEntity_Spanbar &bar = *Items(task).Bar;
    const TRect rect = bar.GetRow()->RectFromDataEntity(bar).value_or(TRect{});
    QToolTip::showText(event.globalPos(), TaskToolTip(GetPlan(), task), &GantArea(),
                       ToQt(rect.Intersected(GantArea().ClientArea())));
}

} // namespace korvane::planner
