// A long sequence of numbers in which equal neighbours are stored once.
#pragma once

#include "foundation/zuExport.h"

#include <cstdint>
#include <vector>

namespace korvane {

/// A sequence of integers kept as runs of equal values. Every operation costs the logarithm of the
/// number of runs (Fill and Erase: plus the runs that they replace), however long the runs are.
///
/// The values are seen as extents that lie one behind the other: OffsetOf and IndexAt convert
/// between an index and the sum of what stands before it. kDefault stands for an extent that all
/// such entries share and that can be changed at once. Indexes out of range throw
/// std::out_of_range.
class KORVANE_CORE_API TRunSequence
{
public:
    /// Stands for the default extent.
    static constexpr int kDefault = -1;

    /// Equal neighbours.
    struct TRun
    {
        int First = 0; ///< index of its first entry
        int Count = 0; ///< of entries, at least 1
        int Value = 0; ///< that they share
    };

    /// Empty.
    explicit TRunSequence(int defaultExtent = 0)
        : m_default(defaultExtent)
    {
    }

    /// Number of entries, and of runs that hold them; read at no cost.
    int Count() const { return m_root == kNone ? 0 : m_nodes[m_root].Entries; }
    int RunCount() const { return static_cast<int>(m_nodes.size() - m_free.size()) - 1; }
    /// The extent of entries with the value kDefault; a change costs nothing.
    int Default() const { return m_default; }
    void SetDefault(int extent) { m_default = extent; }

    /// The value as stored; kDefault for such an entry.
    int ValueAt(int index) const { return RunAt(index).Value; }
    /// The whole run that holds the index.
    TRun RunAt(int index) const;
    /// The default extent for such an entry.
    int ExtentAt(int index) const { return Extent(ValueAt(index)); }

    /// `index` is 0..Count.
    void Insert(int index, int count, int value);
    /// `count` entries from the index on.
    void Erase(int index, int count);
    void Fill(int index, int count, int value);
    /// The entries `from`..`from + count - 1` come to stand from index `to` on, counted without
    /// them.
    void Move(int from, int to, int count = 1);
    /// The default extent stays.
    void Clear();

    /// Sum of all extents.
    std::int64_t Total() const { return m_root == kNone ? 0 : SumOf(m_root); }
    /// Sum of the extents before the index 0..Count.
    std::int64_t OffsetOf(int index) const;
    /// The entry whose extent holds the offset: OffsetOf(i) <= offset < OffsetOf(i + 1). Before the
    /// beginning the first entry that has an extent, past the end the last one; -1 when there is
    /// none.
    int IndexAt(std::int64_t offset) const;

private:
    using Node = std::uint32_t;
    static constexpr Node kNone = 0;

    /// A node of a treap: one run, with totals of all that is below it.
    struct TNode
    {
        Node Left = kNone;
        Node Right = kNone;
        std::uint32_t Priority = 0;
        int Count = 0;
        int Value = 0;
        int Entries = 0;
        int Defaults = 0;
        std::int64_t Sum = 0; ///< without the defaults
    };
    struct THalves
    {
        Node Left;
        Node Right;
    };

    void CheckRange(int index, int count) const;
    int Extent(int value) const { return value == kDefault ? m_default : value; }
    std::int64_t SumOf(Node node) const
    {
        return m_nodes[node].Sum + std::int64_t{m_nodes[node].Defaults} * m_default;
    }
    Node NewNode(int count, int value);
    void Free(Node node);
    void Update(Node node);
    Node Merge(Node left, Node right);
    /// Merge that makes one run of two equal ones that meet.
    Node Join(Node left, Node right);
    THalves Split(Node node, int index);

    std::vector<TNode> m_nodes{TNode()};
    std::vector<Node> m_free;
    Node m_root = kNone;
    int m_default;
    std::uint32_t m_random = 2463534242U;
};

} // namespace korvane
