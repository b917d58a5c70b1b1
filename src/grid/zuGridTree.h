// The tree that the rows of a grid may be.
#pragma once

#include "cellgrid/zuBabGridCell.h"
#include "data/zuDataTraveser.h"
#include "foundation/zuEventHandling.h"
#include "foundation/zuExport.h"
#include "grid/zuGridTreeData.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace korvane {

class TzuGridCore;

/// What a component that shows something beside the rows has to follow.
enum class TGridTreeEvent : std::uint8_t {
    RowInserted,       ///< the node has its row now
    RowRemoved,        ///< the node is about to lose its row
    RowMoved,          ///< the node's row, and those below it, stand elsewhere
    RowVisibleChanged, ///< rows at or below the node were hidden or shown; nil: any rows
    RowsReordered      ///< sorted; the node is nil
};
/// A row has come, gone, moved, or was hidden or shown.
using TOnGridTreeIntegrationEvent = TMethod<void(TzuGridTree *theTree, TGridTreeEvent theEvent,
                                                 TzuDataEntity_GridTreeNode *theNode)>;
/// The key by which a node is recognised when it comes again; empty for none.
using TOnGetNodeKey =
    TMethod<void(TzuGridTree *theTree, TzuDataEntity_GridTreeNode *theNode, std::string &theKey)>;

/// Nodes that are to come below a parent (nil: as roots), in their order, before what stands at
/// Index of its list now; an Index of Count or more is behind the last one.
struct TGridTreeMove
{
    std::vector<TzuDataEntity_GridTreeNode *> Nodes; ///< each with what is below it
    TzuDataEntity_GridTreeNode *NewParent = nullptr; ///< nil for the top level
    int Index = 0; ///< 0-based; those of Nodes that stand in the list count as well
};

/// Nodes as rows of one grid cell, in pre-order behind the head. The rows are the tree's own: the
/// application adds and removes nodes, not rows. Inserting and looking up cost a logarithm and the
/// depth of the node; expanding and collapsing cost what is loaded of what is shown or hidden by
/// it.
///
/// Children may be only counted (TzuDataList::AddUnloaded): a node comes to be, and its row is
/// given to the grid's OnVirtualLoad, when the row is shown or asked for. Where the grid lets rows
/// go (OnCanUnload; TzuGrid does when OnVirtualLoad is set), counted nodes that are out of sight
/// are unloaded again, with all that is below them; their rows stay. A node that was expanded then
/// is expanded when it comes back, and what was expanded below it as for nodes that were deleted.
///
/// Expanded nodes that are deleted are expanded again when they come back, as they do when an
/// application loads its content anew: a node's key is what OnGetNodeKey says, else its user
/// reference, else the texts from its root to it. Nodes without any are not recognised.
class KORVANE_CORE_API TzuGridTree : public TObject
{
public:
    /// For ExpandLevels: every level there can be.
    static constexpr int kAllLevels = 1 << 30;
    /// Something happened to a node.
    using TNodeNotify = TMethod<void(TzuGridTree *theTree, TzuDataEntity_GridTreeNode *theNode)>;

    /// Both outlive the tree. The grid cell's rows behind the head are cleared.
    TzuGridTree(TzuGridCore &grid, TBabGridCell &gridCell);
    /// Frees the nodes, and with them the rows.
    ~TzuGridTree() override;

    /// As given to the constructor.
    TBabGridCell &GridCell() const { return m_gridCell; }
    TzuGridCore &Grid() const { return m_grid; }

    /// The roots; made when first asked for, nil once the tree is being released. Nodes belong to
    /// their lists, lists to their parent node or to the tree.
    TzuDataList_GridTree *DataList();
    /// Every list of the tree that was asked for.
    const TzuDataList2lev &DataLists() const { return *m_lists; }
    /// The controller of all these lists; its slots are the tree's to set.
    TzuListController_GridTree &Controller() { return m_controller; }
    /// Appends below the parent, or a root when it is nil. Nil when a handler removed it.
    TzuDataEntity_GridTreeNode *AddDataEntity(TzuDataEntity_GridTreeNode *parent = nullptr);
    /// Inserts at an index 0..Count of the list; throws std::out_of_range for others. Nil as above.
    TzuDataEntity_GridTreeNode *InsertDataEntity(TzuDataList_GridTree &list, int index);
    /// Takes it out and frees it, with all below it; nil and what is in no list are ignored.
    void RemoveDataEntity(TzuDataEntity_GridTreeNode *node);
    /// Removes everything.
    void Clear() { DataList()->Clear(); }
    /// Unloads what may be and is not shown. The tree does it by itself after it has loaded many.
    void Purge();

