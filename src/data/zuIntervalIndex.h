// Intervals of which the active ones are found by overlap.
#pragma once

#include "foundation/zuExport.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <limits>
#include <vector>

namespace korvane {

/// An interval that begins at Low and ends before High. `Owner` is the user's number for it.
struct TIndexedInterval
{
    /// See above: half-open, in any unit.
    double Low = 0;
    double High = 0;
    int Owner = 0;
};

/// Intervals in order of their Low, of which each is inactive or active at a level.
///
/// Finding the active intervals that overlap a stretch costs log n for each of them; changing one
/// costs log n. Intervals may be empty or inverted: what counts is Low < high and High > low.
class KORVANE_CORE_API TIntervalIndex
{
public:
    /// What the intervals are at first.
    enum class TInitially : unsigned char { Inactive, ActiveAtLevel0 };

    /// The intervals are observed and sorted by Low. A position counts them.
    TIntervalIndex(const std::vector<TIndexedInterval> &intervals, TInitially initially)
        : m_intervals(intervals)
        , m_leaves(std::bit_ceil(std::max<std::size_t>(intervals.size(), 1)))
        , m_nodes(2 * m_leaves)
    {
        if (initially == TInitially::Inactive) {
            return;
        }
        for (std::size_t i = 0; i < intervals.size(); ++i) {
            m_nodes[m_leaves + i] = {intervals[i].High, 0};
        }
        for (std::size_t node = m_leaves - 1; node > 0; --node) {
            m_nodes[node] = GreatestBelow(node);
        }
    }

    /// `level` is 0 or more.
    void Activate(std::size_t position, int level)
    {
        SetLeaf(position, {m_intervals[position].High, level});
    }
    /// It is found no longer; nothing when it is inactive.
    void Deactivate(std::size_t position) { SetLeaf(position, {}); }

    /// Number of intervals that begin before `high`, found in a time that grows with the distance
    /// from `guess`, which is at most that number.
    std::size_t CountBelow(double high, std::size_t guess = 0) const
    {
        const auto begin = m_intervals.begin();
        std::size_t step = 1;
        std::size_t from = guess;
        while (from + step < m_intervals.size() && m_intervals[from + step].Low < high) {
            from += step;
            step *= 2;
        }
        const std::size_t to = std::min(from + step, m_intervals.size());
        const auto found = std::lower_bound(
            begin + static_cast<std::ptrdiff_t>(from), begin + static_cast<std::ptrdiff_t>(to),
            high, [](const TIndexedInterval &interval, double low) { return interval.Low < low; });
        return static_cast<std::size_t>(found - begin);
    }

    /// Calls visit(owner, level) for every active interval of at least the level that is among the
    /// first `count` and ends after `low`, until the call returns false; returns what the last call
    /// did. The index must not be changed meanwhile.
    template <typename Visitor>
    bool Visit(std::size_t count, double low, int leastLevel, Visitor &&visit) const
    {
        return count == 0 || VisitNode({1, 0, m_leaves}, {low, count, leastLevel}, visit);
    }

private:
    /// The greatest of what lies below.
    struct TNode
    {
        double High = -std::numeric_limits<double>::infinity();
        int Level = -1; ///< -1: nothing active

        friend bool operator==(const TNode &, const TNode &) = default;
    };
    /// A node and the leaves below it.
    struct TPart
    {
        std::size_t Node;
        std::size_t First;
        std::size_t Count;
    };
    struct TQuery
    {
        double Low;
        std::size_t Count; ///< of the intervals that begin early enough
        int LeastLevel;
    };

    TNode GreatestBelow(std::size_t node) const
    {
        const TNode &left = m_nodes[2 * node];
        const TNode &right = m_nodes[2 * node + 1];
        return {std::max(left.High, right.High), std::max(left.Level, right.Level)};
    }

    /// Goes up only as far as the greatest change.
    void SetLeaf(std::size_t position, TNode leaf)
    {
        std::size_t node = m_leaves + position;
        m_nodes[node] = leaf;
        for (node /= 2; node > 0; node /= 2) {
            const TNode &left = m_nodes[2 * node];
            const TNode &right = m_nodes[2 * node + 1];
            const TNode greatest{std::max(left.High, right.High),
                                 std::max(left.Level, right.Level)};
            if (greatest == m_nodes[node]) {
                return;
            }
            m_nodes[node] = greatest;
        }
    }

    template <typename Visitor>
    bool VisitNode(const TPart &part, const TQuery &query, Visitor &visit) const
    {
        const TNode &node = m_nodes[part.Node];
        if (part.First >= query.Count || !(node.High > query.Low)
            || node.Level < query.LeastLevel) {
            return true;
        }
        if (part.Count == 1) {
            return visit(m_intervals[part.First].Owner, node.Level);
        }
        const std::size_t half = part.Count / 2;
        return VisitNode({2 * part.Node, part.First, half}, query, visit)
               && VisitNode({2 * part.Node + 1, part.First + half, half}, query, visit);
    }

    const std::vector<TIndexedInterval> &m_intervals;
    std::size_t m_leaves;
    std::vector<TNode> m_nodes;
};

} // namespace korvane
