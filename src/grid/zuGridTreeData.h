// The nodes of a grid's tree, their lists and the controller that joins them to the tree.
#pragma once

#include "cellgrid/zuBabTreeRow.h"
#include "cellgrid/zuRunSequence.h"
#include "data/zuDataEntityPack.h"
#include "foundation/zuExport.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace korvane {

class TzuDataList_GridTree;
class TzuGridTree;

/// A row of a grid that is a tree. Every node has its row, hidden while an ancestor is collapsed,
/// so that cells, heights and selections stay with it. A node is selected when a cell of its row
/// is; selecting it selects the row.
class KORVANE_CORE_API TzuDataEntity_GridTreeNode : public TzuDataEntity, public IBabTreeRow
{
public:
    TzuDataEntity_GridTreeNode() = default;
    ~TzuDataEntity_GridTreeNode() override;

    void CleanForFree() override;
    /// Whether the row is not hidden. Scrolled away is still visible.
    bool GetVisible() const override;

    /// What the tree's column shows where neither a cell nor the application has a text; UTF-8,
    /// empty to begin with.
    const std::string &GetText() const { return m_text; }
    void SetText(std::string_view text);
    /// Images of the tree's column, where it has icons; -1, the default, shows none.
    int GetImageIndex() const { return m_imageIndex; }
    void SetImageIndex(int index);
    /// Image of a selected node; -1, the default, shows the normal one.
    int GetSelectedIndex() const { return m_selectedIndex; }
    void SetSelectedIndex(int index);

    /// False to begin with.
    bool GetExpanded() const { return m_expanded; }
    /// Asks for children first that were not loaded yet; without any the node stays collapsed when
    /// it is the application that gives them on demand.
    void SetExpanded(bool expanded);
    /// Whether the children were asked for. Set to false to have them asked for again once there
    /// are none.
    bool ChildrenLoaded() const { return m_childrenLoaded; }
    void SetChildrenLoaded(bool loaded);
    /// False to begin with.
    bool Get_HideNode() const { return m_hideNode; }
    /// Hides the row and everything below it.
    void Set_HideNode(bool hide);

    /// The row in the grid; nil while the node is in no tree, and when the application dropped the
    /// row.
    TAxisContentItem *Row() const { return m_row; }
    /// The children, made when they are first asked for; nil for a node that is in no tree or is
    /// being deleted. Owned by the node.
    TzuDataList_GridTree *ChildList();
    /// The same without making it.
    const TzuDataList_GridTree *LoadedChildren() const { return m_childList; }
    /// Children that are only counted are children, too.
    bool HasChildren() const;
    /// Nil for a root, and for a node in no tree.
    TzuDataEntity_GridTreeNode *ParentNode() const;
    /// 0 for a root. Costs the levels.
    int GetLevel() const;
    /// Nil for a node in no tree.
    TzuGridTree *Tree() const;

    /// The object that an embedding component keeps beside the node; observed, not owned.
    TzuExposable *Companion() const { return m_companion; }
    void SetCompanion(TzuExposable *companion) { m_companion = companion; }

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

    std::string m_text;
    TAxisContentItem *m_row = nullptr;
    TzuDataList_GridTree *m_childList = nullptr;
    TzuExposable *m_companion = nullptr;
    int m_imageIndex = -1;
    int m_selectedIndex = -1;
    int m_sortPlace = 0; ///< while the tree is sorted
    /// Rows that are only counted and await the node or, once it has its own, its children.
    int m_countedRows = 0;
    bool m_expanded = false;
    bool m_childrenLoaded = false;
    bool m_hideNode = false;
    bool m_leaving = false; ///< being deleted
    bool m_told = false;    ///< is selected because its row is
};

/// The children of one node, or the roots of a tree. Children that are only counted (AddUnloaded)
/// have rows as well, and come to be when these are shown. Indexes are right whatever is loaded.
class KORVANE_CORE_API TzuDataList_GridTree : public TzuDataList
{
public:
    void AfterCreate(TzuListController *controller, EntityClass entityClass) override;

    /// Nil for the root list.
    TzuDataEntity_GridTreeNode *ParentEntity() const { return m_parentEntity; }
    /// Nil for a list that was not made by a tree.
    TzuGridTree *Tree() const { return m_tree; }
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

    TzuGridTree *m_tree = nullptr;
    TzuDataEntity_GridTreeNode *m_parentEntity = nullptr;
    /// How many rows each item has that is only counted: more than 1 for one that was expanded when
    /// it was unloaded, 0 where the list has no rows. None before anything was counted.
    std::unique_ptr<TRunSequence> m_counted;
    int m_unloadedRows = 0; ///< of what is being unloaded
    bool m_uncount = false; ///< it is not to be counted
};

/// The controller of every list of one tree.
class TzuListController_GridTree : public TzuListController
{
public:
    /// The tree outlives the controller.
    explicit TzuListController_GridTree(TzuGridTree &tree)
        : m_tree(tree)
    {
    }
    /// The tree whose lists it serves.
    TzuGridTree &Tree() const { return m_tree; }

private:
    TzuGridTree &m_tree;
};

} // namespace korvane
