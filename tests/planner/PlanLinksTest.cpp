// The index of links, and circles, against plain walks over the whole plan.
#include "plan/PlanEditor.h"
#include "plan/PlanLinks.h"
#include "plan/PlanOutline.h"

#include <gtest/gtest.h>
#include <random>

namespace korvane::planner {
namespace {

/// Tasks of random levels, each behind or below the one before.
Plan RandomPlan(std::mt19937 &random, int tasks)
{
    Plan plan;
    for (int index = 0; index < tasks; ++index) {
        PlanTask task;
        int parent = index - 1;
        for (unsigned up = random() % 4; up > 0 && parent >= 0; --up) {
            parent = plan.Tasks[std::size_t(parent)].Parent;
        }
        task.Parent = parent;
        task.Level = static_cast<std::int16_t>(
            parent == kNoIndex ? 1 : plan.Tasks[std::size_t(parent)].Level + 1);
        plan.Tasks.push_back(task);
        if (parent != kNoIndex) {
            plan.Tasks[std::size_t(parent)].HasChildren = true;
        }
    }
    return plan;
}

/// Everything that a delay of the task delays.
bool Reaches(const Plan &plan, int from, int to)
{
    std::vector<bool> reached(plan.Tasks.size());
    std::vector<int> open;
    const auto reach = [&](int task) {
        if (!reached[std::size_t(task)]) {
            reached[std::size_t(task)] = true;
            open.push_back(task);
        }
    };
    std::vector<bool> whole(plan.Tasks.size());
    const auto delay = [&](int task) {
        for (int below = task; below < SubtreeEnd(plan, task); ++below) {
            whole[std::size_t(below)] = true;
            reach(below);
        }
    };
    delay(from);
    while (!open.empty()) {
        const int task = open.back();
        open.pop_back();
        for (const PlanLink &link : plan.Links) {
            if (link.Predecessor == task && !whole[std::size_t(link.Successor)]) {
                delay(link.Successor);
            }
        }
        if (plan.Tasks[std::size_t(task)].Parent != kNoIndex) {
            reach(plan.Tasks[std::size_t(task)].Parent);
        }
    }
    return reached[std::size_t(to)];
}

TEST(PlanLinks, CirclesAndTheIndexAreWhatAWalkOverAllLinksFinds)
{
    std::mt19937 random(3);
    int circles = 0;
    for (int round = 0; round < 60; ++round) {
        const int tasks = 4 + static_cast<int>(random() % 12);
        Plan plan = RandomPlan(random, tasks);
        PredecessorIndex links;
        for (int step = 0; step < 30; ++step) {
            const int first = static_cast<int>(random() % unsigned(tasks));
            const int second = static_cast<int>(random() % unsigned(tasks));
            if (first == second || IsBelow(plan, first, second) || IsBelow(plan, second, first)) {
                continue;
            }
            const bool circle = Reaches(plan, second, first);
            EXPECT_EQ(WouldCloseCircle(plan, first, second, links), circle) << round << ' ' << step;
            circles += circle ? 1 : 0;
            if (!circle) {
                plan.Links.push_back({first, second, {}});
            }
            if (!plan.Links.empty() && random() % 5 == 0) {
                plan.Links.erase(plan.Links.begin());
                links.OutOfDate();
            }
            std::vector<int> expected;
            for (int link = 0; link < std::ssize(plan.Links); ++link) {
                if (plan.Links[std::size_t(link)].Successor == second) {
                    expected.push_back(link);
                }
            }
            EXPECT_EQ(links.LinksTo(plan, second), expected);
        }
    }
    EXPECT_GT(circles, 50);
}

} // namespace
} // namespace korvane::planner
