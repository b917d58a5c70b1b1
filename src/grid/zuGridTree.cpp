#include "grid/zuGridTree.h"

#include "foundation/zuDoLater.h"
#include "grid/zuGrid.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

using TNode = TzuDataEntity_GridTreeNode;

TNode *NodeOfEntity(TzuDataEntity *entity)
{
    return dynamic_cast<TNode *>(entity);
}

/// Nil for a list of another class.
TzuDataList_GridTree *ListOf(const TNode &node)
{
    return dynamic_cast<TzuDataList_GridTree *>(node.GetDataList());
}

} // namespace

TzuGridTree::TzuGridTree(TzuGridCore &grid, TBabGridCell &gridCell)
    : NodeImageEvent(this)
    , m_grid(grid)
    , m_gridCell(gridCell)
    , m_lists(std::make_unique<TzuDataList2lev>())
{
    m_lists->AfterCreate();
    Rows().ClearKeepFixedItems();
    m_gridCell.SetShowsTree(true);
    Rows().AllowGaps([this](int index) { LoadRow(index); });
    FillController();
}

TzuGridTree::~TzuGridTree()
{
    m_destroying = true;
    TDoLater::NeverMind(TDoLaterCall::Bind<&TzuGridTree::RestoreExpandState>(this));
    if (m_rootList != nullptr) {
        ReleaseList(std::exchange(m_rootList, nullptr));
    }
    while (m_lists->Count() > 0) {
        auto *list = static_cast<TzuDataList_GridTree *>(m_lists->GetDataList(0));
        if (list->ParentEntity() != nullptr) {
            list->ParentEntity()->m_childList = nullptr;
        }
        ReleaseList(list);
    }
    Rows().AllowGaps(nullptr);
    m_gridCell.SetShowsTree(false);
}

void TzuGridTree::FillController()
{
    const auto forNode = [](auto call) {
        return TOnDataEntityNotify([call](TzuDataEntity *entity) {
            TNode *node = NodeOfEntity(entity);
            if (node != nullptr && ListOf(*node) != nullptr) {
                call(*node);
            }
        });
    };
    m_controller.OnInsertItem = forNode([this](TNode &node) { _InsertItem(node); });
    m_controller.OnLoadItem = forNode([this](TNode &node) { LoadItem(node); });
    m_controller.OnCanUnload = [this](TzuDataEntity *entity, bool &canUnload) {
        if (TNode *node = NodeOfEntity(entity)) {
            CanUnload(*node, canUnload);
        }
    };
    m_controller.OnDeleteItem = forNode([this](TNode &node) { _DeleteItem(node); });
    m_controller.OnBeforeChangeOwner = forNode([this](TNode &node) {
        TzuDataList_GridTree *list = ListOf(node);
        m_moving = {&node, list, list->IndexOf(&node)};
    });
    m_controller.OnAfterChangeOwner = forNode([this](TNode &node) { AfterChangeOwner(node); });
    m_controller.OnInfoPush = forNode([this](TNode &node) { OnInfoPush(this, &node); });
    m_controller.OnBeforeCanEditItem =
        forNode([this](TNode &node) { OnBeforeCanEditItem(this, &node); });
    m_controller.OnSelectionChanged = [this](TzuDataList *, TzuDataEntity *entity) {
        if (TNode *node = NodeOfEntity(entity)) {
            SelectionChanged(*node);
        }
    };
    m_controller.OnHandlePerformedMove = [this](TzuDataEntity *entity, int, int) {
        if (TNode *node = NodeOfEntity(entity)) {
            MoveRows(*node);
        }
    };
    m_controller.OnContentChanged = [this](TzuDataList *list) {
        const TzuLifeWatch lives(*list);
        if (m_moving.Node != nullptr && m_moving.Node->Tree() != this) {
            Left(*std::exchange(m_moving, {}).Node);
        }
        if (!lives || m_unloading) {
            return;
        }
        if (auto *ofTree = dynamic_cast<TzuDataList_GridTree *>(list)) {
            OnContentChanged(this, ofTree);
        }
    };
}

