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
    TTreeNodeList *List = nullptr;
    std::size_t Index = 0; ///< of the run in its list
    std::vector<TTreeNode_zuSub *> Nodes;
};

/// Owns the children of one node, in runs of bounded length. Sums over the runs before each run are
/// kept lazily, so that a burst of changes costs one pass over the runs.
class KORVANE_CORE_API TTreeNodeList
{
public:
    using TOwner = TTreeNode_zuSub::TOwner;
    using TChunk = TTreeNode_zuSub::TChunk;

    TTreeNodeList() = default;
    TTreeNodeList(const TTreeNodeList &) = delete;
    TTreeNodeList &operator=(const TTreeNodeList &) = delete;
    ~TTreeNodeList();

    int Count() const { return m_count; }
    /// Display rows of all children and what is shown below them.
    int RowCount() const { return m_rowCount; }

    TTreeNode_zuSub *At(int position) const;
    int PositionOf(const TTreeNode_zuSub &node) const;
    /// Rows before the node's own.
    int FirstRowOf(const TTreeNode_zuSub &node) const;
    /// The child in whose rows `row` lies, and the row relative to that child.
    struct THit
    {
        TTreeNode_zuSub *Node;
        int Row;
    };
    THit AtRow(int row) const;
    TTreeNode_zuSub *Next(const TTreeNode_zuSub &node) const;

    void Insert(int position, std::vector<TOwner> nodes);
    /// Hands out all children, for a release that does not recurse.
    void ReleaseTo(std::vector<TTreeNode_zuSub *> &nodes);
    std::vector<TOwner> Take(int first, int count);
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
