// Checks of the network that the links of a plan form.
#pragma once

#include "plan/Plan.h"

namespace korvane::planner {

/// Tasks that lie on a circle of links, or between two circles; ascending. A link of a task with
/// itself does not count.
std::vector<int> TasksInCircles(const Plan &plan);

/// Whether the successor reaches back to the predecessor, so that a link between them would close a
/// circle. What delays a summary task delays its subtasks; what delays a subtask delays the summary
/// task's finish, but not its other subtasks.
bool WouldCloseCircle(const Plan &plan, int predecessor, int successor);

} // namespace korvane::planner
