#include "plan/PlanDifference.h"

#include "plan/MspdiFormat.h"

#include <QSet>

#include <algorithm>
#include <numeric>

namespace korvane::planner {

namespace {

/// All indices, ordered by a number of the items.
template <typename Items, typename Key>
std::vector<int> SortedBy(const Items &items, Key key)
{
    std::vector<int> indices(items.size());
    std::iota(indices.begin(), indices.end(), 0);
    const auto keyOf = [&](int index) { return items.at(static_cast<std::size_t>(index)).*key; };
    if (!std::ranges::is_sorted(indices, {}, keyOf)) {
        std::ranges::stable_sort(indices, {}, keyOf);
    }
    return indices;
}

template <typename Items>
void Match(const Items &before, const Items &now, std::vector<int> &beforeOf,
           std::vector<int> &nowOf)
{
    using Item = typename Items::value_type;
    beforeOf.assign(now.size(), kNoIndex);
    nowOf.assign(before.size(), kNoIndex);
    const auto former = SortedBy(before, &Item::Uid);
    const auto present = SortedBy(now, &Item::Uid);
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < former.size() && j < present.size()) {
        const auto formerUid = before[former[i]].Uid;
        const auto presentUid = now[present[j]].Uid;
        if (formerUid == presentUid) {
            beforeOf[present[j]] = former[i];
            nowOf[former[i]] = present[j];
        }
        i += formerUid <= presentUid ? 1 : 0;
        j += presentUid <= formerUid ? 1 : 0;
    }
}

template <typename Items>
std::int64_t GreatestUid(const Items &items, std::int64_t least)
{
    for (const auto &item : items) {
        least = std::max(least, item.Uid);
    }
    return least;
}

template <typename Items, typename NeedsNumber>
std::vector<std::int64_t> Numbered(const Items &items, std::int64_t last, NeedsNumber needsNumber)
{
    QSet<std::int64_t> used;
    std::vector<std::int64_t> uids;
    int index = 0;
    for (const auto &item : items) {
        const bool isOther = item.Uid == kNoUid || used.contains(item.Uid);
        const bool isUseless = item.Uid == mspdi::kProjectUid || (isOther && needsNumber(index));
        uids.push_back(isUseless ? ++last : item.Uid);
        used.insert(uids.back());
        ++index;
    }
    return uids;
}

std::span<const int> LinksTo(int successor, const Plan &plan, const std::vector<int> &sorted)
{
    const auto range = std::ranges::equal_range(sorted, successor, {}, [&](int link) {
        return plan.Links.at(static_cast<std::size_t>(link)).Successor;
    });
    return {range.begin(), range.end()};
}

} // namespace

PlanDifference::PlanDifference(const Plan &before, const Plan &now)
    : m_before(before)
    , m_now(now)
    , m_linksNow(SortedBy(now.Links, &PlanLink::Successor))
    , m_linksBefore(SortedBy(before.Links, &PlanLink::Successor))
{
    Match(before.Tasks, now.Tasks, m_taskBefore, m_taskNow);
    Match(before.Resources, now.Resources, m_resourceBefore, m_resourceNow);
    NumberTasks();
    NumberResources();
    m_isOutlineSame = before.Tasks.size() == now.Tasks.size();
    for (int task = 0; m_isOutlineSame && task < std::ssize(now.Tasks); ++task) {
        m_isOutlineSame = TaskBefore(task) == task && Former(task)->Level == Task(task).Level;
    }
}

void PlanDifference::NumberTasks()
{
    std::vector<bool> isNamed(m_now.Tasks.size());
    for (const PlanLink &link : m_now.Links) {
        isNamed[link.Predecessor] = true;
    }
    for (const PlanAssignment &assignment : m_now.Assignments) {
        isNamed[assignment.Task] = true;
    }
    m_taskUids = Numbered(m_now.Tasks, GreatestUid(m_now.Tasks, GreatestUid(m_before.Tasks, 0)),
                          [&](int task) { return isNamed[task] || TaskBefore(task) == kNoIndex; });
}

void PlanDifference::NumberResources()
{
    std::vector<bool> isNamed(m_now.Resources.size());
    for (const PlanAssignment &assignment : m_now.Assignments) {
        isNamed[assignment.Resource] = true;
    }
    m_resourceUids =
        Numbered(m_now.Resources, GreatestUid(m_now.Resources, GreatestUid(m_before.Resources, 0)),
                 [&](int item) { return isNamed[item] || ResourceBefore(item) == kNoIndex; });
}

const PlanTask *PlanDifference::Former(int task) const
{
    const int before = TaskBefore(task);
    return before == kNoIndex ? nullptr : &m_before.Tasks.at(static_cast<std::size_t>(before));
}

bool PlanDifference::AreDatesChanged(int task) const
{
    const PlanTask *former = Former(task);
    return former == nullptr || former->Dates != Task(task).Dates
           || former->Parts != Task(task).Parts;
}

std::span<const int> PlanDifference::LinksNow(int successor) const
{
    return LinksTo(successor, m_now, m_linksNow);
}

std::span<const int> PlanDifference::LinksBefore(int successor) const
{
    return LinksTo(successor, m_before, m_linksBefore);
}

} // namespace korvane::planner
