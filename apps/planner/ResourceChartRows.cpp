// How the chart of resources follows the plan.
#include "PlanDocument.h"
#include "PlanTree.h"
#include "ResourceChart.h"
#include "foundation/qt/zuConvert.h"

#include <QFontMetrics>

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr int kBarInset = 1;
constexpr int kMilestoneSize = 14;
constexpr int kPercent = 100;

} // namespace

void ResourceChart::ShowPlan()
{
    m_uids.clear(); // another plan, however alike
    m_isStale = true;
    if (isVisible()) {
        BringUpToDate();
        FitPlan();
    }
}

/// Apart from dates and colours.
bool ResourceChart::IsSamePlan() const
{
    const Plan &plan = GetPlan();
    return !m_uids.empty() && std::ranges::equal(plan.Tasks, m_uids, {}, &PlanTask::Uid)
           && plan.Assignments == m_assignments;
}

void ResourceChart::BringUpToDate()
{
    if (m_isStale) {
        m_isStale = false;
        if (IsSamePlan()) {
            Follow();
        } else {
            Fill();
        }
    }
}

void ResourceChart::Fill()
{
    const Plan &plan = GetPlan();
    BeginUpdate();
    Tree().Clear();
    m_rows.clear();
    m_assignments = plan.Assignments;
    m_uids.clear();
    std::ranges::transform(plan.Tasks, std::back_inserter(m_uids), &PlanTask::Uid);
    MakePlaces();
    m_mostAtOnce = 1;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        AddRow(static_cast<int>(row));
        m_mostAtOnce = std::max(m_mostAtOnce, MeasureRow(*m_rows[row]));
    }
    m_tree->SetRowHeight(RowHeightFor(QFontMetrics(ToQt(m_tree->Font())).height()));
    FitTree();
    EndUpdate();
}

/// Assignments are ascending by task already, and so are the places.
void ResourceChart::MakePlaces()
{
    const Plan &plan = GetPlan();
    m_places.clear();
    m_places.reserve(plan.Assignments.size() + plan.Tasks.size());
    const int unassigned = static_cast<int>(plan.Resources.size());
    bool hasUnassigned = false;
    for (int task = 0; task < static_cast<int>(plan.Tasks.size()); ++task) {
        const PlanTask &item = plan.Tasks[static_cast<std::size_t>(task)];
        const auto assignments = plan.AssignmentsOf(task);
        for (const PlanAssignment &assignment : assignments) {
            m_places.push_back({task, assignment.Resource, assignment.Units});
        }
        if (assignments.empty() && !item.IsSummary()) {
            m_places.push_back({task, unassigned});
            hasUnassigned = true;
        }
    }
    m_rows.resize(plan.Resources.size() + (hasUnassigned ? 1 : 0));
    for (auto &row : m_rows) {
        row = std::make_unique<Row>();
    }
    for (std::size_t place = 0; place < m_places.size(); ++place) {
        m_rows[static_cast<std::size_t>(m_places[place].Row)]->Places.push_back(
            static_cast<int>(place));
    }
}

void ResourceChart::AddRow(int index)
{
    const Plan &plan = GetPlan();
    Row &row = *m_rows[static_cast<std::size_t>(index)];
    if (index < static_cast<int>(plan.Resources.size())) {
        row.Resource = index;
    }
    row.Node = m_tree->AddDataEntity();
    row.Node->SetUserReference(&row);
    TGantRow *line = GantRows().FindRowFromTreeNode(row.Node);
    line->SetTimeItems_CanChangeRow(false);
    for (const int each : row.Places) {
        Place &place = m_places[static_cast<std::size_t>(each)];
        const PlanTask &task = plan.Tasks[static_cast<std::size_t>(place.Task)];
        if (task.Dates) {
            place.Bar = AddSpanbarToGantRow(line, 0);
            place.Bar->SetUserReference(&place);
            FillBar(task, *place.Bar);
        }
    }
    line->SetCollisionDetection(true);
}

void ResourceChart::FillBar(const PlanTask &task, TzuDataEntity_Spanbar &bar) const
{
    bar.SetStartDateTime(task.Dates->Start);
    bar.SetStopDateTime(task.Dates->Finish);
    const bool isSymbol = task.Milestone && !task.HasChildren;
    bar.SetStyle(TSpanbarStyle::sbsUser);
    bar.SetFixedSize(isSymbol ? kMilestoneSize : 0);
    bar.SetInsetTop(kBarInset);
    bar.SetInsetBottom(kBarInset);
    bar.SetColor(BarColorOf(task));
    bar.SetCanEdit(m_edits != nullptr && !task.IsSummary());
}

