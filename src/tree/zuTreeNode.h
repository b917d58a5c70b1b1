// Display nodes of the tree: a light hierarchy that knows positions and display rows.
#pragma once

#include "foundation/zuExport.h"

#include <memory>
#include <span>
#include <vector>

namespace korvane {

class TzuDataEntity_Tree;
class TTreeNodeList;

/// A node of the tree view. A parent owns its children.
///
/// The hierarchy hangs below one invisible root node, which is always expanded. A display row is
/// the position of a node among all nodes whose ancestors are expanded, counted from the root's
/// first child = 0. Positions and rows are found in logarithmic time or better, also after changes
/// in the middle of a million siblings. A node of a flat list takes about 60 bytes all told.
class KORVANE_CORE_API TTreeNode_zuSub
{
public:
    /// Owns a node that is in no tree yet, or no longer.
    using TOwner = std::unique_ptr<TTreeNode_zuSub>;

    TTreeNode_zuSub();
    TTreeNode_zuSub(const TTreeNode_zuSub &) = delete;
    TTreeNode_zuSub &operator=(const TTreeNode_zuSub &) = delete;
    ~TTreeNode_zuSub();

    /// The entity that the node shows; nil for the root, for a placeholder and for a node whose
    /// entity went away. A node that is freed lets go of its entity.
    TzuDataEntity_Tree *Data() const { return m_data; }
    void SetData(TzuDataEntity_Tree *entity) { m_data = entity; }

    /// Whether the node stands for children that are not loaded yet.
    bool IsPlaceholder() const { return m_placeholder; }
    void SetPlaceholder(bool placeholder) { m_placeholder = placeholder; }
    /// The placeholder among the node's children, or nil.
    TTreeNode_zuSub *PlaceholderChild() const;

    /// Whether the node is to go at the next update of the display.
    bool Deleting() const { return m_deleting; }
    void SetDeleting() { m_deleting = true; }

    /// Nil for the root and for a node that is in no tree.
    TTreeNode_zuSub *Parent() const { return m_parent; }
    /// 0 for the children of the root.
    int Level() const;
    /// Its own children only, shown or not.
    int ChildCount() const;
    /// Requires 0 <= index < ChildCount().
    TTreeNode_zuSub *Child(int index) const;
    /// Position among the siblings; 0 for a node without parent.
    int Index() const;
    /// Whether `ancestor` is this node or above it.
    bool IsAtOrBelow(const TTreeNode_zuSub &ancestor) const;

    /// Places nodes without parent before child `at` (0..ChildCount()).
    void InsertChildren(int at, std::vector<TOwner> nodes);
    /// Removes children first .. first + count - 1 from the hierarchy, in their order.
    std::vector<TOwner> TakeChildren(int first, int count);
    /// Frees all children.
    void Clear();
    /// Puts the children into the given order, which must hold each of them once.
    void ReorderChildren(std::span<TTreeNode_zuSub *const> order);

    /// Also kept by a node without children.
    bool Expanded() const { return m_expanded; }
    void SetExpanded(bool expanded);
    /// Whether all ancestors are expanded, up to a root.
    bool IsShown() const;
    /// Display rows of the node itself and of what is shown below it.
    int RowCount() const { return m_rowCount; }
    /// Display row, -1 when an ancestor is collapsed. The node must not be the root.
    int Row() const;
    /// Called on the root: the node at a display row, nil when there is none.
    TTreeNode_zuSub *NodeAtRow(int row) const;
    /// The node in the next display row, nil at the end. For a node that is shown, or the root.
    TTreeNode_zuSub *NextShown() const;
    /// The node in the display row before, nil at the start. For a node that is shown.
    TTreeNode_zuSub *PrevShown() const;
    /// The next node in pre-order within `top`, whether shown or not; nil at the end.
    TTreeNode_zuSub *NextInside(const TTreeNode_zuSub &top) const;

private:
    friend class TTreeNodeList;
    struct TChunk;

    TTreeNode_zuSub *NextSibling() const;
    void AddRows(int delta);

    TTreeNode_zuSub *m_parent = nullptr;
    TzuDataEntity_Tree *m_data = nullptr;
    TChunk *m_chunk = nullptr; ///< part of the parent's child list that holds this node
    std::unique_ptr<TTreeNodeList> m_children;
    int m_rowCount = 1;
    bool m_expanded = false;
    bool m_placeholder = false;
    bool m_deleting = false;
};

} // namespace korvane
