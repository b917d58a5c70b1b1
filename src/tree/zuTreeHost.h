// What the tree's core asks of the view that shows it.
#pragma once

#include "foundation/zuExport.h"
#include "tree/zuTreeNode.h"

#include <cstdint>

namespace korvane {

/// Where the rows of a tree view lie, in client pixels. Row `TopRow` begins at y = 0.
struct TTreeGeometry
{
    int TopRow = 0;    ///< first row in view, 0-based
    int RowHeight = 1; ///< in pixels, at least 1
    int Width = 0;     ///< of the client area
    int Height = 0;    ///< of the client area
};

/// The view of a tree.
class KORVANE_CORE_API ITreeHost
{
public:
    virtual ~ITreeHost() = default;

    /// Arranges for a repaint, which brings the display up to date first.
    virtual void InvalidateTree() = 0;
    /// As of now; asked for whenever rows are to become pixels.
    virtual TTreeGeometry Geometry() const = 0;
    /// Scrolls so that the row comes to the top, or as near to it as the view's range allows.
    virtual void SetTopRow(int row) = 0;
    /// Makes the node the current and only selected one and brings its row into view; nil leaves
    /// nothing selected. The node is shown (TTreeNode_zuSub::IsShown).
    virtual void SelectNode(TTreeNode_zuSub *node) = 0;
    /// Makes the node the current one; the selection and the scroll position stay.
    virtual void ShowCurrent(TTreeNode_zuSub &node) = 0;
    /// The current node is about to go, and no other becomes current.
    virtual void LoseCurrent() = 0;
    /// Starts editing the caption in place.
    virtual void EditNode(TTreeNode_zuSub &node) = 0;
};

/// A change of structure.
enum class TNodeChange : std::uint8_t {
    Insert, ///< children First .. First + Count - 1 come, with all that is below them
    Remove, ///< children First .. First + Count - 1 go
    Move,   ///< child First comes to stand at To, counted without the child itself
    Reorder ///< any of the children may stand elsewhere
};

/// A change to the children of one node; the numbers are those of TNodeChange.
struct TNodeChangeInfo
{
    /// What changes, and below which node.
    TNodeChange Change = TNodeChange::Insert;
    TTreeNode_zuSub *Parent = nullptr;
    int First = 0; ///< 0-based
    int Count = 0; ///< of the children that are touched
    int To = 0;    ///< of Move alone
};

/// What of a node looks different.
enum class TNodeAspect : std::uint8_t {
    Caption, ///< text, image or font; also the entity that the node shows
    Expansion,
    Selection ///< the entity's Selected
};

/// Hears of every change to the nodes. Structural changes come between BeginNodes and EndNodes
/// only, each announced before and after it is made. Must not change the nodes.
class KORVANE_CORE_API ITreeNodeObserver
{
public:
    virtual ~ITreeNodeObserver() = default;

    /// About `changes` structural changes follow.
    virtual void BeginNodes(int changes) = 0;
    /// Before and after each structural change.
    virtual void BeforeChange(const TNodeChangeInfo &change) = 0;
    virtual void AfterChange(const TNodeChangeInfo &change) = 0;
    /// All that was announced has happened, or less.
    virtual void EndNodes() = 0;
    /// Something that is seen of one node has changed.
    virtual void NodeChanged(TTreeNode_zuSub &node, TNodeAspect aspect) = 0;
    /// Any number of nodes was expanded or collapsed.
    virtual void AllExpansionsChanged() = 0;
    /// All nodes are about to go for good. Not called when the tree outlives its observer.
    virtual void BeforeRelease() = 0;
};

} // namespace korvane