TColor ResourceChart::BarColorOf(const PlanTask &task) const
{
    const TColor open = ColorOf(task);
    return task.PercentComplete >= 100 ? m_looks.Done(open) : open;
}

bool ResourceChart::IsShownAs(const PlanTask &task, const TzuDataEntity_Spanbar &bar) const
{
    return bar.GetStartDateTime() == task.Dates->Start
           && bar.GetStopDateTime() == task.Dates->Finish && bar.GetColor() == BarColorOf(task);
}

/// Of tasks that are the same as before the dates may be others.
void ResourceChart::Follow()
{
    const Plan &plan = GetPlan();
    std::vector<bool> isTouched(m_rows.size());
    for (Place &place : m_places) {
        const PlanTask &task = plan.Tasks[static_cast<std::size_t>(place.Task)];
        if (task.Dates.has_value() != (place.Bar != nullptr)) {
            Fill();
            return;
        }
        if (place.Bar != nullptr && !IsShownAs(task, *place.Bar)) {
            FillBar(task, *place.Bar);
        }
        if (place.Measured != task.Dates) { // by what the user did to the bar, too
            isTouched[static_cast<std::size_t>(place.Row)] = true;
        }
    }
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        if (isTouched[row]) {
            MeasureRow(*m_rows[row]);
        }
    }
    GantArea().Invalidate();
}

/// Returns how many bars stand in the row at the same time at most.
int ResourceChart::MeasureRow(Row &row)
{
    const Plan &plan = GetPlan();
    std::vector<LoadStretch> loads;
    std::vector<LoadStretch> bars;
    for (const int index : row.Places) {
        Place &place = m_places[static_cast<std::size_t>(index)];
        const PlanTask &task = plan.Tasks[static_cast<std::size_t>(place.Task)];
        place.Measured = task.Dates;
        AddLoad(task, place.Units, loads);
        if (task.Dates) {
            bars.push_back({task.Dates->Start, task.Dates->Finish, 1});
        }
    }
    row.Over.clear();
    row.Peak = 0;
    if (row.Resource != kNoIndex) {
        row.Over = korvane::planner::OverloadOf(plan, ResourceOf(row), SumOf(loads));
    }
    for (const LoadStretch &stretch : row.Over) {
        row.Peak = std::max(row.Peak, stretch.Units);
    }
    row.Node->SetText(CaptionOf(row));
    const std::vector<LoadStretch> counts = SumOf(bars);
    const auto most = std::ranges::max_element(counts, {}, &LoadStretch::Units);
    return most != counts.end() ? static_cast<int>(most->Units) : 0;
}

std::string ResourceChart::CaptionOf(const Row &row) const
{
    if (row.Resource == kNoIndex) {
        return FromQt(tr("Unassigned"));
    }
    const PlanResource &resource = ResourceOf(row);
    const QString name =
        resource.Name.isEmpty() ? tr("Resource %1").arg(resource.Uid) : resource.Name;
    if (row.Over.empty()) {
        return Caption(name);
    }
    const int peak = qRound(row.Peak * kPercent);
    const int limit = qRound(resource.MaxUnits.value_or(1) * kPercent);
    return Caption(limit == kPercent ? tr("%1 \u2013 %2 %").arg(name).arg(peak)
                                     : tr("%1 \u2013 %2 of %3 %").arg(name).arg(peak).arg(limit));
}

std::span<const ResourceChart::Place> ResourceChart::PlacesOf(int task) const
{
    const auto range = std::ranges::equal_range(m_places, task, {}, &Place::Task);
    return {range.begin(), range.end()};
}

void ResourceChart::UpdateBar(int task)
{
    for (const Place &place : PlacesOf(task)) {
        if (place.Bar != nullptr) {
            FillBar(GetPlan().Tasks.at(static_cast<std::size_t>(task)), *place.Bar);
        }
    }
}

void ResourceChart::ColorItems()
{
    for (const Place &place : m_places) {
        if (place.Bar != nullptr) {
            FillBar(GetPlan().Tasks.at(static_cast<std::size_t>(place.Task)), *place.Bar);
        }
    }
    GantArea().Invalidate();
}

} // namespace korvane::planner
