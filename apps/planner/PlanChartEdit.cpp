// What the user selects and edits in the chart.
#include "PlanChart.h"
#include "PlanEdits.h"
#include "PlanTable.h"
#include "PlanTree.h"
#include "foundation/qt/zuConvert.h"
#include "grid/qt/zuGrid.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

namespace korvane::planner {

void PlanChart::SetEdits(PlanEdits *edits)
{
    PlanView::SetEdits(edits);
    if (m_table != nullptr) {
        m_table->SetEdits(edits);
    }
    connect(edits, &PlanEdits::concerned, this, &PlanChart::SelectTasks);
}

void PlanChart::ConnectGestures()
{
    OnDependencyAction = [this](TzuDataEntity_Spanbar *first, TzuDataEntity_Spanbar *second) {
        if (m_edits != nullptr) {
            m_edits->Link(TaskOf(*first), TaskOf(*second));
        }
    };
    OnDependencyHint = [](auto *, auto *, auto *, TGestureHint &hint) {
        hint[2] = FromQt(tr("Link\tFinish to start"));
    };
    // Every press ends the mode.
    OnGantAreaMouseUp = [this](auto &&...) { SetLinking(m_linking); };
    OnDblClickGantArea = [this](auto *, TzuDataEntity_Spanbar *bar) {
        const std::vector<int> links = SelectedPlanLinks();
        if (bar != nullptr) {
            Q_EMIT taskActivated(TaskOf(*bar));
        } else if (links.size() == 1) { // by the first click
            Q_EMIT linkActivated(links.front());
        }
    };
    OnEditDataEntity_Spanbar = [this](auto *, TzuDataEntity_Spanbar *bar) {
        Q_EMIT taskActivated(TaskOf(*bar));
    };
    OnEditDataEntity_Link = [this](auto *, TzuDataEntity_Link *line) {
        Q_EMIT linkActivated(LinkOf(*line));
    };
    OnAskDelete = [this](auto *, const auto &, const auto &, bool &) { Q_EMIT deleteWanted(); };
    OnAfterSelectionChanged = [this](auto *) { AreaSelectionChanged(); };
}

void PlanChart::ConnectTree()
{
    m_tree->SetMultiSelect(true);
    m_tree->SetDragMode(PlanTree::TDragMode::dmAutomatic);
    m_tree->SetAllowSort(false);
    m_tree->SetAllowDelete(true);
    m_tree->SetMaxLevels(kMaxOutlineLevel);
    m_tree->OnCurrentChanged = [this](TObject *) { TreeSelectionChanged(); };
    m_tree->OnSelectionChanged = [this](auto &&...) { TreeSelectionChanged(); };
    m_tree->OnValueChanged = [this](TObject *, TzuDataEntity_Tree *node) { NameEdited(*node); };
    m_tree->OnBeforeMove = [this](TObject *, const TTreeMove &move, bool &allow, bool &handled) {
        allow = handled = m_edits != nullptr;
        if (m_edits != nullptr) {
            MoveInTree(move);
        }
    };
    m_tree->OnBeforeDelete = [this](TObject *, const TTreeEntities &, bool &allow, bool &handled) {
        allow = handled = m_edits != nullptr;
        Q_EMIT deleteWanted();
    };
}

std::vector<int> PlanChart::TasksOf(const std::vector<TzuDataEntity_Tree *> &nodes) const
{
    std::vector<int> tasks;
    std::ranges::transform(nodes, std::back_inserter(tasks),
                           [](const TzuDataEntity_Tree *node) { return TaskOf(*node); });
    return tasks;
}

void PlanChart::MoveInTree(const TTreeMove &move)
{
    const int parent = move.NewParent != nullptr ? TaskOf(*move.NewParent) : kNoIndex;
    TzuDataList_Tree &siblings = ChildrenOf(parent);
    const int before =
        move.Index < siblings.Count() ? TaskOf(*siblings.Entity(move.Index)) : kNoIndex;
    m_edits->MoveTo(TasksOf(move.Entities), parent, before);
}

void PlanChart::SetLinking(bool on)
{
    m_linking = on;
    SetStickyMode(on ? TGantStickyMode::smDependency : TGantStickyMode::smNone);
}

void PlanChart::NameEdited(TzuDataEntity_Tree &node)
{
    const int task = TaskOf(node);
    const std::string old = Caption(Task(task).Name);
    // A caption may show less than the name; what was not touched stays.
    if (m_edits != nullptr && node.GetText() != old) {
        m_edits->Rename(task, ToQt(node.GetText()));
    }
    node.SetText(Caption(Task(task).Name));
}

// Selection.

std::vector<int> PlanChart::SelectedTasks()
{
    std::vector<int> tasks;
    if (OutlineHasFocus()) {
        tasks = TasksInOutline();
    }
    if (tasks.empty()) {
        for (const TzuDataEntity_Spanbar *bar : SelectedItems()) {
            tasks.push_back(TaskOf(*bar));
        }
    }
    const int current = CurrentTask();
    if (tasks.empty() && isVisible() && current != kNoIndex && SelectedLinks().empty()) {
        tasks.push_back(current);
    }
    std::ranges::sort(tasks);
    return tasks;
}

std::vector<int> PlanChart::SelectedPlanLinks() const
{
    std::vector<int> links;
    for (const TzuDataEntity_Link *line : SelectedLinks()) {
        links.push_back(LinkOf(*line));
    }
    return links;
}

/// The row of the bar that the user has selected becomes the tree's current one.
void PlanChart::AreaSelectionChanged()
{
    if (m_selecting) {
        return;
    }
    const TzuDataEntity_Spanbar *active = ActiveDataEntity();
    if (active != nullptr && active->GetSelected()) {
        const QScopedValueRollback selecting(m_selecting, true);
        m_tree->SetCurrentDataEntity(active->GetRow()->TreeNode());
        if (IsTableShown()) {
            std::vector<TzuDataEntity_GridTreeNode *> nodes;
            for (const TzuDataEntity_Spanbar *bar : SelectedItems()) {
                nodes.push_back(Items(TaskOf(*bar)).GridNode);
            }
            m_table->SelectRows(nodes, Items(TaskOf(*active)).GridNode);
        }
    }
    Q_EMIT selectionChanged();
}

/// Only what the user does in the tree counts; otherwise the tree has followed the area. A range of
/// rows is told row by row.
void PlanChart::TreeSelectionChanged()
{
    if (m_selecting || m_followingTree || !OutlineHasFocus()) {
        return;
    }
    m_followingTree = true;
    QTimer::singleShot(0, this, [this] {
        m_followingTree = false;
        FollowTree();
    });
}

void PlanChart::FollowTree()
{
    {
        const QScopedValueRollback selecting(m_selecting, true);
        ClearSelection();
        for (const int task : TasksInOutline()) {
            if (TzuDataEntity_Spanbar *bar = Items(task).Bar) {
                bar->SetSelected(true);
            }
        }
        const int current = CurrentTask();
        if (current != kNoIndex && Items(current).Bar != nullptr) {
            SetActiveDataEntity(Items(current).Bar);
        }
    }
    GantArea().Invalidate();
    Q_EMIT selectionChanged();
}

/// Of the tree, or of the table in its place.
bool PlanChart::OutlineHasFocus()
{
    const QWidget *focus = QApplication::focusWidget();
    QWidget *outline = IsTableShown() ? static_cast<QWidget *>(&Grid()) : m_tree;
    return focus == outline || outline->isAncestorOf(focus);
}

std::vector<int> PlanChart::TasksInOutline()
{
    return IsTableShown() ? m_table->SelectedTasks() : TasksOf(m_tree->SelectedEntities());
}

int PlanChart::CurrentTask()
{
    const TzuDataEntity *node = m_tree->GetCurrentDataEntity();
    if (IsTableShown()) {
        node = Grid().GetCurrentDataEntity();
    }
    return node != nullptr ? TaskOf(*node) : kNoIndex;
}

void PlanChart::SelectTasks(const std::vector<int> &tasks)
{
    {
        const QScopedValueRollback selecting(m_selecting, true);
        ClearSelection();
        for (const int task : tasks) {
            if (TzuDataEntity_Spanbar *bar = Items(task).Bar) {
                bar->SetSelected(true);
            }
        }
        if (!tasks.empty()) {
            ShowTask(tasks);
        }
    }
    GantArea().Invalidate();
    Q_EMIT selectionChanged();
}

/// One that is in view, or the first one, becomes the current one.
void PlanChart::ShowTask(const std::vector<int> &tasks)
{
    m_tree->EnsureLayout();
    UpdateRects();
    const auto isInView = [this](int task) {
        const TGantRow *row = GantRows().FindRowFromTreeNode(Items(task).Node);
        return row != nullptr && row->IsOnScreen()
               && GantArea().rect().contains(0, row->GetRect().Bottom - 1);
    };
    const auto found = std::ranges::find_if(tasks, isInView);
    const TaskItems &items = Items(found != tasks.end() ? *found : tasks.front());
    m_tree->MakeVisible(*items.Node);
    m_tree->SetCurrentDataEntity(items.Node);
    if (IsTableShown()) {
        std::vector<TzuDataEntity_GridTreeNode *> nodes;
        std::ranges::transform(tasks, std::back_inserter(nodes),
                               [this](int task) { return Items(task).GridNode; });
        m_table->SelectRows(nodes, items.GridNode);
    }
    if (items.Bar == nullptr) {
        return;
    }
    SetActiveDataEntity(items.Bar);
    const TDateTime start = items.Bar->GetStartDateTime();
    const TDateTime stop = items.Bar->GetStopDateTime();
    if (stop < Start() || start > Stop()) {
        DateScaler().GoTo(start + std::min(stop - start, Stop() - Start()) / 2);
    }
}

void PlanChart::EditName(int task)
{
    if (IsTableShown()) {
        m_table->Edit(*Items(task).GridNode, TaskColumn::Name);
        return;
    }
    m_tree->setFocus();
    TzuDataEntity_Tree &node = *Items(task).Node;
    m_tree->MakeVisible(node);
    m_tree->EnsureLayout();
    node.EditText();
}

} // namespace korvane::planner
