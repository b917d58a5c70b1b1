#include "cellgrid/zuRunSequence.h"

#include <stdexcept>
#include <utility>

namespace korvane {

void TRunSequence::CheckRange(int index, int count) const
{
    if (index < 0 || count < 0 || count > Count() - index) {
        throw std::out_of_range("List index out of bounds");
    }
}

TRunSequence::TRun TRunSequence::RunAt(int index) const
{
    CheckRange(index, 1);
    int first = 0;
    Node node = m_root;
    while (true) {
        const TNode &at = m_nodes[node];
        const int begin = first + m_nodes[at.Left].Entries;
        if (index < begin) {
            node = at.Left;
        } else if (index < begin + at.Count) {
            return {begin, at.Count, at.Value};
        } else {
            first = begin + at.Count;
            node = at.Right;
        }
    }
}

void TRunSequence::Insert(int index, int count, int value)
{
    CheckRange(index, 0);
    if (count > 0) {
        const auto [left, right] = Split(m_root, index);
        m_root = Join(Join(left, NewNode(count, value)), right);
    }
}

void TRunSequence::Erase(int index, int count)
{
    CheckRange(index, count);
    const auto [left, rest] = Split(m_root, index);
    const auto [middle, right] = Split(rest, count);
    Free(middle);
    m_root = Join(left, right);
}

void TRunSequence::Fill(int index, int count, int value)
{
    CheckRange(index, count);
    if (count == 0) {
        return;
    }
    const TRun run = RunAt(index);
    if (run.Value == value && index + count <= run.First + run.Count) {
        return;
    }
    Erase(index, count);
    Insert(index, count, value);
}

void TRunSequence::Move(int from, int to, int count)
{
    CheckRange(from, count);
    CheckRange(to, count);
    if (count == 0 || from == to) {
        return;
    }
    const auto [left, rest] = Split(m_root, from);
    const auto [middle, right] = Split(rest, count);
    const auto [before, behind] = Split(Join(left, right), to);
    m_root = Join(Join(before, middle), behind);
}

void TRunSequence::Clear()
{
    m_nodes.resize(1);
    m_free.clear();
    m_root = kNone;
}

std::int64_t TRunSequence::OffsetOf(int index) const
{
    CheckRange(index, 0);
    std::int64_t offset = 0;
    for (Node node = m_root; node != kNone;) {
        const TNode &at = m_nodes[node];
        const int before = m_nodes[at.Left].Entries;
        if (index <= before) {
            node = at.Left;
            continue;
        }
        offset += SumOf(at.Left);
        if (index <= before + at.Count) {
            return offset + std::int64_t{index - before} * Extent(at.Value);
        }
        offset += std::int64_t{at.Count} * Extent(at.Value);
        index -= before + at.Count;
        node = at.Right;
    }
    return offset;
}

int TRunSequence::IndexAt(std::int64_t offset) const
{
    const std::int64_t total = Total();
    if (total <= 0) {
        return -1;
    }
    offset = offset < 0 ? 0 : offset < total ? offset : total - 1;
    int first = 0;
    Node node = m_root;
    while (true) {
        const TNode &at = m_nodes[node];
        const std::int64_t before = SumOf(at.Left);
        if (offset < before) {
            node = at.Left;
            continue;
        }
        offset -= before;
        first += m_nodes[at.Left].Entries;
        const std::int64_t own = std::int64_t{at.Count} * Extent(at.Value);
        if (offset < own) {
            return first + static_cast<int>(offset / Extent(at.Value));
        }
        offset -= own;
        first += at.Count;
        node = at.Right;
    }
}

TRunSequence::Node TRunSequence::NewNode(int count, int value)
{
    m_random ^= m_random << 13U;
    m_random ^= m_random >> 17U;
    m_random ^= m_random << 5U;
    Node node = static_cast<Node>(m_nodes.size());
    if (m_free.empty()) {
        m_nodes.emplace_back();
    } else {
        node = m_free.back();
        m_free.pop_back();
    }
    m_nodes[node] = {kNone, kNone, m_random, count, value, 0, 0, 0};
    Update(node);
    return node;
}

/// Frees a whole subtree.
void TRunSequence::Free(Node node)
{
    if (node != kNone) {
        Free(m_nodes[node].Left);
        Free(m_nodes[node].Right);
        m_free.push_back(node);
    }
}

void TRunSequence::Update(Node node)
{
    TNode &at = m_nodes[node];
    const TNode &left = m_nodes[at.Left];
    const TNode &right = m_nodes[at.Right];
    const bool isDefault = at.Value == kDefault;
    at.Entries = left.Entries + right.Entries + at.Count;
    at.Defaults = left.Defaults + right.Defaults + (isDefault ? at.Count : 0);
    at.Sum = left.Sum + right.Sum + (isDefault ? 0 : std::int64_t{at.Count} * at.Value);
}

TRunSequence::Node TRunSequence::Merge(Node left, Node right)
{
    if (left == kNone || right == kNone) {
        return left == kNone ? right : left;
    }
    if (m_nodes[left].Priority > m_nodes[right].Priority) {
        const Node merged = Merge(m_nodes[left].Right, right);
        m_nodes[left].Right = merged;
        Update(left);
        return left;
    }
    const Node merged = Merge(left, m_nodes[right].Left);
    m_nodes[right].Left = merged;
    Update(right);
    return right;
}

TRunSequence::Node TRunSequence::Join(Node left, Node right)
{
    if (left == kNone || right == kNone) {
        return Merge(left, right);
    }
    Node last = left;
    while (m_nodes[last].Right != kNone) {
        last = m_nodes[last].Right;
    }
    Node first = right;
    while (m_nodes[first].Left != kNone) {
        first = m_nodes[first].Left;
    }
    if (m_nodes[last].Value != m_nodes[first].Value) {
        return Merge(left, right);
    }
    const int count = m_nodes[first].Count;
    const auto [taken, rest] = Split(right, count);
    Free(taken);
    // The totals on the way down to the last run grow with it.
    const bool isDefault = m_nodes[last].Value == kDefault;
    const std::int64_t sum = isDefault ? 0 : std::int64_t{count} * m_nodes[last].Value;
    for (Node node = left;; node = m_nodes[node].Right) {
        TNode &at = m_nodes[node];
        at.Entries += count;
        at.Defaults += isDefault ? count : 0;
        at.Sum += sum;
        if (node == last) {
            at.Count += count;
            return Merge(left, rest);
        }
    }
}

/// The first `index` entries, and the others. A run that both have a part of becomes two.
TRunSequence::THalves TRunSequence::Split(Node node, int index)
{
    if (node == kNone) {
        return {kNone, kNone};
    }
    const int before = m_nodes[m_nodes[node].Left].Entries;
    const int behind = before + m_nodes[node].Count;
    if (index <= before) {
        const auto [left, right] = Split(m_nodes[node].Left, index);
        m_nodes[node].Left = right;
        Update(node);
        return {left, node};
    }
    if (index >= behind) {
        const auto [left, right] = Split(m_nodes[node].Right, index - behind);
        m_nodes[node].Right = left;
        Update(node);
        return {node, right};
    }
    const Node rest = NewNode(behind - index, m_nodes[node].Value);
    const Node right = std::exchange(m_nodes[node].Right, kNone);
    m_nodes[node].Count = index - before;
    Update(node);
    return {node, Merge(rest, right)};
}

} // namespace korvane