// --- lists ---------------------------------------------------------------------------------------

TzuDataList_GridTree *TzuGridTree::DataList()
{
    if (m_rootList == nullptr && !m_destroying) {
        m_rootList = NewList(nullptr);
    }
    return m_rootList;
}

TzuDataList_GridTree *TzuGridTree::NewList(TNode *parent)
{
    auto list = std::make_unique<TzuDataList_GridTree>();
    list->AfterCreate(&m_controller, EntityClass::Of<TNode>());
    list->m_parentEntity = parent;
    m_lists->Add(list.get());
    return list.release();
}

void TzuGridTree::ReleaseList(TzuDataList_GridTree *list)
{
    m_lists->Remove(list);
    list->Clear();
    m_pagedLists.erase(list);
    list->FreeWheneverPossible();
}

/// Deletes the children of a node that is being deleted. What lies very deep waits until the
/// outermost deletion is done, for the stack's sake.
void TzuGridTree::ReleaseChildren(TzuDataList_GridTree *children)
{
    LeaveRows(*children);
    if (m_deletionDepth >= kMaxDeletionDepth) {
        children->m_parentEntity = nullptr;
        m_waitingLists.push_back(children);
        return;
    }
    ++m_deletionDepth;
    ReleaseList(children);
    --m_deletionDepth;
    while (m_deletionDepth == 0 && !m_waitingLists.empty()) {
        TzuDataList_GridTree *waiting = m_waitingLists.back();
        m_waitingLists.pop_back();
        ++m_deletionDepth;
        ReleaseList(waiting);
        --m_deletionDepth;
    }
}

TzuDataEntity_GridTreeNode *TzuGridTree::AddDataEntity(TNode *parent)
{
    TzuDataList_GridTree *list = parent != nullptr ? parent->ChildList() : DataList();
    return list != nullptr ? static_cast<TNode *>(list->Add()) : nullptr;
}

TzuDataEntity_GridTreeNode *TzuGridTree::InsertDataEntity(TzuDataList_GridTree &list, int index)
{
    return static_cast<TNode *>(list.Insert(index));
}

void TzuGridTree::RemoveDataEntity(TNode *node)
{
    if (node != nullptr && node->GetDataList() != nullptr) {
        node->GetDataList()->Remove(node);
    }
}

// --- insertion and deletion ----------------------------------------------------------------------

void TzuGridTree::_InsertItem(TNode &node)
{
    const TzuLifeWatch lives(node);
    InsertRow(node);
    if (lives) {
        OnInsertItem(this, &node);
    }
}

void TzuGridTree::InsertRow(TNode &node)
{
    if (node.m_row != nullptr || m_destroying) {
        return;
    }
    TNode *parent = node.ParentNode();
    const auto isLast = [&node] {
        const TzuDataList_GridTree *list = ListOf(node);
        return list != nullptr && list->UnloadedAfter() == 0
               && list->IndexOf(&node) == list->LoadedCount() - 1;
    };
    int index = RowBehind(node);
    if (node.m_countedRows > 0) {
        index -= node.m_countedRows--;
        node.m_row = Rows().LoadAt(index, &node);
        node.m_expanded = node.m_expanded || node.m_countedRows > 0;
    } else if (parent != nullptr && parent->m_countedRows > 0 && isLast()) {
        --parent->m_countedRows;
        node.m_row = Rows().LoadAt(index, &node);
    } else {
        node.m_row = Rows().InsertNew(index, &node);
    }
    if (const bool hide = !IsDisplayed(node); hide != node.m_row->GetHide()) {
        Rows().SetHidden(index, index, hide);
    }
    if (!m_awaited.empty()) {
        m_arrived.insert(&node);
        TDoLater::DoLater(TDoLaterCall::Bind<&TzuGridTree::RestoreExpandState>(this));
    }
    Tell(TGridTreeEvent::RowInserted, &node);
}

