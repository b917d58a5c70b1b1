// Questions about the outline of a plan.
#pragma once

#include "plan/Plan.h"

#include <span>
#include <vector>

namespace korvane::planner {

/// Index behind the last task at or below the task.
int SubtreeEnd(const Plan &plan, int task);
/// Whether `above` is an ancestor of the task.
bool IsBelow(const Plan &plan, int task, int above);
/// The task before it with the same parent, or kNoIndex.
int PreviousSibling(const Plan &plan, int task);
/// The task after it with the same parent, or kNoIndex.
int NextSibling(const Plan &plan, int task);
/// The tasks, ascending and each once, without those that are below another one of them.
std::vector<int> WithoutDescendants(const Plan &plan, std::span<const int> tasks);

} // namespace korvane::planner