    // Rows.
    /// Nil for rows of the head.
    static TzuDataEntity_GridTreeNode *NodeOf(const TAxisContentItem *row);
    /// Index in the grid's rows, hidden or not; -1 without a row.
    int GetRow(const TzuDataEntity_GridTreeNode &node) const;
    /// Loaded when it is only counted. Nil for rows of the head, and for indexes that do not exist.
    TzuDataEntity_GridTreeNode *GetDataEntityFromRow(int row) const;
    /// The nodes whose rows are shown now, from top to bottom.
    std::vector<TzuDataEntity_GridTreeNode *> VisibleNodes() const;
    /// The next node that is not hidden; of nil the first. Nil when there is none.
    TzuDataEntity_GridTreeNode *GetNextVisible(const TzuDataEntity_GridTreeNode *node) const;
    /// The same upwards; of nil the last.
    TzuDataEntity_GridTreeNode *GetPrevVisible(const TzuDataEntity_GridTreeNode *node) const;
    /// Whether a node of the same parent is shown below this one.
    bool HasNextShown(const TzuDataEntity_GridTreeNode &node) const;

    // Expanding.
    /// Children that are given on demand are not asked for, and what is only counted stays so.
    /// OnExpanded and OnCollapsed do not fire.
    void FullExpand() { ExpandLevels(kAllLevels); }
    void FullCollapse();
    /// The nodes of levels 0..levels - 1, as FullExpand; nodes of other levels stay as they are.
    void ExpandLevels(int levels);
    /// Expands the node and what is below it.
    void ExpandBelow(TzuDataEntity_GridTreeNode &node);
    /// Expands what hides the node.
    void ExpandAncestors(const TzuDataEntity_GridTreeNode &node);
    /// Keys of the expanded nodes, and of those that are awaited.
    std::vector<std::string> ExpandState();
    /// Expands the nodes of these keys, now or when they come.
    void SetExpandState(const std::vector<std::string> &keys);
    /// Whether nodes without children have a button until they were asked for them.
    bool LoadsOnDemand() const;

    // Moving.
    /// The nodes whose rows are selected, without those below others of them, from top to bottom.
    std::vector<TzuDataEntity_GridTreeNode *> TopmostSelected() const;
    /// What dropping nodes there moves.
    TGridTreeMove MoveTo(const TGridRowDrop &drop, std::vector<TzuDataEntity_GridTreeNode *> nodes);
    /// Nothing comes below itself.
    static bool CanMove(const TGridTreeMove &move);
    /// Moves without asking. Rows, cells and selection stay with their nodes.
    void MoveNodes(const TGridTreeMove &move);
    /// As the user wants it: asked by OnBeforeMove. A new parent's children are asked for first.
    bool MoveByUser(TGridTreeMove move);

    /// Sorts siblings by the order in which their rows stand here, all rows of the tree.
    void Sort(const std::vector<TAxisContentItem *> &order);

    TEvent NodeImageEvent; ///< an image index changed; data: the node
    /// Called within changes: only note what happened.
    TOnGridTreeIntegrationEvent OnIntegrationEvent;
    /// Asked when a node goes, and when one comes that may have been expanded.
    TOnGetNodeKey OnGetNodeKey;
    TNodeNotify OnInsertItem; ///< the node has its row
    TNodeNotify OnDeleteItem; ///< before the node is freed
    TNodeNotify OnSelectionChanged;
    /// One node was expanded or collapsed, by the user or by SetExpanded.
    TNodeNotify OnExpanded;
    TNodeNotify OnCollapsed;
    /// DoInfoPush was called; the handler may set CanEdit before it is read.
    TNodeNotify OnInfoPush;
    TNodeNotify OnBeforeCanEditItem;
    /// As TzuListController::OnContentChanged.
    TMethod<void(TzuGridTree *theTree, TzuDataList_GridTree *theList)> OnContentChanged;
    /// A handler that does the moving itself sets `handled`.
    TMethod<void(TzuGridTree *theTree, const TGridTreeMove &theMove, bool &allow, bool &handled)>
        OnBeforeMove;
    /// After a move by the user.
    TMethod<void(TzuGridTree *theTree, const TGridTreeMove &theMove)> OnMoved;

private:
    friend class TzuDataEntity_GridTreeNode;
    friend class TzuDataList_GridTree;
    using TNode = TzuDataEntity_GridTreeNode;

    /// A row that is only counted: item `Item` of the list stands there, and rows of the list that
    /// are only counted go on to before `End`. No list for other rows.
    struct TCounted
    {
        TzuDataList_GridTree *List = nullptr;
        int Item = 0;
        int End = 0;
    };

