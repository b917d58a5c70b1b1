// The nodes of a grid's tree, their lists and the controller that joins them to the tree.
#pragma once

#include "cellgrid/zuBabTreeRow.h"
#include "cellgrid/zuRunSequence.h"
#include "foundation/zuExport.h"
#include "tree/zuTreeItem.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace korvane {

class TzuDataEntity_GridTreeNode;
class TzuDataList_GridTree;
class TzuGridTree;

/// See TTreeItemController.
class TzuListController_GridTree : public TTreeItemController<TzuGridTree>
{
public:
    using TTreeItemController::TTreeItemController;
};

/// A row of a grid that is a tree. Every node has its row, hidden while an ancestor is collapsed,
/// so that cells, heights and selections stay with it. A node is selected when a cell of its row
/// is; selecting it selects the row.
class KORVANE_CORE_API TzuDataEntity_GridTreeNode
    : public TTreeItem<TzuDataEntity_GridTreeNode, TzuDataList_GridTree, TzuGridTree>,
      public IBabTreeRow
{
public:
    TzuDataEntity_GridTreeNode() = default;
    ~TzuDataEntity_GridTreeNode() override;

    void CleanForFree() override;
    /// Whether the row is not hidden. Scrolled away is still visible.
    bool GetVisible() const override;

    /// What the tree's column shows where neither a cell nor the application has a text.
    void SetText(std::string_view text);
    /// Images of the tree's column, where it has icons.
    void SetImageIndex(int index);
    void SetSelectedIndex(int index);

    /// Asks for children first that were not loaded yet; without any the node stays collapsed when
    /// it is the application that gives them on demand.
    void SetExpanded(bool expanded);
    /// False to have the children asked for again once there are none.
    void SetChildrenLoaded(bool loaded);
    /// Hides the row and everything below it.
    void Set_HideNode(bool hide);

    /// The row in the grid; nil while the node is in no tree, and when the application dropped the
    /// row.
    TAxisContentItem *Row() const { return m_row; }
    /// The children, made when they are first asked for; nil for a node that is in no tree or is
    /// being deleted. Owned by the node.
    TzuDataList_GridTree *ChildList();

    int TreeLevel() const override { return GetLevel(); }
    bool HasTreeButton() const override;
    bool IsTreeExpanded() const override { return m_expanded; }
    void SetTreeExpanded(bool expanded) override { SetExpanded(expanded); }
    void ExpandTreeBelow() override;
    bool HasNextTreeRow() const override;
    bool CanShowTreeRow() const override;
    void ShowTreeRow() override;
    void TreeRowSelected(bool selected) override;
    TAxisContentItem *ParentRow() const override;
    void RowGoes() override { m_row = nullptr; }

private:
    friend class TzuGridTree;
    friend class TzuDataList_GridTree;

    void Changed(bool image);

    TAxisContentItem *m_row = nullptr;
    int m_sortPlace = 0; ///< while the tree is sorted
    /// Rows that are only counted and await the node or, once it has its own, its children.
    int m_countedRows = 0;
    bool m_told = false; ///< is selected because its row is
};

/// The children of one node, or the roots of a tree. Children that are only counted (AddUnloaded)
/// have rows as well, and come to be when these are shown. Indexes are right whatever is loaded.
class KORVANE_CORE_API TzuDataList_GridTree
    : public TTreeItemList<TzuDataEntity_GridTreeNode, TzuListController_GridTree, TzuGridTree>
{
public:
    /// GetItems with the entity's own class.
    TzuDataEntity_GridTreeNode *Node(int index)
    {
        return static_cast<TzuDataEntity_GridTreeNode *>(GetItems(index));
    }

protected:
    void CountedChanged(int place, int by) override;
    void BecameLoaded(TzuDataEntity &entity, int place) override;
    bool MayUnload(TzuDataEntity &entity) override;
    void BecameCounted(int place) override;
    int FirstToRefresh() const override;

private:
    friend class TzuGridTree;

    TRunSequence &Counted();
    /// Rows of what is only counted before and behind the block.
    int RowsBefore() const { return RowsTo(UnloadedBefore()); }
    int RowsBehind() const { return RowsTo(UnloadedBefore() + UnloadedAfter()) - RowsBefore(); }
    int RowsTo(int place) const;

    /// How many rows each item has that is only counted: more than 1 for one that was expanded when
    /// it was unloaded, 0 where the list has no rows. None before anything was counted.
    std::unique_ptr<TRunSequence> m_counted;
    int m_unloadedRows = 0; ///< of what is being unloaded
    bool m_uncount = false; ///< it is not to be counted
};

} // namespace korvane