void TzuGridTree::_DeleteItem(TNode &node)
{
    const TzuLifeWatch lives(node);
    node.m_leaving = true;
    if (!m_unloading) {
        KeepExpandState(node);
        OnDeleteItem(this, &node);
    }
    if (!lives) {
        return;
    }
    if (TzuDataList_GridTree *children = std::exchange(node.m_childList, nullptr)) {
        ReleaseChildren(children);
    }
    if (lives) {
        Forget(node);
    }
}

void TzuGridTree::Forget(TNode &node)
{
    m_arrived.erase(&node);
    if (m_moving.Node == &node) {
        m_moving = {};
    }
    DropRow(node);
}

void TzuGridTree::DropRow(TNode &node)
{
    if (node.m_row == nullptr) {
        return;
    }
    const TzuLifeWatch lives(node);
    Tell(TGridTreeEvent::RowRemoved, &node);
    if (lives && node.m_row != nullptr) {
        DropCountedRows(node);
        TAxisContentItem *row = std::exchange(node.m_row, nullptr);
        row->SetValue(nullptr);
        row->List()->Drop(row->List()->IndexOf(*row));
    }
}

void TzuGridTree::SelectionChanged(TNode &node)
{
    const TzuLifeWatch lives(node);
    TBabGridCellForViewer *viewer = m_gridCell.GetViewerGridCell();
    if (!node.m_told && node.m_row != nullptr && viewer != nullptr) {
        viewer->OnSelectRow(&m_gridCell, GetRow(node), node.GetSelected());
    }
    if (lives) {
        OnSelectionChanged(this, &node);
    }
}

// --- places --------------------------------------------------------------------------------------

TzuDataEntity_GridTreeNode *TzuGridTree::NodeOf(const TAxisContentItem *row)
{
    return row != nullptr ? dynamic_cast<TNode *>(row->Value()) : nullptr;
}

int TzuGridTree::GetRow(const TNode &node) const
{
    return node.m_row != nullptr ? Rows().IndexOf(*node.m_row) : -1;
}

TzuDataEntity_GridTreeNode *TzuGridTree::GetDataEntityFromRow(int row) const
{
    return NodeOf(Rows().getAxisContentItem(row));
}

std::vector<TzuDataEntity_GridTreeNode *> TzuGridTree::VisibleNodes() const
{
    std::vector<TNode *> nodes;
    for (int k = 0; k < Rows().VisibleCount(); ++k) {
        if (TNode *node = NodeOf(Rows().getVisibleAxisContentItem(k))) {
            nodes.push_back(node);
        }
    }
    return nodes;
}

TzuDataEntity_GridTreeNode *TzuGridTree::GetNextVisible(const TNode *node) const
{
    const int row = node != nullptr ? GetRow(*node) : Rows().FixedCount() - 1;
    return row < 0 && node != nullptr ? nullptr
                                      : GetDataEntityFromRow(Rows().NearestShown(row + 1, 1));
}

TzuDataEntity_GridTreeNode *TzuGridTree::GetPrevVisible(const TNode *node) const
{
    const int row = node != nullptr ? GetRow(*node) : Rows().Count();
    return row <= 0 ? nullptr : GetDataEntityFromRow(Rows().NearestShown(row - 1, -1));
}

bool TzuGridTree::HasNextShown(const TNode &node) const
{
    // What is shown next is of the same parent, or stands behind all of the parent's.
    const int next = Rows().NearestShown(RowBehind(node), 1);
    const TNode *parent = node.ParentNode();
    return next >= 0 && (parent == nullptr || next < RowBehind(*parent) - parent->m_countedRows);
}

