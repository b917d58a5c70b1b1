#include "plan/PlanLinks.h"

#include "plan/PlanOutline.h"

#include <set>
#include <span>
#include <utility>

namespace korvane::planner {

namespace {

/// The neighbours of every task in one direction, as slices of one list.
class Neighbours
{
public:
    Neighbours(const Plan &plan, LinkDirection direction)
        : m_first(plan.Tasks.size() + 1)
        , m_others(plan.Links.size())
    {
        const auto near =
            direction == LinkDirection::Forward ? &PlanLink::Predecessor : &PlanLink::Successor;
        const auto far =
            direction == LinkDirection::Forward ? &PlanLink::Successor : &PlanLink::Predecessor;
        for (const PlanLink &link : plan.Links) {
            ++m_first[link.*near];
        }
        int sum = 0;
        for (int &first : m_first) {
            sum += first;
            first = sum;
        }
        // Filled from the back, so that the ends become the beginnings.
        for (const PlanLink &link : plan.Links) {
            m_others[--m_first[link.*near]] = link.*far;
        }
    }

    std::span<const int> Of(int task) const
    {
        return std::span(m_others).subspan(m_first[task], m_first[task + 1] - m_first[task]);
    }

private:
    std::vector<int> m_first;
    std::vector<int> m_others;
};

/// Takes away, again and again, the tasks that no remaining link leads to.
void Peel(const Plan &plan, LinkDirection direction, std::vector<bool> &isLeft)
{
    const Neighbours next(plan, direction);
    std::vector<int> incoming(plan.Tasks.size());
    const int count = static_cast<int>(plan.Tasks.size());
    for (int task = 0; task < count; ++task) {
        for (const int other : next.Of(task)) {
            incoming[other] += isLeft[task] && other != task ? 1 : 0;
        }
    }
    std::vector<int> free;
    for (int task = 0; task < count; ++task) {
        if (isLeft[task] && incoming[task] == 0) {
            free.push_back(task);
        }
    }
    while (!free.empty()) {
        const int task = free.back();
        free.pop_back();
        isLeft[task] = false;
        for (const int other : next.Of(task)) {
            if (other != task && --incoming[other] == 0 && isLeft[other]) {
                free.push_back(other);
            }
        }
    }
}

} // namespace

std::vector<int> TasksInCircles(const Plan &plan)
{
    std::vector<bool> isLeft(plan.Tasks.size(), true);
    Peel(plan, LinkDirection::Forward, isLeft);
    Peel(plan, LinkDirection::Backward, isLeft);
    std::vector<int> tasks;
    for (int task = 0; task < static_cast<int>(isLeft.size()); ++task) {
        if (isLeft[task]) {
            tasks.push_back(task);
        }
    }
    return tasks;
}

// --- the index -----------------------------------------------------------------------------------

void PredecessorIndex::Update(const Plan &plan)
{
    if (!m_isUpToDate || m_to.Next.size() > plan.Links.size()
        || m_to.First.size() > plan.Tasks.size()) {
        m_from = m_to = {};
    }
    m_isUpToDate = true;
    const auto take = [&plan](Chains &chains, int PlanLink::*end) {
        chains.First.resize(plan.Tasks.size(), kNoIndex);
        chains.Last.resize(plan.Tasks.size(), kNoIndex);
        for (std::size_t link = chains.Next.size(); link < plan.Links.size(); ++link) {
            const auto task = static_cast<std::size_t>(plan.Links[link].*end);
            const int last = std::exchange(chains.Last.at(task), static_cast<int>(link));
            (last == kNoIndex ? chains.First[task] : chains.Next[static_cast<std::size_t>(last)]) =
                static_cast<int>(link);
            chains.Next.push_back(kNoIndex);
        }
    };
    take(m_from, &PlanLink::Predecessor);
    take(m_to, &PlanLink::Successor);
}

std::vector<int> PredecessorIndex::LinksOf(const Plan &plan, LinkDirection direction, int task)
{
    Update(plan);
    const Chains &chains = direction == LinkDirection::Forward ? m_from : m_to;
    std::vector<int> links;
    for (int link = chains.First.at(static_cast<std::size_t>(task)); link != kNoIndex;
         link = chains.Next[static_cast<std::size_t>(link)]) {
        if (!m_forgotten.contains(link)) {
            links.push_back(link);
        }
    }
    return links;
}

std::vector<int> PredecessorIndex::TakeForgotten()
{
    const std::set<int> links = std::exchange(m_forgotten, {});
    OutOfDate();
    return {links.begin(), links.end()};
}

// --- circles -------------------------------------------------------------------------------------

namespace {

/// A search along the links from one end. Forward a task is reached when it is delayed at all, and
/// whole when all below it is, too; backward likewise what delays it.
class Reach
{
public:
    Reach(const Plan &plan, PredecessorIndex &links, LinkDirection direction)
        : m_plan(plan)
        , m_links(links)
        , m_isForward(direction == LinkDirection::Forward)
    {
    }

