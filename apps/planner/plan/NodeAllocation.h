// Which nodes of a cluster jobs run on.
#pragma once

#include <queue>

#include <functional>
#include <utility>
#include <vector>

namespace korvane::planner {

/// Gives jobs the free nodes with the lowest numbers, and, when these are too few, those that
/// become free soonest. A node costs the logarithm of the number of nodes.
class NodeAllocation
{
public:
    explicit NodeAllocation(int nodes);

    /// Numbers of the nodes, from 0, of a job from `start` to `finish`; ascending. Jobs come in the
    /// order of their starts; `count` is not more than there are nodes.
    std::vector<int> Take(int count, double start, double finish);

private:
    template <typename Item>
    using LowestFirst = std::priority_queue<Item, std::vector<Item>, std::greater<>>;

    LowestFirst<int> m_free;
    LowestFirst<std::pair<double, int>> m_busy; ///< by when they become free
};

} // namespace korvane::planner
