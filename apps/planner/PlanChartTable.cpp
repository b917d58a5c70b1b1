// The table that may stand beside the chart in place of the tree.
#include "PlanChart.h"
#include "PlanTable.h"
#include "PlanTree.h"
#include "grid/qt/zuGrid.h"
#include "plan/PlanOutline.h"

#include <QMenu>
#include <QSettings>

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr auto kWidthSetting = "table/paneWidth";

} // namespace

PlanChart::~PlanChart()
{
    delete m_table; // before what it shows
}

/// The rows of the tree are those of the table, too.
TGantRow *PlanChart::CreateRow(TzuDataEntity_Tree *treeNode, TzuDataEntity_GridTreeNode *gridNode)
{
    return gridNode == nullptr ? PlanView::CreateRow(treeNode, gridNode) : nullptr;
}

void PlanChart::SetTableShown(bool shown)
{
    if (shown == IsTableShown()) {
        return;
    }
    const std::vector<int> selected = SelectedTasks();
    if (m_table == nullptr) {
        MakeTable();
    }
    CopyExpansions();
    if (shown) {
        m_treeWidth = TreeWidth();
    }
    SetUseGridNotTree(shown);
    if (shown) {
        SetTreeWidth(WidthOfTable());
    } else if (m_treeWidth > 0) {
        SetTreeWidth(m_treeWidth);
    } else {
        FitTree();
    }
    SelectTasks(selected);
}

void PlanChart::ShowTableOf(PlanChart &other)
{
    SetTableShown(true);
    m_table->ShowLike(*other.m_table);
}

/// As the user left it, or so that the columns have room beside a good part of the chart.
int PlanChart::WidthOfTable()
{
    const int stored = QSettings().value(kWidthSetting).toInt();
    const int most = std::max(width() / 2, 1);
    return stored > 0 ? std::min(stored, std::max(width() - 100, 1))
                      : std::min(m_table->WantedWidth(), most);
}

void PlanChart::MakeTable()
{
    m_table = new PlanTable(Grid(), m_document, this);
    m_table->SetEdits(m_edits);
    ApplyTableLooks();
    connect(m_table, &PlanTable::selectionChanged, this, &PlanChart::TreeSelectionChanged);
    connect(this, &TzuGant::splitterMoved, this, [this](int paneWidth) {
        if (IsTableShown()) {
            QSettings().setValue(kWidthSetting, paneWidth);
        }
    });
    Grid().setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&Grid(), &QWidget::customContextMenuRequested, this, &PlanChart::OpenTableMenu);
    FillTable();
}

void PlanChart::FillTable()
{
    for (std::size_t task = 0; task < m_items.size(); ++task) {
        AddGridNode(static_cast<int>(task));
    }
    PlacesChanged();
}

void PlanChart::AddGridNode(int index)
{
    TaskItems &items = *m_items.at(static_cast<std::size_t>(index));
    const int parent = Task(index).Parent;
    const int previous = PreviousSibling(GetPlan(), index);
    TzuDataList_GridTree &list =
        parent == kNoIndex ? *Grid().GetTree()->DataList() : *Items(parent).GridNode->ChildList();
    const int place = previous == kNoIndex ? 0 : Items(previous).GridNode->ListIndex() + 1;
    items.GridNode = Grid().GetTree()->InsertDataEntity(list, place);
    items.GridNode->SetUserReference(&items);
    items.GridNode->SetExpanded(items.Node->GetExpanded());
    GantRows().BindGridNode(*GantRows().FindRowFromTreeNode(items.Node), *items.GridNode);
}

void PlanChart::MoveGridNode(int index)
{
    TzuDataEntity_GridTreeNode &node = *Items(index).GridNode;
    const int parent = Task(index).Parent;
    const int previous = PreviousSibling(GetPlan(), index);
    TzuDataList_GridTree &list =
        parent == kNoIndex ? *Grid().GetTree()->DataList() : *Items(parent).GridNode->ChildList();
    const int place = previous == kNoIndex ? 0 : Items(previous).GridNode->ListIndex() + 1;
    if (node.GetDataList() != &list) {
        node.ChangeOwner(&list, place);
    } else {
        node.Move(node.ListIndex() < place ? place - 1 : place);
    }
}

/// What was shown last tells.
void PlanChart::CopyExpansions()
{
    for (const auto &items : m_items) {
        if (!Task(items->Task).HasChildren) {
            continue;
        }
        if (IsTableShown()) {
            items->Node->SetExpanded(items->GridNode->GetExpanded());
        } else {
            items->GridNode->SetExpanded(items->Node->GetExpanded());
        }
    }
}

bool PlanChart::CommitEdit()
{
    return m_table == nullptr || Grid().CommitEdit();
}

void PlanChart::ExpandAll()
{
    if (IsTableShown()) {
        Grid().GetTree()->FullExpand();
    } else {
        m_tree->FullExpand();
    }
}

void PlanChart::CollapseAll()
{
    if (IsTableShown()) {
        Grid().GetTree()->FullCollapse();
    } else {
        m_tree->FullCollapse();
    }
}

void PlanChart::ApplyTableLooks()
{
    m_table->ApplyLooks(m_looks, m_tree->Font(), m_tree->RowHeight());
}

void PlanChart::FillColumnMenu(QMenu &menu)
{
    if (m_table == nullptr) {
        MakeTable();
    }
    m_table->FillColumnMenu(menu);
}

void PlanChart::OpenTableMenu(QPoint at)
{
    const TGridHit hit = Grid().HitTest({at.x(), at.y()});
    const QPoint globalPoint = Grid().mapToGlobal(at);
    if (hit.Part == TGridPart::ColumnHeader || hit.Part == TGridPart::ColumnBorder) {
        auto *menu = new QMenu(&Grid());
        menu->setAttribute(Qt::WA_DeleteOnClose);
        FillColumnMenu(*menu);
        menu->popup(globalPoint);
    } else {
        Q_EMIT tableMenuWanted(globalPoint);
    }
}

} // namespace korvane::planner
