// Checks of the network that the links of a plan form.
#pragma once

#include "plan/Plan.h"

namespace korvane::planner {

/// Tasks that lie on a circle of links, or between two circles; ascending. A link of a task with
/// itself does not count.
std::vector<int> TasksInCircles(const Plan &plan);

} // namespace korvane::planner
