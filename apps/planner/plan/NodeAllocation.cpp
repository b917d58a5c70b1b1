#include "plan/NodeAllocation.h"

#include <algorithm>

namespace korvane::planner {

NodeAllocation::NodeAllocation(int nodes)
{
    for (int node = 0; node < nodes; ++node) {
        m_free.push(node);
    }
}

std::vector<int> NodeAllocation::Take(int count, double start, double finish)
{
    while (!m_busy.empty() && m_busy.top().first <= start) {
        m_free.push(m_busy.top().second);
        m_busy.pop();
    }
    std::vector<int> nodes;
    std::vector<std::pair<double, int>> taken;
    for (int i = 0; i < count; ++i) {
        double busyUntil = finish;
        if (!m_free.empty()) {
            nodes.push_back(m_free.top());
            m_free.pop();
        } else {
            busyUntil = std::max(busyUntil, m_busy.top().first);
            nodes.push_back(m_busy.top().second);
            m_busy.pop();
        }
        taken.emplace_back(busyUntil, nodes.back());
    }
    // Not before: a job has a node once.
    for (const auto &each : taken) {
        m_busy.push(each);
    }
    std::ranges::sort(nodes);
    return nodes;
}

} // namespace korvane::planner
