// The child list of a tree node: positions and display rows of a million siblings.
#pragma once

#include "foundation/zuExport.h"
#include "tree/zuTreeNode.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace korvane {

/// A run of siblings. A node finds its position through the run that it is in.
struct TTreeNode_zuSub::TChunk
{
    TTreeNodeList *List = nullptr;        ///< that the run is in
    std::size_t Index = 0;                ///< of the run in its list
    std::vector<TTreeNode_zuSub *> Nodes; ///< in order, never none
};

/// Owns the children of one node, in runs of bounded length. Sums over the runs before each run are
/// kept lazily, so that a burst of changes costs one pass over the runs.
class KORVANE_CORE_API TTreeNodeList
{
public:
    /// As those of the node.
    using TOwner = TTreeNode_zuSub::TOwner;
    using TChunk = TTreeNode_zuSub::TChunk;

    TTreeNodeList() = default;
    TTreeNodeList(const TTreeNodeList &) = delete;
    TTreeNodeList &operator=(const TTreeNodeList &) = delete;
    ~TTreeNodeList();

    /// Number of children.
    int Count() const { return m_count; }
    /// Display rows of all children and what is shown below them.
    int RowCount() const { return m_rowCount; }

    /// The two are inverse; positions are 0-based and must exist, and so must the child.
    TTreeNode_zuSub *At(int position) const;
    int PositionOf(const TTreeNode_zuSub &node) const;
    /// Rows before the node's own.
    int FirstRowOf(const TTreeNode_zuSub &node) const;
    /// The child in whose rows `row` lies, and the row relative to that child.
    struct THit
    {
        /// See above.
        TTreeNode_zuSub *Node;
        int Row;
    };
    /// `row` is 0..RowCount() - 1, counted from the first child.
    THit AtRow(int row) const;
    /// The child behind it, or nil.
    TTreeNode_zuSub *Next(const TTreeNode_zuSub &node) const;

    /// The list owns the nodes from now on.
    void Insert(int position, std::vector<TOwner> nodes);
    /// Hands out all children, for a release that does not recurse.
    void ReleaseTo(std::vector<TTreeNode_zuSub *> &nodes);
    /// Gives away `count` children from `first` on, in their order.
    std::vector<TOwner> Take(int first, int count);
    /// `order` holds each child once.
    void Reorder(std::span<TTreeNode_zuSub *const> order);
    /// A child's row count changed.
    void AddRows(const TTreeNode_zuSub &node, int delta);

private:
    struct TRun
    {
        std::unique_ptr<TChunk> Chunk;
        int Rows = 0;
        mutable int FirstPosition = 0; ///< valid in runs before m_firstStale, like FirstRow
        mutable int FirstRow = 0;
    };

    void EnsureSums() const;
    std::size_t RunOfPosition(int position) const;
    TRun MakeRun(std::span<TTreeNode_zuSub *const> nodes);
    void ReplaceRuns(std::size_t first, std::size_t last, std::span<TTreeNode_zuSub *const> nodes);
    void StaleFrom(std::size_t run) { m_firstStale = run < m_firstStale ? run : m_firstStale; }

    std::vector<TRun> m_runs;
    mutable std::size_t m_firstStale = 0; ///< first run whose sums are out of date
    int m_count = 0;
    int m_rowCount = 0;
};

} // namespace korvane
