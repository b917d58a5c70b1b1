// How the chart follows the plan: nodes, bars and lines of tasks and links.
#include "PlanChart.h"
#include "PlanTable.h"
#include "PlanTree.h"
#include "foundation/qt/zuConvert.h"
#include "grid/qt/zuGrid.h"
#include "plan/PlanOutline.h"

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr int kTaskInset = 3;
constexpr int kSummaryInset = 4;
constexpr int kMilestoneInset = 3;

template <typename Items>
void TakeOut(std::vector<Items> &items, std::span<const int> indices)
{
    std::size_t taken = 0;
    std::size_t to = indices.front();
    for (std::size_t from = to; from < items.size(); ++from) {
        if (taken < indices.size() && from == std::size_t(indices[taken])) {
            ++taken;
        } else {
            items[to++] = std::move(items[from]);
        }
    }
    items.resize(to);
}

/// Puts new ones in so that they come to stand at the indices.
template <typename Items>
void PutIn(std::vector<std::unique_ptr<Items>> &items, std::span<const int> indices)
{
    std::size_t from = items.size();
    items.resize(items.size() + indices.size());
    std::size_t to = items.size();
    for (std::size_t left = indices.size(); left > 0;) {
        --to;
        if (to == std::size_t(indices[left - 1])) {
            items[to] = std::make_unique<Items>();
            --left;
        } else {
            items[to] = std::move(items[--from]);
        }
    }
}

} // namespace

int PlanChart::TaskOf(const TzuDataEntity &barOrNode)
{
    return static_cast<const TaskItems *>(barOrNode.GetUserReference())->Task;
}

int PlanChart::LinkOf(const TzuDataEntity_Link &line)
{
    return static_cast<const LinkItems *>(line.GetUserReference())->Link;
}

void PlanChart::NumberTasks(int first)
{
    for (std::size_t task = first; task < m_items.size(); ++task) {
        m_items[task]->Task = static_cast<int>(task);
    }
}

void PlanChart::NumberLinks(int first)
{
    for (std::size_t link = first; link < m_lines.size(); ++link) {
        m_lines[link]->Link = static_cast<int>(link);
    }
}

// Tasks.

TzuDataList_Tree &PlanChart::ChildrenOf(int parent)
{
    return parent == kNoIndex ? *m_tree->DataList() : *Items(parent).Node->ChildList();
}

int PlanChart::PlaceAmongSiblings(int task) const
{
    const int previous = PreviousSibling(GetPlan(), task);
    return previous == kNoIndex ? 0 : Items(previous).Node->ListIndex() + 1;
}

void PlanChart::AddNode(int index)
{
    const PlanTask &task = Task(index);
    TaskItems &items = *m_items.at(static_cast<std::size_t>(index));
    items.Node = m_tree->InsertDataEntity(ChildrenOf(task.Parent), PlaceAmongSiblings(index));
    items.Uid = task.Uid;
    items.Node->SetUserReference(&items);
    items.Node->SetCanEdit(m_edits != nullptr);
    const auto expanded = m_expansions.find(task.Uid);
    items.Node->SetExpanded(expanded != m_expansions.end() ? expanded->second
                                                           : task.HasChildren && !task.Collapsed);
    UpdateNode(index);
    if (task.Dates) {
        AddBarOf(index);
    }
}

void PlanChart::UpdateNode(int index)
{
    const PlanTask &task = Task(index);
    TzuDataEntity_Tree &node = *Items(index).Node;
    node.SetText(Caption(task.Name));
    const TFontStyles style{.Bold = task.IsSummary()};
    if (node.GetFontStyle() != style) {
        node.SetFontStyle(style);
    }
    if (TGantRow *row = GantRows().FindRowFromTreeNode(&node)) {
        row->SetTimeItems_CanChangeRow(false);
        row->SetTimeItems_CanResize(!task.IsSummary());
    }
}

void PlanChart::AddBarOf(int index)
{
    TaskItems &items = *m_items.at(static_cast<std::size_t>(index));
    items.Bar = AddSpanbar(items.Node, 0);
    items.Bar->SetUserReference(&items);
    FillBar(Task(index), *items.Bar);
}

void PlanChart::RemoveBarOf(int index)
{
    TaskItems &items = *m_items.at(static_cast<std::size_t>(index));
    for (const TzuDataEntity_Link *line : items.Bar->Links()) {
        m_lines.at(static_cast<std::size_t>(LinkOf(*line)))->Line = nullptr;
    }
    RemoveSpanbar(std::exchange(items.Bar, nullptr));
}

void PlanChart::UpdateBar(int index)
{
    const PlanTask &task = Task(index);
    const TaskItems &items = Items(index);
    if (items.Bar != nullptr && task.Dates) {
        FillBar(task, *items.Bar);
    } else if (items.Bar != nullptr) {
        RemoveBarOf(index);
    } else if (task.Dates) {
        AddBarOf(index);
        for (const auto &line : m_lines) {
            const PlanLink &link = GetPlan().Links.at(static_cast<std::size_t>(line->Link));
            if (link.Predecessor == index || link.Successor == index) {
                AddLine(line->Link);
            }
        }
    }
    GantArea().Invalidate();
}

