// Checks of the network that the links of a plan form.
#pragma once

#include "plan/Plan.h"

#include <cstdint>
#include <set>
#include <vector>

namespace korvane::planner {

/// Which end of the links is looked from.
enum class LinkDirection : std::uint8_t { Forward, Backward };

/// Which links lead to and from a task, at the cost of these. Links and tasks that were added at
/// the end are taken in when they are asked for; after any other change of links and of the places
/// of tasks it has to be told.
class PredecessorIndex
{
public:
    /// Links were removed or lead elsewhere, or tasks have other numbers.
    void OutOfDate() { m_isUpToDate = false; }
    /// Indices into Plan::Links, ascending.
    std::vector<int> LinksTo(const Plan &plan, int task)
    {
        return LinksOf(plan, LinkDirection::Backward, task);
    }
    std::vector<int> LinksOf(const Plan &plan, LinkDirection direction, int task);

    /// The link counts as removed, until it is remembered or all that are forgotten are taken, to
    /// be removed at once. Until then no link may be removed in another way.
    void Forget(int link) { m_forgotten.insert(link); }
    void Remember(int link) { m_forgotten.erase(link); }
    std::size_t ForgottenCount() const { return m_forgotten.size(); }
    /// Ascending. The index is out of date then.
    std::vector<int> TakeForgotten();

private:
    /// The links of each task as a chain.
    struct Chains
    {
        std::vector<int> First; ///< per task
        std::vector<int> Last;
        std::vector<int> Next; ///< per link
    };

    void Update(const Plan &plan);

    Chains m_from;
    Chains m_to;
    std::set<int> m_forgotten;
    bool m_isUpToDate = false;
};

/// Tasks that lie on a circle of links, or between two circles; ascending. A link of a task with
/// itself does not count.
std::vector<int> TasksInCircles(const Plan &plan);

/// Whether the successor reaches back to the predecessor, so that a link between them would close a
/// circle. What delays a summary task delays its subtasks; what delays a subtask delays the summary
/// task's finish, but not its other subtasks. It is looked for from both ends, at the cost of the
/// one that reaches less.
bool WouldCloseCircle(const Plan &plan, int predecessor, int successor, PredecessorIndex &links);

} // namespace korvane::planner