    void Touch(int task) { Add(task, false); }
    void TouchWhole(int task) { Add(task, true); }
    bool HasTouched(int task) const { return m_known.contains({task, false}); }
    bool HasTouchedWhole(int task) const { return m_known.contains({task, true}); }

    /// False when there is nothing left to look at.
    bool Step()
    {
        if (m_open.empty()) {
            return false;
        }
        const auto [task, whole] = m_open.back();
        m_open.pop_back();
        m_isForward ? Forward(task, whole) : Backward(task, whole);
        return true;
    }

private:
    void Add(int task, bool whole)
    {
        if (m_known.insert({task, whole}).second) {
            m_open.emplace_back(task, whole);
        }
    }
    template <typename Use>
    void ForEachChild(int task, Use use) const
    {
        const int end = SubtreeEnd(m_plan, task);
        for (int child = task + 1; child < end; child = SubtreeEnd(m_plan, child)) {
            use(child);
        }
    }
    void Forward(int task, bool whole)
    {
        if (whole) {
            Touch(task);
            ForEachChild(task, [this](int child) { TouchWhole(child); });
            return;
        }
        for (const int link : m_links.LinksOf(m_plan, LinkDirection::Forward, task)) {
            TouchWhole(m_plan.Links[static_cast<std::size_t>(link)].Successor);
        }
        const int parent = m_plan.Tasks[static_cast<std::size_t>(task)].Parent;
        if (parent != kNoIndex) {
            Touch(parent);
        }
    }
    void Backward(int task, bool whole)
    {
        if (!whole) {
            TouchWhole(task);
            ForEachChild(task, [this](int child) { Touch(child); });
            return;
        }
        for (const int link : m_links.LinksOf(m_plan, LinkDirection::Backward, task)) {
            Touch(m_plan.Links[static_cast<std::size_t>(link)].Predecessor);
        }
        const int parent = m_plan.Tasks[static_cast<std::size_t>(task)].Parent;
        if (parent != kNoIndex) {
            TouchWhole(parent);
        }
    }

    const Plan &m_plan;
    PredecessorIndex &m_links;
    bool m_isForward;
    std::set<std::pair<int, bool>> m_known;
    std::vector<std::pair<int, bool>> m_open;
};

} // namespace

bool WouldCloseCircle(const Plan &plan, int predecessor, int successor, PredecessorIndex &links)
{
    Reach after(plan, links, LinkDirection::Forward);
    Reach before(plan, links, LinkDirection::Backward);
    after.TouchWhole(successor);
    before.Touch(predecessor);
    while (after.Step() && before.Step()) {
        if (after.HasTouched(predecessor) || before.HasTouchedWhole(successor)) {
            return true;
        }
    }
    return after.HasTouched(predecessor) || before.HasTouchedWhole(successor);
}

} // namespace korvane::planner