void PlanChart::FillBar(const PlanTask &task, TzuDataEntity_Spanbar &bar) const
{
    const bool isSymbol = IsShownAsMilestone(task);
    const bool isDrawnHere = !task.Parts.empty() || IsPartlyDone(task);
    bar.SetStartDateTime(isSymbol ? task.Dates->Finish : task.Dates->Start);
    bar.SetStopDateTime(task.Dates->Finish);
    bar.SetStyle(isSymbol           ? TSpanbarStyle::sbsRomb
                 : task.IsSummary() ? TSpanbarStyle::sbsSpan
                 : isDrawnHere      ? TSpanbarStyle::sbsUser
                                    : TSpanbarStyle::sbsSquare);
    const int height = m_tree->RowHeight() - BaselineRoom();
    bar.SetFixedSize(isSymbol ? height - 2 * kMilestoneInset - 2 : 0);
    const int inset = isSymbol ? kMilestoneInset : task.IsSummary() ? kSummaryInset : kTaskInset;
    bar.SetInsetTop(inset);
    bar.SetInsetBottom(inset + BaselineRoom());
    const TColor open = ColorOf(task);
    bar.SetColor(task.PercentComplete >= 100 ? m_looks.Done(open) : open);
    bar.SetCanEdit(m_edits != nullptr);
    if (bar.HasTexts()) {
        bar.Texts().GetTimeItemText(0).SetText({}); // until it is placed again
    }
}

void PlanChart::TaskChanged(int task)
{
    UpdateNode(task);
    UpdateBar(task);
    if (m_table != nullptr) {
        m_table->PlanChanged();
    }
}

void PlanChart::TasksInserted(std::span<const int> tasks)
{
    PutIn(m_items, tasks);
    NumberTasks(tasks.front());
    for (const int task : tasks) {
        AddNode(task);
        if (m_table != nullptr) {
            AddGridNode(task);
        }
    }
    ItemsAdded(tasks, m_items.size());
}

void PlanChart::TasksRemoved(std::span<const int> tasks)
{
    m_outsideLabels.clear();
    // Subtasks before their summary tasks.
    for (std::size_t i = tasks.size(); i-- > 0;) {
        TzuDataEntity_Tree *node = Items(tasks[i]).Node;
        m_expansions[Items(tasks[i]).Uid] = node->GetExpanded();
        if (m_table != nullptr) {
            Grid().GetTree()->RemoveDataEntity(Items(tasks[i]).GridNode);
        }
        m_tree->RemoveDataEntity(node);
    }
    TakeOut(m_items, tasks);
    NumberTasks(tasks.front());
    PlacesChanged();
}

void PlanChart::SubtreeMoved(int from, int count, int to)
{
    const auto at = [this](int task) { return m_items.begin() + task; };
    if (from < to) {
        std::rotate(at(from), at(from + count), at(to + count));
    } else {
        std::rotate(at(to), at(from), at(from + count));
    }
    NumberTasks(std::min(from, to));
    TzuDataEntity_Tree &node = *Items(to).Node;
    TzuDataList_Tree &list = ChildrenOf(Task(to).Parent);
    const int place = PlaceAmongSiblings(to);
    if (node.GetDataList() != &list) {
        node.ChangeOwner(&list, place);
    } else {
        node.Move(node.ListIndex() < place ? place - 1 : place);
    }
    if (m_table != nullptr) {
        MoveGridNode(to);
    }
    PlacesChanged();
}

// Links.

void PlanChart::AddLine(int index)
{
    const PlanLink &link = GetPlan().Links.at(static_cast<std::size_t>(index));
    LinkItems &items = *m_lines.at(static_cast<std::size_t>(index));
    TzuDataEntity_Spanbar *first = Items(link.Predecessor).Bar;
    TzuDataEntity_Spanbar *second = Items(link.Successor).Bar;
    if (items.Line != nullptr || first == nullptr || second == nullptr || first == second) {
        return;
    }
    items.Line = &TzuGant::AddLink();
    items.Line->SetFirst(first);
    items.Line->SetSecond(second);
    items.Line->SetColor(m_looks.Link);
    items.Line->SetUserReference(&items);
}

void PlanChart::LinkChanged(int /*link*/)
{
    TextsChanged();
}

/// Items of which there are `count` now; where they came behind all others these keep their places.
void PlanChart::ItemsAdded(std::span<const int> added, std::size_t count)
{
    if (static_cast<std::size_t>(added.front()) + added.size() == count) {
        TextsChanged();
    } else {
        PlacesChanged();
    }
}

void PlanChart::TextsChanged()
{
    if (m_table != nullptr) {
        m_table->PlanChanged();
    }
    GantArea().Invalidate();
}

/// Tasks have other numbers, or links lead elsewhere.
void PlanChart::PlacesChanged()
{
    if (m_table != nullptr) {
        m_table->LinksChanged();
    }
    TextsChanged();
}

void PlanChart::LinksInserted(std::span<const int> links)
{
    PutIn(m_lines, links);
    NumberLinks(links.front());
    for (const int link : links) {
        AddLine(link);
    }
    ItemsAdded(links, m_lines.size());
}

void PlanChart::LinksRemoved(std::span<const int> links)
{
    for (const int link : links) {
        if (TzuDataEntity_Link *line = m_lines.at(static_cast<std::size_t>(link))->Line) {
            GetLinks().Remove(line);
        }
    }
    TakeOut(m_lines, links);
    NumberLinks(links.front());
    PlacesChanged();
}

} // namespace korvane::planner