/// The row behind the node's and those below it. As if the rows `from`..`from + without - 1`, which
/// are the node's, were not there.
int TzuGridTree::RowBehind(const TNode &node, int from, int without) const
{
    int counted = 0; // rows between the node and the next one that has a row
    for (const TNode *at = &node; at != nullptr; at = at->ParentNode()) {
        const TzuDataList_GridTree *list = ListOf(*at);
        if (list == nullptr) {
            break;
        }
        const int position = list->IndexOf(at);
        for (int p = position + 1; position >= 0 && p < list->LoadedCount(); ++p) {
            const auto *next = static_cast<const TNode *>(list->GetLoaded(p));
            if (next->m_row != nullptr) {
                const int row = Rows().IndexOf(*next->m_row);
                return row - counted - (row > from ? without : 0);
            }
            counted += next->m_countedRows;
        }
        const TNode *parent = list->ParentEntity();
        counted += position >= 0 ? list->RowsBehind() : 0;
        counted += parent != nullptr ? parent->m_countedRows : 0;
    }
    return Rows().Count() - counted - without;
}

/// Number of rows that the node and those below it have.
int TzuGridTree::RowsOf(const TNode &node)
{
    int rows = 0;
    std::vector<const TNode *> open{&node};
    while (!open.empty()) {
        const TNode *at = open.back();
        open.pop_back();
        rows += (at->m_row != nullptr ? 1 : 0) + at->m_countedRows;
        const TzuDataList_GridTree *children = at->m_childList;
        rows += children != nullptr ? children->RowsBefore() + children->RowsBehind() : 0;
        for (int p = 0; children != nullptr && p < children->LoadedCount(); ++p) {
            open.push_back(static_cast<const TNode *>(children->GetLoaded(p)));
        }
    }
    return rows;
}

// --- change of place -----------------------------------------------------------------------------

void TzuGridTree::MoveRows(TNode &node)
{
    if (node.m_row == nullptr) {
        return;
    }
    const int from = GetRow(node);
    const int count = RowsOf(node);
    Rows().MoveRange(from, RowBehind(node, from, count), count);
    UpdateShown(GetRow(node), RowBehind(node), TBelowCollapsed::MayBeShown);
    Tell(TGridTreeEvent::RowMoved, &node);
}

void TzuGridTree::AfterChangeOwner(TNode &node)
{
    if (m_moving.Node != &node) {
        return; // from another list; its tree completes the change
    }
    const TMoving moved = std::exchange(m_moving, {});
    for (const TNode *at = node.ParentNode(); at != nullptr; at = at->ParentNode()) {
        if (at == &node) {
            node.ChangeOwner(moved.List, moved.Position); // below itself: back where it was
            return;
        }
    }
    MoveRows(node);
}

/// A node changed over to a list outside of this tree.
void TzuGridTree::Left(TNode &node)
{
    const TzuLifeWatch lives(node);
    DropRow(node);
    if (!lives) {
        return;
    }
    if (TzuGridTree *other = node.Tree()) {
        other->Came(node);
    } else if (node.m_childList != nullptr) {
        ReleaseChildren(std::exchange(node.m_childList, nullptr));
    }
}

/// Takes over a node that came from another tree, and its children.
void TzuGridTree::Came(TNode &node)
{
    TzuDataList_GridTree *old = std::exchange(node.m_childList, nullptr);
    InsertRow(node);
    TzuDataList_GridTree *children = old != nullptr ? node.ChildList() : nullptr;
    while (children != nullptr && old->LoadedCount() > 0) {
        const int before = old->LoadedCount();
        old->GetLoaded(0)->ChangeOwner(children, children->LoadedCount());
        if (old->LoadedCount() >= before) {
            break;
        }
    }
    if (old != nullptr) {
        if (children != nullptr) {
            children->AddUnloaded(old->Count() - old->LoadedCount());
        }
        old->Tree()->ReleaseList(old);
    }
}

} // namespace korvane
