#include "plan/PlanOutline.h"

#include <algorithm>

namespace korvane::planner {

int SubtreeEnd(const Plan &plan, int task)
{
    const int level = plan.Tasks.at(task).Level;
    const int count = static_cast<int>(plan.Tasks.size());
    int end = task + 1;
    while (end < count && plan.Tasks[end].Level > level) {
        ++end;
    }
    return end;
}

bool IsBelow(const Plan &plan, int task, int above)
{
    while (task > above) {
        task = plan.Tasks[task].Parent;
        if (task == above) {
            return true;
        }
    }
    return false;
}

int PreviousSibling(const Plan &plan, int task)
{
    const int parent = plan.Tasks.at(task).Parent;
    int other = task - 1;
    while (other > parent && plan.Tasks[other].Parent != parent) {
        other = plan.Tasks[other].Parent;
    }
    return other > parent ? other : kNoIndex;
}

int NextSibling(const Plan &plan, int task)
{
    const int end = SubtreeEnd(plan, task);
    const bool isSibling = end < static_cast<int>(plan.Tasks.size())
                           && plan.Tasks[end].Parent == plan.Tasks[task].Parent;
    return isSibling ? end : kNoIndex;
}

std::vector<int> WithoutDescendants(const Plan &plan, std::span<const int> tasks)
{
    std::vector<int> sorted(tasks.begin(), tasks.end());
    std::ranges::sort(sorted);
    std::vector<int> tops;
    for (const int task : sorted) {
        if (tops.empty() || (task != tops.back() && !IsBelow(plan, task, tops.back()))) {
            tops.push_back(task);
        }
    }
    return tops;
}

} // namespace korvane::planner
