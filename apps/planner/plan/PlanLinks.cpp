#include "plan/PlanLinks.h"

#include "plan/PlanOutline.h"

namespace korvane::planner {

namespace {

/// Which end of the links is looked from.
enum class Direction : std::uint8_t { Forward, Backward };

/// The neighbours of every task in one direction, as slices of one list.
class Neighbours
{
public:
    Neighbours(const Plan &plan, Direction direction)
        : m_first(plan.Tasks.size() + 1)
        , m_others(plan.Links.size())
    {
        const auto near =
            direction == Direction::Forward ? &PlanLink::Predecessor : &PlanLink::Successor;
        const auto far =
            direction == Direction::Forward ? &PlanLink::Successor : &PlanLink::Predecessor;
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
void Peel(const Plan &plan, Direction direction, std::vector<bool> &isLeft)
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
    Peel(plan, Direction::Forward, isLeft);
    Peel(plan, Direction::Backward, isLeft);
    std::vector<int> tasks;
    for (int task = 0; task < static_cast<int>(isLeft.size()); ++task) {
        if (isLeft[task]) {
            tasks.push_back(task);
        }
    }
    return tasks;
}

bool WouldCloseCircle(const Plan &plan, int predecessor, int successor)
{
    const Neighbours next(plan, Direction::Forward);
    std::vector<bool> isReached(plan.Tasks.size());
    std::vector<bool> isDelayed(plan.Tasks.size()); // as a whole, with its subtasks
    std::vector<int> open;
    const auto reach = [&](int task) {
        if (!isReached[task]) {
            isReached[task] = true;
            open.push_back(task);
        }
    };
    const auto delay = [&](int task) {
        if (isDelayed[task]) {
            return;
        }
        const int end = SubtreeEnd(plan, task);
        for (int below = task; below < end; ++below) {
            isDelayed[below] = true;
            reach(below);
        }
    };
    delay(successor);
    while (!open.empty()) {
        const int task = open.back();
        open.pop_back();
        for (const int other : next.Of(task)) {
            delay(other);
        }
        if (plan.Tasks[task].Parent != kNoIndex) {
            reach(plan.Tasks[task].Parent);
        }
    }
    return isReached[predecessor];
}

} // namespace korvane::planner