    /// A node that is about to change over to a list that is not known yet.
    struct TMoving
    {
        TNode *Node = nullptr;
        TzuDataList_GridTree *List = nullptr;
        int Position = 0;
    };

    TAxisContentList &Rows() const { return m_gridCell.Rows(); }
    void FillController();
    TzuDataList_GridTree *NewList(TNode *parent);
    void ReleaseList(TzuDataList_GridTree *list);
    void ReleaseChildren(TzuDataList_GridTree *children);
    void _InsertItem(TNode &node);
    void _DeleteItem(TNode &node);
    void LoadItem(TNode &node);
    void LoadRow(int index);
    void LoadInList(TzuDataList_GridTree &list, int index);
    TCounted CountedAt(int row) const;
    void CountedCame(TzuDataList_GridTree &list, int place, int count);
    void CountedGo(TzuDataList_GridTree &list, int place, int count);
    void CollapseCounted(TzuDataList_GridTree &list);
    void LeaveRows(TzuDataList_GridTree &list);
    bool HasRows(const TzuDataList_GridTree &list) const;
    int FirstRowOf(const TzuDataList_GridTree &list) const;
    int RowOfCounted(const TzuDataList_GridTree &list, int place) const;
    void MakeRows(TNode &node);
    void CanUnload(TNode &node, bool &canUnload) const;
    bool PrepareUnload(TzuDataList_GridTree &list, TNode &node);
    bool TellUnload(TzuDataList_GridTree &list, TNode &node);
    void DropCountedRows(TNode &node);
    void AfterChangeOwner(TNode &node);
    void Left(TNode &node);
    void Came(TNode &node);
    void Forget(TNode &node);
    void DropRow(TNode &node);
    void InsertRow(TNode &node);
    void MoveRows(TNode &node);
    TNode *LoadedNodeAt(int row) const { return NodeOf(Rows().FindLoaded(row)); }
    int RowBehind(const TNode &node, int from = 0, int without = 0) const;
    static int RowsOf(const TNode &node);
    bool IsDisplayed(const TNode &node) const;
    static bool DisplaysChildren(const TNode *parent);
    void NodeChanged(TNode &node, bool image);
    void SelectionChanged(TNode &node);
    void SetNodeExpanded(TNode &node, bool expanded);
    bool LoadChildren(TNode &node);
    void ExpandRows(int first, TNode *top, int levels);
    void UpdateShown(TNode &node);
    enum class TBelowCollapsed : std::uint8_t { IsHidden, MayBeShown };
    void UpdateShown(int first, int end, TBelowCollapsed below);
    int UpdateCountedShown(int first, int end);
    template <typename Handle>
    void ForEachLoaded(int first, int end, const Handle &handle) const;
    void Tell(TGridTreeEvent event, TNode *node) { OnIntegrationEvent(this, event, node); }
    std::string KeyOf(TNode &node);
    void KeepExpandState(TNode &node);
    void RestoreExpandState(TObject *);
    std::vector<TAxisContentItem *> RowsInOrder() const;

    TzuGridCore &m_grid;
    TBabGridCell &m_gridCell;
    TzuListController_GridTree m_controller{*this};
    std::unique_ptr<TzuDataList2lev> m_lists;
    TzuDataList_GridTree *m_rootList = nullptr;
    TMoving m_moving;
    std::vector<TzuDataList_GridTree *> m_waitingLists; ///< of deleted nodes, yet to be released
    std::unordered_set<std::string> m_awaited;          ///< keys of nodes that were expanded
    std::unordered_set<TNode *> m_arrived;              ///< whose keys are to be looked up
    std::unordered_set<TzuDataList_GridTree *> m_pagedLists; ///< with nodes that were counted once
    std::shared_ptr<char> m_life = std::make_shared<char>(); ///< watched across handlers
    int m_loadsSincePurge = 0;
    int m_deletionDepth = 0;
    bool m_unloading = false; ///< what goes is not deleted
    bool m_destroying = false;
};

/// A tree in a cell of a grid.
class KORVANE_CORE_API TzuSubTreeCell : public TBabSubGridCell
{
public:
    /// With one column for the tree, unless a sub-grid gives others. The grid outlives it.
    explicit TzuSubTreeCell(TzuGridCore &grid)
        : m_tree(std::make_unique<TzuGridTree>(grid, *this))
    {
    }
    /// Owned by the cell.
    TzuGridTree &Tree() const { return *m_tree; }
    /// Has the application give the roots.
    void AfterPlaced() override;

private:
    std::unique_ptr<TzuGridTree> m_tree;
};

} // namespace korvane
